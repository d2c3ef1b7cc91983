#pragma once

#include "CATUnicodeString.h"

#include <optional>

class CATDialog;

/// What every panel does with the server's answers: boxes of the window that asked tell what went
/// wrong.

/// An answer's text; nothing, after a box, when it is an error text or there is no answer.
/// `noAnswer` says to the user what was not done.
std::optional<CATUnicodeString> WBCheckedAnswer(CATDialog* window, const CATUnicodeString& answer,
                                                const CATUnicodeString& noAnswer);

/// Tells that an answer is damaged and that nothing was taken from it.
void WBTellUnreadable(CATDialog* window);

struct WBWarningTitles
{
    CATUnicodeString warnings;
    CATUnicodeString errors; ///< where a line of the warning says that there is no result
};
/// Shows a pending warning of the server, at most its first paragraphs; an empty one not at all.
void WBShowWarning(CATDialog* window, const CATUnicodeString& warning,
                   const WBWarningTitles& titles);
