#include "WBFilterSet.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATMsgCatalog.h"
#include "WBPickReading.h"
#include "WBRootFilter.h"

#include <algorithm>
#include <utility>

namespace
{

WBFilterSet::Entry ReadEntry(const CATUnicodeString& text)
{
    std::optional<WBDefinedFilter> filter = WBReadDefinedFilter(text);
    return filter ? WBFilterSet::Entry{std::move(*filter), {}} : WBFilterSet::Entry{{}, text};
}

CATUnicodeString TextOf(const WBFilterSet::Entry& entry)
{
    return entry.IsDamaged() ? entry.damaged : WBDefinedFilterText(entry.filter);
}

bool IsCalled(const WBFilterSet& set, const CATUnicodeString& name)
{
    return std::ranges::any_of(
        set.entries, [&](const WBFilterSet::Entry& entry) { return entry.filter.name == name; });
}

/// What is said where no filter counts; a filter of that name would be taken for none.
bool MeansNone(const CATUnicodeString& name)
{
    return name == "No Filter" || name == "NoConfig" || name == WBNoFilterText();
}

} // namespace

int WBFilterSet::Add(const std::function<CATUnicodeString(int number)>& nameOfNumber)
{
    int number = 1;
    while (IsCalled(*this, nameOfNumber(number))) {
        ++number;
    }
    entries.push_back({{nameOfNumber(number), {}}, {}});
    const int index = static_cast<int>(entries.size()) - 1;
    if (counting == kNone) {
        counting = index;
    }
    return index;
}

void WBFilterSet::Remove(int index)
{
    entries.erase(entries.begin() + index);
    if (counting == index) {
        counting = kNone;
    } else if (counting > index) {
        --counting;
    }
}

const WBDefinedFilter* WBFilterSet::Counting() const
{
    if (counting == kNone) {
        return nullptr;
    }
    const Entry& entry = entries[static_cast<std::size_t>(counting)];
    return entry.IsDamaged() ? nullptr : &entry.filter;
}

WBFilterSet WBReadFilterSet(const WBStoredFilters& stored)
{
    WBFilterSet set;
    for (const CATUnicodeString& text : stored.filters) {
        if (!text.IsEmpty()) {
            set.entries.push_back(ReadEntry(text));
        }
    }
    if (stored.counting.IsEmpty() || stored.counting == kWBNoFilter) {
        return set;
    }
    // A filter without lines can be kept but does not count: servers have it as none.
    const WBFilterSet::Entry counting = WBIsFilter(stored.counting)
                                            ? ReadEntry(stored.counting)
                                            : WBFilterSet::Entry{{}, stored.counting};
    const auto known = std::ranges::find(set.entries, counting);
    set.counting = static_cast<int>(known - set.entries.begin());
    if (known == set.entries.end()) {
        set.entries.push_back(counting);
    }
    return set;
}

WBStoredFilters WBStoreFilterSet(const WBFilterSet& set)
{
    WBStoredFilters stored;
    for (const WBFilterSet::Entry& entry : set.entries) {
        stored.filters.push_back(TextOf(entry));
    }
    stored.counting = set.counting == WBFilterSet::kNone
                          ? CATUnicodeString(kWBNoFilter)
                          : stored.filters[static_cast<std::size_t>(set.counting)];
    return stored;
}

WBFilterProblem WBProblemOf(const WBFilterSet& set)
{
    int index = 0;
    for (auto entry = set.entries.begin(); entry != set.entries.end(); ++entry, ++index) {
        if (entry->IsDamaged()) {
            continue;
        }
        const CATUnicodeString& name = entry->filter.name;
        if (const CATUnicodeString problem = WBNameProblem(name); !problem.IsEmpty()) {
            return {index, problem};
        }
        const bool isKnown =
            std::any_of(set.entries.begin(), entry, [&](const WBFilterSet::Entry& before) {
                return before.filter.name == name;
            });
        if (isKnown) {
            return {index, WBFilterText("NameTwice.Text",
                                        "@Two filters are called \"/p1\". Give one of them another "
                                        "name.",
                                        {name})};
        }
        if (index == set.counting && entry->filter.lines.empty()) {
            return {index, WBFilterText("NoLines.Text",
                                        "@The filter \"/p1\" is on and has no lines: it would "
                                        "leave out nothing. Pick instances, or switch it off.",
                                        {name})};
        }
    }
    return {};
}

CATUnicodeString WBNameProblem(const CATUnicodeString& name)
{
    if (name.Stripped().IsEmpty()) {
        return WBFilterText("NameEmpty.Text", "@A filter has no name. Type one.");
    }
    if (MeansNone(name)) {
        return WBFilterText("NameMeansNone.Text",
                            "@\"/p1\" is what stands where no filter is on. Choose another name.",
                            {name});
    }
    return WBMayEnterRequests(name)
               ? CATUnicodeString()
               : WBFilterText(
                     "NameRefused.Text",
                     "@\"/p1\" cannot be the name of a filter: a name must not hold \"|\", "
                     "control characters or \"/p2\", nor be \"~\" or \"__null__\".",
                     {name, CATENOWBCSCommonDefinitions::errMsgHeader});
}

CATUnicodeString WBFilterText(const char* key, const char* defaultText,
                              const CATListValCATUnicodeString& parameters)
{
    return CATMsgCatalog::BuildMessage("CATWBVPMNavFilterPanel", key, defaultText, parameters);
}
