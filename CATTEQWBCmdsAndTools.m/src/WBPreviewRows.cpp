#include "WBPreviewRows.h"

#include "WBReportNodes.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{

constexpr std::array kCountAttributes{"Quantity"};
constexpr std::array<std::span<const char* const>, 6> kNumberAttributes{
    kCountAttributes,   kCentreAttributes,  kMassAttributes,
    kInertiaAttributes, kDensityAttributes, kVolumeAttributes};

/// Whether the values of the attribute are single numbers. Lists of numbers, as of the densities of
/// several materials, are texts.
bool IsNumberAttribute(const CATUnicodeString& attribute)
{
    return std::ranges::any_of(kNumberAttributes, [&attribute](const auto& names) {
        return std::ranges::any_of(
            names, [&attribute](const char* name) { return attribute.View() == name; });
    });
}

} // namespace

void ShowColumns(const WBPreviewColumns& columns, const CATUnicodeString& firstTitle,
                 CATDlgMultiList& list)
{
    list.SetColumnTitles(columns.Titles(firstTitle));
    int column = 0;
    list.SetColumnIsNumber(column, true);
    for (const CATUnicodeString& name : columns.Names().Items()) {
        ++column;
        list.SetColumnIsNumber(column, IsNumberAttribute(name));
    }
}

CATIDOMElement_var FirstRoot(const CATIDOMDocument& document)
{
    const CATIDOMNodeList_var roots = document.DocumentElement().IsNull()
                                          ? CATIDOMNodeList_var()
                                          : document.ElementsByTagName(kRootElement);
    return roots.IsNull() ? CATIDOMElement_var() : CATIDOMElement_var(roots->Item(0));
}

long PrintAttribute(const DSTrace& trace, const CATIDOMElement_var& element,
                    const CATUnicodeString& name, int column, int row, CATDlgMultiList& list)
{
    CATUnicodeString value;
    const long result = element.IsNull() ? E_FAIL : element->GetAttribute(name, value);
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
