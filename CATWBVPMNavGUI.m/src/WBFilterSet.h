#pragma once

#include "CATCollections.h"
#include "WBDefinedFilter.h"

/// The filters of one root: what the user has defined, which of them counts, and stored texts that
/// are no filters, which stay as they are until the user takes them out.
struct WBFilterSet
{
    struct Entry
    {
        WBDefinedFilter filter;
        CATUnicodeString damaged; ///< a stored text that is no filter; then there is none

        bool IsDamaged() const { return !damaged.IsEmpty(); }
        friend bool operator==(const Entry&, const Entry&) = default;
    };
    static constexpr int kNone = -1;

    std::vector<Entry> entries;
    /// Index of the one that is stored as the one that counts. It may be a damaged one: then none
    /// counts, and the text stays where it is.
    int counting = kNone;

    friend bool operator==(const WBFilterSet&, const WBFilterSet&) = default;

    /// Appends a filter without lines, called by the first name of the pattern "Filter /p1" that is
    /// free; it counts when none does. Answers its index.
    int Add(const std::function<CATUnicodeString(int number)>& nameOfNumber);
    void Remove(int index);
    /// The one that counts, as servers see it; null for none.
    const WBDefinedFilter* Counting() const;
};

/// How a root's filters stand in the settings.
struct WBStoredFilters
{
    CATUnicodeString counting;             ///< as servers take it; "0|No Filter" for none
    std::vector<CATUnicodeString> filters; ///< all of them, the one that counts too
};
WBFilterSet WBReadFilterSet(const WBStoredFilters& stored);
WBStoredFilters WBStoreFilterSet(const WBFilterSet& set);

/// What keeps a set of filters from being kept.
struct WBFilterProblem
{
    int index = WBFilterSet::kNone; ///< whose it is; none: there is no problem
    CATUnicodeString sentence;
};
WBFilterProblem WBProblemOf(const WBFilterSet& set);
/// Why a filter must not be called so; empty: it may.
CATUnicodeString WBNameProblem(const CATUnicodeString& name);

/// The filter panel's message `key`, `defaultText` where no catalog has it; "/p1", ... are
/// replaced.
CATUnicodeString WBFilterText(const char* key, const char* defaultText,
                              const CATListValCATUnicodeString& parameters = {});
