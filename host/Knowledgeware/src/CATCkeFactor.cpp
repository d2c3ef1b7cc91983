#include "CATCkeFactor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace
{

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Digits, with at most one "." between digits.
bool IsPlainDecimal(std::string_view text)
{
    return !text.empty() && IsDigit(text.front()) && IsDigit(text.back()) &&
           std::ranges::count(text, '.') <= 1 &&
           std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.'; });
}

std::string_view WithoutBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A product of fractions in lowest terms, as long as 64 bits hold it.
class Fraction
{
public:
    void Multiply(std::uint64_t above, std::uint64_t below)
    {
        m_exact = m_exact && MultiplySide(m_above, m_below, above) &&
                  MultiplySide(m_below, m_above, below);
    }
    void Fail() { m_exact = false; }

    /// The sides as doubles; null when they are not whole numbers that doubles hold.
    std::optional<CATCkeFactor> AsFactor() const
    {
        if (!m_exact || std::max(m_above, m_below) > kLargestWholeDouble) {
            return std::nullopt;
        }
        return CATCkeFactor{static_cast<double>(m_above), static_cast<double>(m_below)};
    }

private:
    static constexpr std::uint64_t kLargestWholeDouble = std::uint64_t{1} << 53U;

    static bool MultiplySide(std::uint64_t& side, std::uint64_t& other, std::uint64_t by)
    {
        const std::uint64_t common = std::gcd(other, by);
        other /= common;
        return !__builtin_mul_overflow(side, by / common, &side);
    }

    std::uint64_t m_above = 1;
    std::uint64_t m_below = 1;
    bool m_exact = true;
};

/// A decimal as digits over a power of ten; null when 64 bits do not hold both.
std::optional<std::pair<std::uint64_t, std::uint64_t>> WholeAndPower(std::string_view decimal)
{
    std::uint64_t digits = 0;
    std::uint64_t power = 1;
    bool behindPoint = false;
    for (const char character : decimal) {
        if (character == '.') {
            behindPoint = true;
            continue;
        }
        if (__builtin_mul_overflow(digits, std::uint64_t{10}, &digits) ||
            __builtin_add_overflow(digits, static_cast<std::uint64_t>(character - '0'), &digits) ||
            (behindPoint && __builtin_mul_overflow(power, std::uint64_t{10}, &power))) {
            return std::nullopt;
        }
    }
    return std::pair(digits, power);
}

/// Multiplies the decimals of one side into both forms; false when one of them is none or is zero.
bool ReadSide(std::string_view text, bool divides, double& product, Fraction& fraction)
{
    for (;;) {
        const std::size_t star = text.find('*');
        const std::string_view item = WithoutBlanks(text.substr(0, star));
        const std::optional<double> value = CATCkeReadDecimal(item);
        if (!value || *value <= 0.0) {
            return false;
        }
        product *= *value;
        if (const auto whole = WholeAndPower(item)) {
            fraction.Multiply(divides ? whole->second : whole->first,
                              divides ? whole->first : whole->second);
        } else {
            fraction.Fail();
        }
        if (star == std::string_view::npos) {
            return true;
        }
        text.remove_prefix(star + 1);
    }
}

bool IsUsable(double side)
{
    return std::isnormal(side);
}

} // namespace

std::optional<CATCkeFactor> CATCkeReadFactor(std::string_view text)
{
    const std::size_t slash = text.find('/');
    CATCkeFactor rounded;
    Fraction fraction;
    if (!ReadSide(text.substr(0, slash), false, rounded.numerator, fraction)) {
        return std::nullopt;
    }
    if (slash != std::string_view::npos &&
        !ReadSide(text.substr(slash + 1), true, rounded.denominator, fraction)) {
        return std::nullopt;
    }
    if (const std::optional<CATCkeFactor> exact = fraction.AsFactor()) {
        return exact;
    }
    // Pi, and products with too many digits: each side rounded is as near as a double comes.
    if (!IsUsable(rounded.numerator) || !IsUsable(rounded.denominator)) {
        return std::nullopt;
    }
    return rounded;
}

std::optional<double> CATCkeReadDecimal(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    const std::string_view digits = text.substr(isNegative ? 1 : 0);
    double value = 0.0;
    if (!IsPlainDecimal(digits) ||
        std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc()) {
        return std::nullopt;
    }
    return isNegative ? -value : value;
}
