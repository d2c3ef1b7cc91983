#include "WBReportConversion.h"

#include "WBReportUnknowns.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"
#include "CATWBServices.h"

#include <optional>
#include <vector>

namespace
{

/// The exported operations take pointers, null for what is not asked for.
template <class T>
T* PointerTo(std::optional<T>& value)
{
    return value ? &*value : nullptr;
}

void ConvertUnits(CATIDOMDocument_var& document, const CATWBReportConversion& conversion)
{
    const unsigned char withSymbol = conversion.withSymbols ? 1 : 0;
    const bool isDistributive = conversion.kind == CATWBReportConversion::Kind::Distributive;
    if (conversion.values == CATWBReportConversion::Values::Stored) {
        if (isDistributive) {
            CATWBServices::ManageUnitsConversionDistributive(document, withSymbol,
                                                             conversion.decimals);
        } else {
            CATWBServices::ManageUnitsConversion(document, withSymbol, conversion.decimals);
        }
    } else if (isDistributive) {
        CATWBServices::ManageUnitsDisplayDistributive(document, withSymbol, conversion.decimals);
    } else {
        CATWBServices::ManageUnitsDisplay(document, WBMagnitudeAttributes(document), withSymbol,
                                          conversion.decimals);
    }
}

} // namespace

CATListValCATUnicodeString WBMagnitudeAttributes(const CATIDOMDocument_var& document)
{
    CATListValCATUnicodeString names;
    // A report has few names and very many attributes: each name is looked at once.
    std::vector<bool> isKnown;
    const CATIDOMNodeList_var instances = document->ElementsByTagName("PartInstance");
    for (int index = 0, count = instances->Length(); index < count; ++index) {
        const CATIDOMNode_var node = instances->Item(index);
        const CATIDOMElement* element = node->AsElement();
        for (int attribute = 0; attribute < element->AttributeCount(); ++attribute) {
            const CATDOMName name = element->AttributeName(attribute);
            const auto number = static_cast<std::size_t>(name.number);
            if (number >= isKnown.size()) {
                isKnown.resize(number + 1);
            }
            if (isKnown[number]) {
                continue;
            }
            isKnown[number] = true;
            const std::string_view text = document->NameText(name);
            if (text.starts_with("__magnitude__")) {
                names.Append(text);
            }
        }
    }
    return names;
}

void WBConvertReport(CATIDOMDocument_var& document, const CATWBReportConversion& conversion)
{
    std::optional<CATMath3x3Matrix> axes = conversion.axes;
    std::optional<CATMathPoint> reference = conversion.reference;
    std::optional<WBReportUnknowns> unknowns;
    if (axes || reference) {
        unknowns.emplace(document);
    }
    // Either one that is not asked for is a null pointer, which leaves the document as it is.
    CATWBServices::InertiaDirectionConversion(document, PointerTo(axes));
    CATWBServices::InertiaReferencePointConversion(document, PointerTo(reference), PointerTo(axes),
                                                   conversion.keepInertiaAtCentre ? 1 : 0);
    if (unknowns) {
        const bool isMoved = reference && !conversion.keepInertiaAtCentre;
        unknowns->Restore(document, isMoved ? WBReportUnknowns::Inertia::Moved
                                            : WBReportUnknowns::Inertia::AtCentre);
    }
    ConvertUnits(document, conversion);
}
