#pragma once

#include "WBFilterSet.h"

/// Where the filters of the roots are kept between sessions: the settings repository
/// "CATWBVPMNavFilterPanel". "<root>.Filter" holds the one that counts, "0|No Filter" where none
/// does; "<root>.Filters" holds all that the user has defined, so that one that is switched off is
/// still there.

/// The filters of a root as they are kept. A setting of another kind than expected is read as text,
/// and so comes back as a damaged one.
WBFilterSet WBKeptFilters(const CATUnicodeString& rootIdentifier);
/// Writes the set in their place, to disk. Only settings that change are written: a damaged text
/// stays as it is until it is taken out of the set. False when the file could not be written; then
/// what was kept before still counts.
bool WBKeepFilters(const CATUnicodeString& rootIdentifier, const WBFilterSet& set);

/// Whether the filter that counts for the root leaves a picked instance in, or at least something
/// below it; true without a filter, false for a pick that cannot be read. The arguments are those
/// of a pick: `count` instance names from the parent up to just below the root, joined by "|".
bool WBIsValidInFilter(const CATUnicodeString& rootIdentifier, const CATUnicodeString& instance,
                       const CATUnicodeString& part, const CATUnicodeString& version, int count,
                       const CATUnicodeString& path);
