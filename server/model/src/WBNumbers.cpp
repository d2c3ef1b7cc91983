#include "WBNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace wb
{
namespace
{
/// from_chars knows no leading "+"; "+-1" must not become a number by dropping it.
std::string_view WithoutPlus(std::string_view text)
{
    const bool plusBeforeDigit = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plusBeforeDigit ? text.substr(1) : text;
}
} // namespace

std::optional<double> ReadNumber(std::string_view text)
{
    constexpr std::size_t kLongest = 400;
    text = WithoutPlus(text);
    if (text.empty() || text.size() > kLongest) {
        return std::nullopt;
    }
    std::string withPoint;
    if (text.find(',') != std::string_view::npos) {
        withPoint = text;
        std::ranges::replace(withPoint, ',', '.');
        text = withPoint;
    }
    const char* end = text.data() + text.size();
    double value = 0.0;
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<long long> ReadInteger(std::string_view text)
{
    text = WithoutPlus(text);
    long long value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::string WriteNumber(double value)
{
    std::string text;
    AppendNumber(text, value);
    return text;
}

std::string WriteShortest(double value)
{
    std::array<char, 40> digits{};
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value == 0.0 ? 0.0 : value);
    return {digits.data(), end};
}

bool AreAlike(double left, double right)
{
    return left == right || WriteNumber(left) == WriteNumber(right);
}

void AppendNumber(std::string& text, double value)
{
    constexpr int kDigits = 15;
    if (value == 0.0 || !std::isfinite(value)) {
        text += '0';
        return;
    }
    std::array<char, 40> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::general, kDigits);
    text.append(digits.data(), end);
}
} // namespace wb
