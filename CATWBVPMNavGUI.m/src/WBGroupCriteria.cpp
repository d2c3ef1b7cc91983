#include "WBGroupCriteria.h"

#include "WBGroupTexts.h"

#include <algorithm>
#include <array>
#include <string>

namespace
{

constexpr const char* kAnd = "and";
constexpr const char* kOr = "or";

CATUnicodeString TitleOf(const CATUnicodeString& attribute,
                         const std::vector<WBGroupAttribute>& offered)
{
    const auto found = std::ranges::find(offered, attribute, &WBGroupAttribute::name);
    return found == offered.end() ? attribute : found->title;
}

} // namespace

WBStoredGroup WBStoredCriteria(const WBGroupCriteria& criteria)
{
    constexpr int kLists = 4;
    WBStoredGroup group;
    group.joined = criteria.joined == WBJoined::And ? kAnd : kOr;
    group.lists.resize(kLists);
    for (const WBCriterion& criterion : criteria.criteria) {
        group.lists[0].Append(criterion.attribute);
        group.lists[1].Append(CATUnicodeString(WBComparisonName(criterion.comparison)));
        group.lists[2].Append(criterion.value);
        group.lists[3].Append(criterion.magnitude);
    }
    return group;
}

std::optional<WBGroupCriteria> WBReadStoredCriteria(const WBStoredGroup& group)
{
    if (!(group.joined == kAnd) && !(group.joined == kOr)) {
        return std::nullopt;
    }
    WBGroupCriteria read;
    read.joined = group.joined == kAnd ? WBJoined::And : WBJoined::Or;
    for (int position = 1; position <= group.lists[0].Size(); ++position) {
        const CATUnicodeString& magnitude = group.lists[3][position];
        const auto comparison = WBComparisonNamed(WBKindOf(magnitude), group.lists[1][position]);
        if (!comparison) {
            return std::nullopt;
        }
        const WBCriterion criterion{group.lists[0][position], *comparison, group.lists[2][position],
                                    magnitude};
        if (!WBIsReadable(criterion)) {
            return std::nullopt;
        }
        read.criteria.push_back(criterion);
    }
    return read;
}

WBPanelTable WBCriteriaTable(const std::vector<WBCriterion>& criteria,
                             const std::vector<WBGroupAttribute>& offered)
{
    WBPanelTable table;
    table.columns = {{WBGroupText("Attribute.Title", "@Attribute"), {}, false},
                     {WBGroupText("Comparison.Title", "@Comparison"), {}, false},
                     {WBGroupText("Value.Title", "@Value"), {}, false}};
    for (const WBCriterion& criterion : criteria) {
        table.rows.push_back({TitleOf(criterion.attribute, offered),
                              WBComparisonTitle(criterion.comparison), WBShownValue(criterion)});
    }
    return table;
}

CATUnicodeString WBComparisonTitle(WBComparison comparison)
{
    constexpr std::array kWords{"Comparison.Is", "Comparison.IsNot", "Comparison.Contains",
                                "Comparison.BeginsWith"};
    const auto index = static_cast<std::size_t>(comparison);
    const std::string name = WBComparisonName(comparison);
    return index < kWords.size() ? WBGroupText(kWords[index], ("@" + name).c_str())
                                 : CATUnicodeString(name);
}
