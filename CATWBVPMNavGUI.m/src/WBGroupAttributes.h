#pragma once

#include "WBCriterion.h"

#include <vector>

/// An attribute that criteria can ask about.
struct WBGroupAttribute
{
    CATUnicodeString name;      ///< as the report has it
    CATUnicodeString title;     ///< as users read it; a property is called what it is named
    CATUnicodeString magnitude; ///< as a criterion keeps it

    friend bool operator==(const WBGroupAttribute&, const WBGroupAttribute&) = default;
};

/// What can be asked about: first what every product has, then the properties that instances of
/// this one have, in the order in which they first appear. A report does not tell of what kind a
/// property is; one is a date, yes or no, or a number when all its values are.
std::vector<WBGroupAttribute> WBGroupAttributes(const WBGroupFigures& figures);

/// What an instance has to say to an attribute: nothing when it lacks it, several texts where it is
/// made of several materials. Of a magnitude only what is stated in it.
std::vector<std::string_view> WBAttributeTexts(const WBGroupFigures& figures, int row,
                                               const CATUnicodeString& attribute,
                                               const CATUnicodeString& magnitude);

enum class WBJoined
{
    And, ///< an instance matches when it meets all criteria
    Or   ///< when it meets one of them
};
/// The rows of the instances that match, in the order of the report; no row without a criterion. An
/// instance that lacks the attribute does not meet a criterion, also not one that says what the
/// value is not: what nobody knows is not taken for known. Of several materials one is enough;
/// "is not" asks it of all of them.
std::vector<int> WBMatchingRows(const WBGroupFigures& figures,
                                const std::vector<WBCriterion>& criteria, WBJoined joined);
