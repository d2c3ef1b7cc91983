#include "WBTypedNumber.h"

#include "CATWBServices.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace
{

/// The whole text as one number.
std::optional<double> PlainNumber(std::string_view text, double most)
{
    std::string number = CATUnicodeString(text).Stripped().ToStdString();
    const auto comma = std::ranges::find(number, ',');
    if (comma != number.end()) {
        *comma = '.';
    }
    // A sign "+" is not taken by the reader; two signs are no number.
    const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
    const char* begin = number.data() + (hasPlus ? 1 : 0);
    const char* end = number.data() + number.size();
    double value = 0.0;
    const auto [last, error] = std::from_chars(begin, end, value);
    // Neither infinity nor what is no number is below the bound.
    const bool isNumber = error == std::errc() && last == end && std::abs(value) <= most;
    return isNumber ? std::optional(value) : std::nullopt;
}

/// Two numbers and the operator between them. The service takes a text apart at the first operator
/// and reads what is no number as 0: only where nothing of the kind can happen is it asked.
std::optional<double> Expression(std::string_view text, double most)
{
    const std::size_t position = text.find_first_of("^*/+-");
    if (position == std::string_view::npos || !PlainNumber(text.substr(0, position), most) ||
        !PlainNumber(text.substr(position + 1), most)) {
        return std::nullopt;
    }
    CATUnicodeString result = text;
    CATWBServices::EvaluateSimpleExpression(result);
    return PlainNumber(result.View(), most);
}

} // namespace

std::optional<double> WBReadTypedNumber(const CATUnicodeString& text, double most)
{
    const CATUnicodeString stripped = text.Stripped();
    const std::string_view typed = stripped.View();
    if (const std::optional<double> number = PlainNumber(typed, most)) {
        return number;
    }
    if (!typed.starts_with('-')) {
        return Expression(typed, most);
    }
    // The sign goes with a product, a quotient or a power as a whole, not with a sum.
    const std::string_view unsignedText = typed.substr(1);
    const bool isOfFactors = unsignedText.find_first_of("+-") == std::string_view::npos;
    const std::optional<double> value = isOfFactors ? Expression(unsignedText, most) : std::nullopt;
    return value ? std::optional(-*value) : std::nullopt;
}
