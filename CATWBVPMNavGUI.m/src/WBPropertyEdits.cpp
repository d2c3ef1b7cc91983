#include "WBPropertyEdits.h"

#include "WBCriterion.h"
#include "WBEditTexts.h"
#include "WBPanelTexts.h"
#include "WBPanelUnits.h"
#include "WBQuantityTexts.h"
#include "WBTypedQuantity.h"

#include "CATTime.h"
#include "CATWBServices.h"

#include <algorithm>
#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr int kInteger = 2;
constexpr int kReal = 3;
constexpr int kYesNo = 4;
constexpr int kQuantity = 100;
/// How dates travel.
constexpr const char* kTravellingDate = "%Y/%m/%d";

WBTypedPiece Wrong(const WBEditMessage& message, const CATListValCATUnicodeString& parameters)
{
    return {{}, WBEditText(message, parameters)};
}

std::optional<CATTime> DateOf(const CATUnicodeString& text, const CATUnicodeString& format)
{
    CATTime date;
    const long status = CATWBServices::GetDateFromText(
        text, format, " ", Definitions::dateYMDFieldDelimiter1, ":", true, date);
    return status == S_OK ? std::optional(date) : std::nullopt;
}

/// "2026-11-21" and "21.11.2026", as criteria of groups take them too. A year of fewer than four
/// digits is a slip.
std::optional<CATTime> DateWithOtherSigns(const CATUnicodeString& text)
{
    if (text.Contains(Definitions::dateYMDFieldDelimiter1)) {
        return std::nullopt; // what the record's format does not read may be meant otherwise
    }
    const CATUnicodeString date = WBReadTypedValue(text, kWBDate).value;
    return date.View().starts_with('0') ? std::nullopt : DateOf(date, kTravellingDate);
}

WBTypedPiece ReadDate(const CATUnicodeString& text, const CATUnicodeString& format)
{
    std::optional<CATTime> date = DateOf(text, format);
    if (!date) {
        date = DateWithOtherSigns(text);
    }
    if (!date) {
        const CATTime example(2026, 7, 1);
        return Wrong({"NotRead.Date", "@\"/p1\" is no date; expected one like /p2."},
                     {text, example.ToText(format)});
    }
    return {date->ToText(kTravellingDate), {}};
}

WBTypedPiece ReadInteger(const CATUnicodeString& text)
{
    constexpr double kMostDigits = 1e15; // beyond them whole numbers are not told apart
    const std::optional<double> number = WBReadTypedQuantity(text, {});
    if (!number || std::trunc(*number) != *number || std::fabs(*number) >= kMostDigits) {
        return Wrong({"NotRead.Integer", "@\"/p1\" is no whole number; expected one like 12."},
                     {text});
    }
    return {WBPieceOf(*number), {}};
}

WBTypedPiece ReadReal(const CATUnicodeString& text, const CATUnicodeString& magnitude)
{
    if (const std::optional<double> number = WBReadTypedQuantity(text, magnitude)) {
        return {WBPieceOf(*number), {}};
    }
    const CATUnicodeString symbol = WBUnitSymbol(magnitude);
    const CATUnicodeString example = CATUnicodeString::FromReal(12.5);
    if (symbol.IsEmpty()) {
        return Wrong({"NotRead.Number", "@\"/p1\" is no number; expected one like /p2."},
                     {text, example});
    }
    return Wrong({"NotRead.Quantity", "@\"/p1\" is no value in /p2; expected a number like /p3."},
                 {text, symbol, example + " " + symbol});
}

// Streams hold texts as they are, so what means something in a stream cannot travel.
WBTypedPiece ReadText(const CATUnicodeString& text)
{
    const bool hasControl = std::ranges::any_of(
        text.View(), [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7f'; });
    if (hasControl || text.Contains("|") || text.Contains(Definitions::errMsgHeader) ||
        text == "__null__" || text == "~") {
        return Wrong({"NotRead.Text", "@\"/p1\" cannot be stored: it is, or holds, a text with a "
                                      "meaning of its own, such as |."},
                     {text});
    }
    return {text, {}};
}

} // namespace

CATUnicodeString WBShownProperty(const WBPanelProperty& property,
                                 const CATUnicodeString& dateFormat, const CATUnicodeString& value)
{
    const std::optional<double> number =
        property.type == kQuantity ? WBNumberOf(value) : std::nullopt;
    if (number) {
        return WBValueWithUnit(property.magnitude, *number);
    }
    WBPanelProperty other = property;
    other.value = value;
    return WBPropertyText(other, dateFormat);
}

WBTypedPiece WBReadTypedProperty(const WBPanelProperty& property,
                                 const CATUnicodeString& dateFormat, const CATUnicodeString& text)
{
    if (property.isDate) {
        return ReadDate(text, dateFormat);
    }
    switch (property.type) {
    case kInteger:
        return ReadInteger(text);
    case kReal:
        return ReadReal(text, {});
    case kQuantity:
        return ReadReal(text, property.magnitude);
    default:
        return ReadText(text);
    }
}

bool WBIsYesOrNo(const WBPanelProperty& property)
{
    return property.type == kYesNo && !property.isDate;
}

bool WBIsNumeric(const WBPanelProperty& property)
{
    return !property.isDate &&
           (property.type == kInteger || property.type == kReal || property.type == kQuantity);
}
