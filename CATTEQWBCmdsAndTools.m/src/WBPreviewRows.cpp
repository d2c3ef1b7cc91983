#include "WBPreviewRows.h"

#include "WBReportNodes.h"

#include "CATIDOMElement.h"
#include "CATIDOMNamedNodeMap.h"
#include "CATIDOMNodeList.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

namespace
{

/// Collects names of attributes, each the first time that it is met.
class NameCollection
{
public:
    /// False when the element's attributes cannot be read.
    bool Add(const CATIDOMElement& element, const WBOnMissingAttribute& onMissing)
    {
        const CATIDOMNamedNodeMap_var attributes = element.Attributes();
        if (attributes.IsNull()) {
            return false;
        }
        // The names are taken by number: a report has millions of attributes and a few dozen names,
        // and a node for each attribute would cost more than all the rest.
        const int count = element.AttributeCount();
        const int announced = attributes->Length();
        for (int index = 0; index < announced; ++index) {
            if (index < count) {
                AddName(element, element.AttributeName(index));
            } else {
                onMissing(index);
            }
        }
        return true;
    }
    CATListValCATUnicodeString& Names() { return m_names; }

private:
    void AddName(const CATIDOMElement& element, CATDOMName name)
    {
        const auto number = static_cast<std::size_t>(name.number);
        if (number >= m_isMet.size()) {
            m_isMet.resize(number + 1);
        }
        if (!m_isMet[number]) {
            m_isMet[number] = true;
            m_names.Append(element.OwnerDocument()->NameText(name));
        }
    }

    std::vector<bool> m_isMet; // by the number of the name
    CATListValCATUnicodeString m_names;
};

constexpr std::array kOtherNumberAttributes{"Quantity", "Unit_mass", "WB_Mass_Details", "Density",
                                            "Density_dimension"};
constexpr std::array<std::span<const char* const>, 6> kNumberAttributes{
    kCentreAttributes,  kMassAttributes,   kInertiaAttributes,
    kDensityAttributes, kVolumeAttributes, kOtherNumberAttributes};

bool HoldsNumbers(const CATUnicodeString& attribute)
{
    return std::ranges::any_of(kNumberAttributes, [&attribute](const auto& names) {
        return std::ranges::any_of(
            names, [&attribute](const char* name) { return attribute.View() == name; });
    });
}

} // namespace

std::optional<CATListValCATUnicodeString> AttributeNames(const CATIDOMElement& element,
                                                         const WBOnMissingAttribute& onMissing)
{
    NameCollection collection;
    if (!collection.Add(element, onMissing)) {
        return std::nullopt;
    }
    return std::move(collection.Names());
}

std::optional<CATListValCATUnicodeString>
DistinctAttributeNames(const CATIDOMNodeList& nodes, const WBOnMissingAttribute& onMissing)
{
    NameCollection collection;
    bool isWhole = true;
    ForEachElement(nodes, [&](const CATIDOMElement& element, int) {
        isWhole = isWhole && collection.Add(element, onMissing);
    });
    if (!isWhole) {
        return std::nullopt;
    }
    return std::move(collection.Names());
}

void ShowColumns(const WBPreviewColumns& columns, const CATUnicodeString& firstTitle,
                 CATDlgMultiList& list)
{
    list.SetColumnTitles(columns.Titles(firstTitle));
    int column = 0;
    list.SetColumnIsNumber(column, true);
    for (const CATUnicodeString& name : columns.Names().Items()) {
        ++column;
        list.SetColumnIsNumber(column, HoldsNumbers(name));
    }
}

long PrintAttribute(const DSTrace& trace, const CATIDOMElement& element,
                    const CATUnicodeString& name, int column, int row, CATDlgMultiList& list)
{
    CATUnicodeString value;
    const long result = element.GetAttribute(name, value);
    if (result != S_OK) {
        trace.Line("Could not get the value of the attribute ", name);
        return result;
    }
    list.SetCell(column, row + 1, value, CATDlgMultiList::kAppendRow);
    return S_OK;
}

void CountStepsToRoot(CATIDOMNode_var node, int& count)
{
    while (!node.IsNull() && !(node->NodeName() == kRootElement)) {
        node = node->ParentNode();
        ++count;
    }
}
