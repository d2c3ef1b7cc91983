#include "WBDates.h"

#include "WBFields.h"

#include "CATDiagnostics.h"
#include "CATStatus.h"

namespace
{

constexpr int kParts = 3;

constexpr const char* kUndecodable = "Could not decode the input text!";
constexpr const char* kTooFewParts = "Invalid date string has been supplied!";
constexpr const char* kBadDateNumbers = "Unable to convert the input YMD text date to numbers!";
constexpr const char* kBadTimeNumbers = "Unable to convert the input HMS text date to numbers!";
constexpr const char* kNoDate = "Could not build a valid CATTime object from numbers!";
constexpr const char* kOtherDate =
    "The date obtained is not the same as the date entered by the user!";
constexpr const char* kNotAssigned = "An error occurred while assigning the newly obtained CATTime "
                                     "object's value to the output object!";

long Refuse(const char* reason)
{
    CATDiagnosticErrors().Line(reason);
    return E_FAIL;
}

struct TypedNumbers
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int second = 0;
};

bool IsDecodable(const CATUnicodeString& text, const WBDateLayout& layout)
{
    return text.Contains(layout.dateDelimiter) &&
           (layout.dateOnly ||
            (text.Contains(layout.timeDelimiter) && text.Contains(layout.dateTimeSeparator)));
}

long ReadTime(const CATUnicodeString& text, const CATUnicodeString& delimiter,
              TypedNumbers& numbers)
{
    const CATListValCATUnicodeString parts = LeadingTokens(text, delimiter);
    if (parts.Size() < kParts) {
        return Refuse(kTooFewParts);
    }
    // The second part goes into the month and the minute stays 0; both are meant.
    if (parts[1].ReadInt(numbers.hour) != 1 || parts[2].ReadInt(numbers.month) != 1 ||
        parts[3].ReadInt(numbers.second) != 1) {
        return Refuse(kBadTimeNumbers);
    }
    return S_OK;
}

long ReadNumbers(const CATUnicodeString& text, const WBDateLayout& layout, TypedNumbers& numbers)
{
    const CATListValCATUnicodeString parts = LeadingTokens(text, layout.dateDelimiter);
    CATDiagnosticOutput().Line("number of tokens: ", parts.Size());
    if (parts.Size() < kParts) {
        return Refuse(kTooFewParts);
    }
    // A place in the whole text, used on the last part as it stands: what is beyond it is the time.
    const int separator = text.Find(layout.dateTimeSeparator);
    const CATUnicodeString day = layout.dateOnly ? parts[3] : parts[3].Part(0, separator);
    if (parts[1].ReadInt(numbers.year) != 1 || parts[2].ReadInt(numbers.month) != 1 ||
        day.ReadInt(numbers.day) != 1) {
        return Refuse(kBadDateNumbers);
    }
    if (layout.dateOnly) {
        return S_OK;
    }
    return ReadTime(parts[3].Part(separator + 1), layout.timeDelimiter, numbers);
}

} // namespace

long ReadTypedDate(const CATUnicodeString& text, const WBDateLayout& layout, CATTime& time)
{
    if (!IsDecodable(text, layout)) {
        return Refuse(kUndecodable);
    }
    TypedNumbers numbers;
    if (ReadNumbers(text, layout, numbers) != S_OK) {
        return E_FAIL;
    }
    const CATTime built(numbers.year, numbers.month, numbers.day, numbers.hour, 0, numbers.second);
    if (!built.IsValid()) {
        return Refuse(kNoDate);
    }
    if (!(built.ToText(layout.format) == text)) {
        return Refuse(kOtherDate);
    }
    return AssignTime(built, time);
}

long AssignTime(const CATTime& from, CATTime& to)
{
    to = from;
    return to.IsValid() ? S_OK : Refuse(kNotAssigned);
}
