#include "WBCriterion.h"

#include "WBGroupTexts.h"
#include "WBPanelUnits.h"

#include "CATCkeGlobalFunctions.h"
#include "CATNumberLocale.h"
#include "CATTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

namespace
{

struct ComparisonRow
{
    WBComparison comparison;
    const char* name;
};
constexpr std::array kNames{
    ComparisonRow{WBComparison::Is, "is"},
    ComparisonRow{WBComparison::IsNot, "is not"},
    ComparisonRow{WBComparison::Contains, "contains"},
    ComparisonRow{WBComparison::BeginsWith, "begins with"},
    ComparisonRow{WBComparison::Equal, "="},
    ComparisonRow{WBComparison::NotEqual, "!="},
    ComparisonRow{WBComparison::Less, "<"},
    ComparisonRow{WBComparison::AtMost, "<="},
    ComparisonRow{WBComparison::Greater, ">"},
    ComparisonRow{WBComparison::AtLeast, ">="},
};

CATICkeMagnitude_var MagnitudeNamed(const CATUnicodeString& name)
{
    return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
}

// Numbers

/// A number at the front of a text, with either decimal separator, and what follows it.
struct LeadingNumber
{
    double value;
    std::string rest;
};
std::optional<LeadingNumber> ReadLeadingNumber(const CATUnicodeString& typed)
{
    std::string text = typed.Stripped().ToStdString();
    const auto comma = std::ranges::find(text, ',');
    if (comma != text.end()) {
        *comma = '.';
    }
    // A sign "+" is not taken by the reader; two signs are no number.
    const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data() + (hasPlus ? 1 : 0), end, value);
    if (error != std::errc() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return LeadingNumber{value, CATUnicodeString(std::string(last, end)).Stripped().ToStdString()};
}

/// With "." whatever the locale, and as many digits as read back alike.
std::string KeptNumber(double value)
{
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end};
}

CATUnicodeString UnitsOf(const CATICkeMagnitude& magnitude)
{
    CATUnicodeString units;
    const CATListValCATUnicodeString symbols = magnitude.UnitSymbols();
    for (const CATUnicodeString& symbol : symbols.Items()) {
        units += (units.IsEmpty() ? "" : ", ") + symbol;
    }
    return units;
}

WBTypedValue NoNumber(const CATUnicodeString& typed, const CATICkeMagnitude_var& magnitude)
{
    if (magnitude.IsNull()) {
        return {{},
                WBGroupText("Value.NoNumber",
                            "@\"/p1\" is no number. Expected a number such as 12.5 or 12,5.",
                            {typed})};
    }
    return {{},
            WBGroupText("Value.NoQuantity",
                        "@\"/p1\" cannot be read. Expected a number, such as 12.5 or 12,5, in /p2, "
                        "or with one of the units /p3.",
                        {typed, magnitude->CurrentUnit()->Symbol(), UnitsOf(*magnitude)})};
}

WBTypedValue ReadTypedNumber(const CATUnicodeString& typed, const CATUnicodeString& magnitudeName)
{
    const CATICkeMagnitude_var magnitude =
        magnitudeName == kWBPlainNumber ? CATICkeMagnitude_var() : MagnitudeNamed(magnitudeName);
    const std::optional<LeadingNumber> number = ReadLeadingNumber(typed);
    if (!number) {
        return NoNumber(typed, magnitude);
    }
    if (magnitude.IsNull()) {
        return number->rest.empty() ? WBTypedValue{KeptNumber(number->value), {}}
                                    : NoNumber(typed, magnitude);
    }
    const CATICkeUnit_var unit =
        number->rest.empty() ? magnitude->CurrentUnit() : magnitude->FindUnit(number->rest);
    if (unit.IsNull() || !std::isfinite(unit->ToStorage(number->value))) {
        return NoNumber(typed, magnitude);
    }
    return {CATUnicodeString(KeptNumber(number->value) + " ") + unit->Symbol(), {}};
}

struct Quantity
{
    double value; // in the unit
    CATICkeUnit_var unit;
};
/// A kept number; its unit is null where it has no magnitude.
std::optional<Quantity> ReadKeptNumber(const CATUnicodeString& value,
                                       const CATUnicodeString& magnitudeName)
{
    const std::string_view text = value.View();
    const std::size_t blank = text.find(' ');
    const std::optional<double> number = WBServerNumber(text.substr(0, blank));
    if (!number) {
        return std::nullopt;
    }
    if (magnitudeName == kWBPlainNumber) {
        return blank == std::string_view::npos ? std::optional(Quantity{*number, {}})
                                               : std::nullopt;
    }
    const CATICkeMagnitude_var magnitude = MagnitudeNamed(magnitudeName);
    if (magnitude.IsNull() || blank == std::string_view::npos) {
        return std::nullopt;
    }
    const CATICkeUnit_var unit = magnitude->FindUnit(text.substr(blank + 1));
    return unit.IsNull() ? std::nullopt : std::optional(Quantity{*number, unit});
}

CATUnicodeString WithSessionSeparator(std::string_view number)
{
    CATUnicodeString text = number;
    text.ReplaceAll(".", CATDecimalSeparator());
    return text;
}

// Dates

/// Three whole numbers with that sign between them; nothing for any other text.
std::optional<std::array<int, 3>> ReadThree(std::string_view text, char sign)
{
    std::array<int, 3> numbers{};
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        const bool isLast = index + 1 == numbers.size();
        const std::size_t length = isLast ? text.size() : text.find(sign);
        if (length == std::string_view::npos || length == 0) {
            return std::nullopt;
        }
        const char* const end = text.data() + length;
        const auto [last, error] = std::from_chars(text.data(), end, numbers[index]);
        if (error != std::errc() || last != end || numbers[index] < 0) {
            return std::nullopt;
        }
        text.remove_prefix(isLast ? length : length + 1);
    }
    return numbers;
}

/// Year, month and day as one number that orders as dates do; 0 where the calendar has no such day.
int DateNumber(int year, int month, int day)
{
    constexpr int kLastYear = 9999;
    constexpr int kYears = 10000;
    constexpr int kMonths = 100;
    const bool isDate = year > 0 && year <= kLastYear && CATTime(year, month, day).IsValid();
    return isDate ? year * kYears + month * kMonths + day : 0;
}

/// A date with the year first; a time of day may follow behind a blank. 0 for any other text.
int ReadDate(std::string_view text)
{
    const std::string_view date = text.substr(0, text.find(' '));
    for (const char sign : {'/', '-'}) {
        if (const auto numbers = ReadThree(date, sign)) {
            return DateNumber((*numbers)[0], (*numbers)[1], (*numbers)[2]);
        }
    }
    return 0;
}

CATUnicodeString KeptDate(int date)
{
    constexpr int kYears = 10000;
    constexpr int kMonths = 100;
    return CATTime(date / kYears, date / kMonths % kMonths, date % kMonths).ToText("%Y/%m/%d");
}

WBTypedValue ReadTypedDate(const CATUnicodeString& typed)
{
    const CATUnicodeString stripped = typed.Stripped();
    int date = stripped.Contains(" ") ? 0 : ReadDate(stripped.View());
    if (const auto numbers = ReadThree(stripped.View(), '.')) {
        date = DateNumber((*numbers)[2], (*numbers)[1], (*numbers)[0]);
    }
    if (date == 0) {
        return {{},
                WBGroupText("Value.NoDate",
                            "@\"/p1\" is no date. Expected year, month and day such as 2026/11/21 "
                            "or 2026-11-21, or 21.11.2026.",
                            {typed})};
    }
    return {KeptDate(date), {}};
}

// Yes and no

constexpr const char* kYes = "yes";
constexpr const char* kNo = "no";

CATUnicodeString YesText()
{
    return WBGroupText("Value.Yes", "@yes");
}

CATUnicodeString NoText()
{
    return WBGroupText("Value.No", "@no");
}

WBTypedValue ReadTypedAnswer(const CATUnicodeString& typed)
{
    const CATUnicodeString stripped = typed.Stripped();
    if (stripped.Compare(kYes) != 0 || stripped.Compare(YesText()) != 0) {
        return {kYes, {}};
    }
    if (stripped.Compare(kNo) != 0 || stripped.Compare(NoText()) != 0) {
        return {kNo, {}};
    }
    return {{},
            WBGroupText("Value.NoAnswer", "@\"/p1\" cannot be read. Expected /p2 or /p3.",
                        {typed, YesText(), NoText()})};
}

// Texts

bool HasAt(const CATUnicodeString& text, int position, const CATUnicodeString& what)
{
    return text.Part(position, what.Length()).Compare(what) != 0;
}

bool HasAnywhere(const CATUnicodeString& text, const CATUnicodeString& what)
{
    for (int position = 0; position + what.Length() <= text.Length(); ++position) {
        if (HasAt(text, position, what)) {
            return true;
        }
    }
    return false;
}

} // namespace

WBValueKind WBKindOf(const CATUnicodeString& magnitude)
{
    if (magnitude.IsEmpty()) {
        return WBValueKind::Text;
    }
    if (magnitude == kWBDate) {
        return WBValueKind::Date;
    }
    return magnitude == kWBYesNo ? WBValueKind::YesNo : WBValueKind::Number;
}

const std::vector<WBComparison>& WBComparisonsOf(WBValueKind kind)
{
    static const std::vector<WBComparison> kTexts{WBComparison::Is, WBComparison::IsNot,
                                                  WBComparison::Contains, WBComparison::BeginsWith};
    static const std::vector<WBComparison> kOrdered{WBComparison::Equal,   WBComparison::NotEqual,
                                                    WBComparison::Less,    WBComparison::AtMost,
                                                    WBComparison::Greater, WBComparison::AtLeast};
    static const std::vector<WBComparison> kAnswers{WBComparison::Is, WBComparison::IsNot};
    switch (kind) {
    case WBValueKind::Text:
        return kTexts;
    case WBValueKind::YesNo:
        return kAnswers;
    case WBValueKind::Number:
    case WBValueKind::Date:
        break;
    }
    return kOrdered;
}

const char* WBComparisonName(WBComparison comparison)
{
    return kNames[static_cast<std::size_t>(comparison)].name;
}

std::optional<WBComparison> WBComparisonNamed(WBValueKind kind, const CATUnicodeString& name)
{
    for (const WBComparison comparison : WBComparisonsOf(kind)) {
        if (name == WBComparisonName(comparison)) {
            return comparison;
        }
    }
    return std::nullopt;
}

WBTypedValue WBReadTypedValue(const CATUnicodeString& typed, const CATUnicodeString& magnitude)
{
    if (typed.Stripped().IsEmpty()) {
        return {{}, WBGroupText("Value.Empty", "@There is no value. Type one.")};
    }
    switch (WBKindOf(magnitude)) {
    case WBValueKind::Text:
        return {typed.Stripped(), {}};
    case WBValueKind::Date:
        return ReadTypedDate(typed);
    case WBValueKind::YesNo:
        return ReadTypedAnswer(typed);
    case WBValueKind::Number:
        break;
    }
    return ReadTypedNumber(typed, magnitude);
}

CATUnicodeString WBShownValue(const WBCriterion& criterion)
{
    switch (WBKindOf(criterion.magnitude)) {
    case WBValueKind::YesNo:
        return criterion.value == kYes ? YesText() : NoText();
    case WBValueKind::Number: {
        const std::string_view text = criterion.value.View();
        const std::size_t blank = std::min(text.find(' '), text.size());
        return WithSessionSeparator(text.substr(0, blank)) + text.substr(blank);
    }
    case WBValueKind::Text:
    case WBValueKind::Date:
        break;
    }
    return criterion.value;
}

CATUnicodeString WBTypedForm(std::string_view attributeText, const CATUnicodeString& magnitude)
{
    switch (WBKindOf(magnitude)) {
    case WBValueKind::Number: {
        const std::optional<double> number = WBServerNumber(attributeText);
        if (!number) {
            return {};
        }
        return magnitude == kWBPlainNumber ? WithSessionSeparator(KeptNumber(*number))
                                           : WBValueWithUnit(magnitude, *number);
    }
    case WBValueKind::Date: {
        const int date = ReadDate(attributeText);
        return date == 0 ? CATUnicodeString() : KeptDate(date);
    }
    case WBValueKind::YesNo:
        if (attributeText == kYes || attributeText == kNo) {
            return attributeText == kYes ? YesText() : NoText();
        }
        return {};
    case WBValueKind::Text:
        break;
    }
    return attributeText;
}

bool WBIsReadable(const WBCriterion& criterion)
{
    const WBValueKind kind = WBKindOf(criterion.magnitude);
    const auto& comparisons = WBComparisonsOf(kind);
    if (criterion.attribute.IsEmpty() || criterion.value.IsEmpty() ||
        std::ranges::find(comparisons, criterion.comparison) == comparisons.end()) {
        return false;
    }
    switch (kind) {
    case WBValueKind::Number:
        return ReadKeptNumber(criterion.value, criterion.magnitude).has_value();
    case WBValueKind::Date:
        return ReadDate(criterion.value.View()) != 0;
    case WBValueKind::YesNo:
        return criterion.value == kYes || criterion.value == kNo;
    case WBValueKind::Text:
        break;
    }
    return true;
}

WBCriterionTest::WBCriterionTest(const WBCriterion& criterion)
    : m_comparison(criterion.comparison),
      m_kind(WBKindOf(criterion.magnitude)),
      m_text(criterion.value)
{
    if (m_kind == WBValueKind::Date) {
        m_date = ReadDate(criterion.value.View());
    }
    if (m_kind != WBValueKind::Number) {
        return;
    }
    if (const auto quantity = ReadKeptNumber(criterion.value, criterion.magnitude)) {
        m_unit = quantity->unit;
        m_number = m_unit.IsNull() ? quantity->value : m_unit->ToStorage(quantity->value);
        m_shown = WBNumberInUnit(m_unit, m_number);
    }
}

bool WBCriterionTest::Meets(std::string_view text) const
{
    switch (m_kind) {
    case WBValueKind::Number: {
        const std::optional<double> number = WBServerNumber(text);
        return number && MeetsAsNumber(*number);
    }
    case WBValueKind::Date: {
        const int date = ReadDate(text);
        return date != 0 && MeetsByOrder(date < m_date ? -1 : (date > m_date ? 1 : 0));
    }
    case WBValueKind::YesNo:
        if (text != kYes && text != kNo) {
            return false;
        }
        break;
    case WBValueKind::Text:
        break;
    }
    return MeetsAsText(text);
}

bool WBCriterionTest::MeetsAsText(std::string_view text) const
{
    const CATUnicodeString value = text;
    switch (m_comparison) {
    case WBComparison::IsNot:
        return value.Compare(m_text) == 0;
    case WBComparison::Contains:
        return HasAnywhere(value, m_text);
    case WBComparison::BeginsWith:
        return HasAt(value, 0, m_text);
    default:
        return value.Compare(m_text) != 0;
    }
}

bool WBCriterionTest::MeetsAsNumber(double value) const
{
    if (value == m_number || WBNumberInUnit(m_unit, value) == m_shown) {
        return MeetsByOrder(0);
    }
    return MeetsByOrder(value < m_number ? -1 : 1);
}

bool WBCriterionTest::MeetsByOrder(int order) const
{
    switch (m_comparison) {
    case WBComparison::NotEqual:
        return order != 0;
    case WBComparison::Less:
        return order < 0;
    case WBComparison::AtMost:
        return order <= 0;
    case WBComparison::Greater:
        return order > 0;
    case WBComparison::AtLeast:
        return order >= 0;
    default:
        return order == 0;
    }
}
