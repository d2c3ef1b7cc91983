#pragma once

#include "CATTime.h"
#include "CATUnicodeString.h"

/// How a typed date is written.
struct WBDateLayout
{
    CATUnicodeString format; ///< the conversion codes that write the date back
    CATUnicodeString dateTimeSeparator;
    CATUnicodeString dateDelimiter;
    CATUnicodeString timeDelimiter;
    bool dateOnly;
};

/// Reads a date as it was typed; S_OK, or E_FAIL with the reason on the diagnostic error stream and
/// `time` untouched.
///
/// The time of day is read oddly, and users have dates refused for it: the place of the separator
/// is counted in the whole text but applied to what follows the second date delimiter, the second
/// typed part of the time is taken for the month, and the minute is always 0. Since the date must
/// write back as typed, a time passes only where that reading agrees with it.
long ReadTypedDate(const CATUnicodeString& text, const WBDateLayout& layout, CATTime& time);

/// Hands a date over; E_FAIL, said on the diagnostic error stream, when what arrived is no date.
long AssignTime(const CATTime& from, CATTime& to);
