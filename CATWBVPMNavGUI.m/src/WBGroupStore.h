#pragma once

#include "CATCollections.h"

#include <optional>
#include <vector>

/// The groups that the user keeps from one session to the next, by root, kind and name.

enum class WBGroupKind
{
    Instances,
    Criteria
};

/// A group as it is kept.
struct WBStoredGroup
{
    CATUnicodeString joined; ///< of criteria how they are combined; empty for instances
    /// Lists of equal length: five of instances, four of criteria.
    std::vector<CATListValCATUnicodeString> lists;

    friend bool operator==(const WBStoredGroup&, const WBStoredGroup&) = default;
};

struct WBStoredNames
{
    std::vector<CATUnicodeString> names; ///< in the order in which they were first saved
    /// The list of names cannot be read; these are the groups that are there all the same.
    bool isDamaged = false;
};
WBStoredNames WBStoredGroupNames(WBGroupKind kind, const CATUnicodeString& root);

/// Whether saving under that name would take something away: a group that holds anything, also a
/// damaged one and one that the list of names lacks, or an empty one that the list has.
bool WBIsGroupStored(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name);
/// Nothing when there is no such group or it is damaged: items are missing, too many, or not texts.
std::optional<WBStoredGroup> WBReadStoredGroup(WBGroupKind kind, const CATUnicodeString& root,
                                               const CATUnicodeString& name);
/// Saves the group in place of one of that name, on disk, all of it or nothing: false when the
/// user's settings cannot be written; what was stored stands as before then.
bool WBSaveGroup(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name,
                 const WBStoredGroup& group);
/// Takes a group out of the store, likewise.
bool WBDeleteGroup(WBGroupKind kind, const CATUnicodeString& root, const CATUnicodeString& name);

/// What is wrong with a name, as a sentence; empty for a good one. A "." separates root and name in
/// the settings, so no name holds one.
CATUnicodeString WBGroupNameProblem(const CATUnicodeString& name);
