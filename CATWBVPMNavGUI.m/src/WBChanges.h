#pragma once

#include "WBPanelTexts.h"

#include "CATPendingChanges.h"

#include <optional>
#include <vector>

/// What was changed: by the user and not saved yet, anywhere; and by everybody, of one part and its
/// place.

/// Its texts are those of the wire: numbers in storage units, pieces with ";" between.
struct WBSavedChange
{
    CATUnicodeString when;
    CATUnicodeString who;
    CATUnicodeString what; ///< "import", "save", ...
    CATUnicodeString file;
    CATUnicodeString subject;
    CATUnicodeString fact;
    CATUnicodeString before;
    CATUnicodeString after;
};

/// Read the answers of "WBPendingChanges" and "WBHistory"; nothing for one that is not exactly what
/// its count announces.
std::optional<std::vector<CATPendingChange>> WBReadPendingChanges(const CATUnicodeString& answer);
std::optional<std::vector<WBSavedChange>> WBReadHistory(const CATUnicodeString& answer);

WBPanelTable WBPendingTable(const std::vector<CATPendingChange>& changes);
WBPanelTable WBHistoryTable(const std::vector<WBSavedChange>& changes);
/// How many changes wait, and that some cannot be saved.
CATUnicodeString WBPendingWords(const std::vector<CATPendingChange>& changes);

/// What a change is about, in the user's language: "part WING A".
CATUnicodeString WBSubjectText(const CATUnicodeString& subject);
/// A fact in the user's language: "Weighed: mass".
CATUnicodeString WBFactText(const CATUnicodeString& fact);
/// A value of such a fact in the user's units; a dash where there was none.
CATUnicodeString WBChangedText(const CATUnicodeString& fact, const CATUnicodeString& text);
