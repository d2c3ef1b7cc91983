#pragma once

#include "CATUnicodeString.h"

#include <optional>
#include <vector>

class CATWBAllDataBuffer;

/// What somebody stated about a part and, where one was picked, about its use: what the record
/// leaves open, since its figures may be lent, computed, or those of the part below the use's own.

/// One quantity of an owner: what is changed, and saved by others, as a whole. Texts are those of
/// the wire: numbers with "." in storage units, several joined by ";", empty where nothing is
/// stated.
struct WBStatedQuantity
{
    CATUnicodeString owner;    ///< CATENOWBCSCommonDefinitions::partRef or partInst
    CATUnicodeString massType; ///< empty: of the owner itself
    CATUnicodeString name;     ///< "mass", "centre", "density", "property CUSTOMER", ...
    CATUnicodeString text;     ///< as this user sees it, his unsaved changes included
    CATUnicodeString stored;   ///< as it is saved
    bool isPending = false;    ///< this user changed it and has not saved
    bool isInConflict = false; ///< somebody else saved it after this user had seen it
    CATUnicodeString by;       ///< who did
    CATUnicodeString at;
};

struct WBStatedValues
{
    CATUnicodeString partName; ///< as people say it
    bool isLeaf = false;
    bool isStandardPart = false;
    long long places = 0;                    ///< how often the part stands in the product
    long long otherRoots = 0;                ///< how many other products hold it
    std::vector<CATUnicodeString> materials; ///< those that the database knows
    bool hasOwnSets = false;                 ///< the use has values of its own
    /// 0 while this user has no unsaved changes; else differs after each change of them.
    long long pendingNumber = 0;
    std::vector<CATUnicodeString> goals; ///< mass types that can never be active
    std::vector<WBStatedQuantity> quantities;

    /// Null where the server said nothing about it.
    const WBStatedQuantity* Find(const CATUnicodeString& owner, const CATUnicodeString& massType,
                                 const CATUnicodeString& name) const;
    /// The same of whichever owner it is stated for: a use's own value goes before its part's, and
    /// the server names the one that counts.
    const WBStatedQuantity* Find(const CATUnicodeString& massType,
                                 const CATUnicodeString& name) const;
};

/// Reads an answer of "WBGetStatedValues". Nothing for a text that is not exactly what its counts
/// announce: what is shown as stated must be.
std::optional<WBStatedValues> WBReadStatedValues(const CATUnicodeString& answer);

/// How requests name what was picked: whether the PDM knows the instance, the instance, part,
/// version, the number of path names and these from the parent up, the product root; every field
/// followed by "|".
CATUnicodeString WBPlaceOf(const CATWBAllDataBuffer& record);

/// Asks the server. An answer that does not come, or that cannot be read, is told on the diagnostic
/// error stream; then nothing is stated, so that nothing can be edited.
WBStatedValues WBAskStatedValues(const CATWBAllDataBuffer& record);
