#include "WBPreviewUnits.h"

#include "WBReportAttributes.h"
#include "WBReportNodes.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"
#include "CATMsgCatalog.h"
#include "CATWBUnitHeader.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace
{

constexpr const char* kCatalog = "WBPreviewUnits";
constexpr const char* kVolumicDensity = "DENSITY";
constexpr const char* kSurfacicDensity = "SURFACICMASS";
constexpr std::array kBreakdownAttributes{"WB_Mass_Details"};

struct Row
{
    const char* magnitude;
    std::span<const char* const> attributes;
};
constexpr std::array kRows{
    Row{"LENGTH", kCentreAttributes},         Row{"MASS", kMassAttributes},
    Row{"MASS", kBreakdownAttributes},        Row{"INERTIAMOMENT", kInertiaAttributes},
    Row{kVolumicDensity, kDensityAttributes}, Row{"VOLUME", kVolumeAttributes}};

CATUnicodeString InUnit(const CATUnicodeString& symbol)
{
    return symbol.IsEmpty() ? symbol
                            : CATMsgCatalog::BuildMessage(kCatalog, "Column", "@in /p1", {symbol});
}

CATUnicodeString SymbolOf(const CATICkeUnit_var& unit)
{
    return unit.IsNull() ? CATUnicodeString() : unit->Symbol();
}

CATUnicodeString CurrentSymbol(const CATUnicodeString& magnitudeName)
{
    const CATICkeMagnitude_var magnitude = KnownMagnitude(magnitudeName);
    return magnitude.IsNull() ? CATUnicodeString() : SymbolOf(magnitude->CurrentUnit());
}

} // namespace

CATUnicodeString WBPreviewUnits::Symbol(const char* magnitude) const
{
    const CATUnicodeString name(magnitude);
    const auto* const row = std::ranges::find_if(
        kCATWBUnitHeader, [&name](const auto& each) { return name == each.magnitude; });
    const CATIDOMElement_var element = m_document.DocumentElement();
    CATUnicodeString symbol;
    if (!element.IsNull() && row != kCATWBUnitHeader.end() &&
        element->GetAttribute(row->attribute, symbol) == S_OK) {
        return symbol;
    }
    const CATICkeMagnitude_var known = KnownMagnitude(name);
    return known.IsNull() ? CATUnicodeString() : SymbolOf(known->StorageUnit());
}

CATUnicodeString WBPreviewUnits::Of(const char* magnitude) const
{
    return InUnit(Symbol(magnitude));
}

CATUnicodeString WBPreviewUnits::OfDensities() const
{
    return CATMsgCatalog::BuildMessage(kCatalog, "Densities", "@in /p1, of surfaces in /p2",
                                       {Symbol(kVolumicDensity), Symbol(kSurfacicDensity)});
}

CATUnicodeString WBPreviewUnits::OfShares()
{
    return InUnit("%");
}

CATUnicodeString WBPreviewUnits::OfAttribute(const CATUnicodeString& attribute) const
{
    if (attribute == kMaterialDensityAttributes.front()) {
        return OfDensities();
    }
    for (const Row& row : kRows) {
        for (const char* name : row.attributes) {
            if (attribute == name) {
                return Of(row.magnitude);
            }
        }
    }
    return {};
}

CATUnicodeString WBPreviewUnits::Line() const
{
    const CATIDOMElement_var element = m_document.DocumentElement();
    CATUnicodeString symbols;
    for (const CATWBUnitHeaderRow& row : kCATWBUnitHeader) {
        CATUnicodeString symbol;
        if (!element.IsNull() && element->GetAttribute(row.attribute, symbol) == S_OK) {
            symbols += (symbols.IsEmpty() ? "" : ", ") + symbol;
        }
    }
    return symbols.IsEmpty()
               ? symbols
               : CATMsgCatalog::BuildMessage(kCatalog, "Line", "@Units: /p1", {symbols});
}

CATUnicodeString WBUnitsHaveChanged()
{
    return CATMsgCatalog::BuildMessage(
        kCatalog, "Changed",
        "@Another unit was chosen. Make the report again to see the values in it.");
}

void ShowColumnUnits(const CATIDOMDocument& document, const CATListValCATUnicodeString& attributes,
                     CATDlgMultiList& list)
{
    const WBPreviewUnits units(document);
    int column = 0;
    for (const CATUnicodeString& attribute : attributes.Items()) {
        ++column;
        list.SetColumnTooltip(column, units.OfAttribute(attribute));
    }
}

void ShowPropertyUnits(const CATIDOMDocument& document,
                       const CATListValCATUnicodeString& attributes,
                       const CATListValCATUnicodeString& magnitudeAttributes, CATDlgMultiList& list)
{
    struct Open
    {
        int column;
        CATDOMName magnitude;
    };
    std::vector<Open> open;
    int column = 0;
    for (const CATUnicodeString& attribute : attributes.Items()) {
        ++column;
        const CATUnicodeString magnitude = "__magnitude__" + attribute;
        if (magnitudeAttributes.Locate(magnitude) > 0) {
            open.push_back({column, document.FindName(magnitude.View())});
        }
    }
    const CATIDOMNodeList_var instances = document.ElementsByTagName(kPartInstanceElement);
    // Most often the first instances have them all, so that the walk is a short one.
    for (int index = 0; !open.empty() && !instances.IsNull(); ++index) {
        const CATIDOMNode_var node = instances->Item(index);
        const CATIDOMElement* const element = ElementOf(node);
        if (element == nullptr) {
            return;
        }
        std::erase_if(open, [&](const Open& each) {
            const int found = element->FindAttribute(each.magnitude);
            if (found >= 0) {
                list.SetColumnTooltip(each.column,
                                      InUnit(CurrentSymbol(element->AttributeText(found))));
            }
            return found >= 0;
        });
    }
}
