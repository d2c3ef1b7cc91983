#pragma once

#include "CATCollections.h"
#include "CATStatus.h"
#include "CATString.h"
#include "CATTime.h"
#include "CATUnicodeString.h"
#include "WBExport.h"

class CATDialog;

/// What the commands, panels and previews share: operations on texts, numbers, dates, settings and
/// messages. Nothing here keeps a state. Statuses are S_OK, E_FAIL with the outputs untouched
/// unless something else is said. Failures are told to the diagnostic streams; only the operations
/// that say so speak to the user.
class WB_EXPORT CATWBServices
{
public:
    CATWBServices() = delete;

    // Fields of "|"-separated texts

    /// Field number `n` (from 0) as an integer. Every "|" ends a field, so an empty field is one. A
    /// negative number means the first field. E_FAIL when there is no such field or it is no
    /// integer.
    static long FindOccurenceOfDelim(CATUnicodeString text, int n, int& value);
    /// Token number `n` (from 0) as a text. Only the tokens before the first empty one count, which
    /// is not how the integer form counts. E_FAIL, with a diagnostic line, when there are not that
    /// many or `n` is negative.
    static long FindOccurenceOfDelim(CATUnicodeString text, int n, CATUnicodeString& token);
    /// The tokens before the first empty one, appended to the list, and their number.
    static void StringTokenizer(const CATUnicodeString& text, const CATUnicodeString& delimiter,
                                CATListValCATUnicodeString& tokens, int& count);

    // Numbers

    /// Reads a real with either decimal separator: 1 and the value, or 0 and the value 0.
    static int ConvertToDouble(const CATUnicodeString& text, double& value);
    /// Makes the text's decimal separator the one that the session writes.
    static void SynchronizeDoubleString(CATUnicodeString& text);
    /// Brings a value back from what the user sees: converts it by the magnitude's storage unit and
    /// then by its current one; of "LENGTH" (in any letter case) the result is also multiplied by
    /// 1e6. E_FAIL when the magnitude or one of the two units is missing.
    static long RestoreValue(CATUnicodeString magnitude, double& value);
    /// Replaces a text such as "2^10" or "12.5/4" by its result ("1024", "3.125"); powers,
    /// products, quotients, sums and differences of two numbers. A text with none of the five
    /// operators, or with two different ones, stays as it is.
    static void EvaluateSimpleExpression(CATUnicodeString& text);

    // Dates

    /// Reads a typed date: year, month and day with `dateDelimiter` between them, and unless
    /// `dateOnly` is set the time with `timeDelimiter` behind `dateTimeSeparator`. The date is
    /// taken only when `format` (see CATTime::ToText) writes it exactly as it was typed. E_FAIL
    /// otherwise, with the reason on the diagnostic error stream. A typed time is read in a way
    /// that refuses nearly all of them; see WBDates.h.
    static long GetDateFromText(const CATUnicodeString& text, const CATUnicodeString& format,
                                const CATUnicodeString& dateTimeSeparator,
                                const CATUnicodeString& dateDelimiter,
                                const CATUnicodeString& timeDelimiter, bool dateOnly,
                                CATTime& time);

    // Texts for people

    /// A server's warning, at most its first nine paragraphs and its error when it is longer than
    /// 1000 characters.
    static void CleanWarningForDisplay(const CATUnicodeString& warning, CATUnicodeString& shown);
    /// Appends the path's elements in reverse order, each after a "|": A|B|C appends |C|B|A. Stops
    /// at the first empty element.
    static void CleanPathForDisplay(const CATUnicodeString& path, CATUnicodeString& shown);

    // Settings and messages

    /// Whether the navigator's option of stable ordering is on. The message is empty, or says to
    /// the user why the option could not be read; the answer is then false.
    static bool IsStableOrderUsed(CATUnicodeString& message);
    /// Asks the user, in a blocking box, whether to go on when no filter is defined for the root.
    /// False when the user refuses; true in every other case, without a parent too.
    static bool ValidateFilterCondition(CATDialog* parent, const CATUnicodeString& rootIdentifier);
    /// Shows a message box and goes on; the box deletes itself when it is closed. Without a parent
    /// there is only a diagnostic line.
    static void DisplayMsg(CATDialog* parent, const CATString& name, const CATUnicodeString& text,
                           int style);
    /// The server's pending warning; the empty text when there is none or the server does not
    /// answer.
    static void GetWarningMsgFromEnovia(CATUnicodeString& message);
};
