#pragma once

#include "CATUnicodeString.h"

/// What the main panel says about edits, in the user's language.

/// How things stand with what is edited.
struct WBEditCounts
{
    int edits = 0;     ///< made here and not applied
    int problems = 0;  ///< fields that hold what cannot be taken
    int unsaved = 0;   ///< quantities of the shown part that are applied and not saved
    int conflicts = 0; ///< those of them that somebody else has saved since
    bool isStandardPart = false;
    bool isAnythingStated = true; ///< else the server does not tell what can be edited
};

/// The line beside the buttons, each fact with the sign that such fields carry; empty where there
/// is nothing to say.
CATUnicodeString WBEditWords(const WBEditCounts& counts);

/// "1 edit is not applied." and the like.
CATUnicodeString WBUnappliedWords(int edits);
