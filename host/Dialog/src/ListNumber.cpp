#include "ListNumber.h"

#include "CATNumberLocale.h"

namespace
{

bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

bool MayBegin(char letter, std::string_view text, std::string_view separator)
{
    return IsDigit(letter) || letter == '+' || letter == '-' || text.starts_with(separator);
}

} // namespace

std::optional<double> NumberOf(std::string_view text)
{
    if (text.empty()) {
        return std::nullopt;
    }
    const std::string_view separator = CATDecimalSeparator();
    double value = 0.0;
    // What is not equal to itself has no place in an order.
    if (!MayBegin(text.front(), text, separator) || CATReadReal(text, separator, value) != 1 ||
        value != value) {
        return std::nullopt;
    }
    return value;
}

bool BeginsWithNumber(std::string_view text)
{
    const std::size_t first = !text.empty() && (text.front() == '-' || text.front() == '+') ? 1 : 0;
    // A digit is a number, unless it is the 0 of a hexadecimal one, of which there must be more.
    const bool isPlain = first < text.size() && IsDigit(text[first]) &&
                         (first + 1 == text.size() || (text[first + 1] | 0x20) != 'x');
    return isPlain || NumberOf(text).has_value();
}
