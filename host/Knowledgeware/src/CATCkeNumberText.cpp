#include "CATCkeNumberText.h"

#include "CATNumberLocale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

// Reports hold millions of values, and each is shown anew whenever the user looks at it in another
// way. So nearly all of them are shown by whole numbers: a value is a number of steps of its last
// decimal, and the digits of that number are the digits of the text. What has too many of them is
// left to the standard conversion, which gives the same text wherever both can.

namespace
{

// No double has more digits behind its point; what a caller asks for beyond them would all be
// zeros.
constexpr int kMostFixedDecimals = 1074;
constexpr int kExponentDecimals = 6;
// What may be lost before a small value turns to its exponent form, as a share of the value.
constexpr double kLargestLoss = 0.005;

constexpr std::size_t kSign = 1;
constexpr std::size_t kPoint = 1;
constexpr std::size_t kSeparatorAndSymbol = 64;

constexpr std::array kStepsPerUnit{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
// Below it every half step is a double.
constexpr double kMostSteps = 0x1p52;
constexpr std::size_t kMostStepDigits = 16;
static_assert(kStepsPerUnit.size() > kCATCkeMostDecimals);

/// A size as a whole number of steps of its last decimal.
struct Steps
{
    std::int64_t count;
    int decimals;
};

/// Null for more steps or decimals than can be counted, and for what is no number.
std::optional<Steps> CountSteps(double size, int decimals)
{
    if (decimals >= std::ssize(kStepsPerUnit)) {
        return std::nullopt;
    }
    const double perUnit = kStepsPerUnit[static_cast<std::size_t>(decimals)];
    const double product = size * perUnit;
    if (!(product < kMostSteps)) {
        return std::nullopt;
    }
    const auto below = static_cast<std::int64_t>(product);
    const double rest = product - static_cast<double>(below);
    // Rounding a product never passes a double: the product lies on the same side of the half step
    // as the exact one does, or on the half itself. Then what rounding took away decides, and
    // without that the even neighbour.
    if (rest != 0.5) {
        return Steps{below + (rest > 0.5 ? 1 : 0), decimals};
    }
    const double lost = std::fma(size, perUnit, -product);
    if (lost != 0.0) {
        return Steps{below + (lost > 0.0 ? 1 : 0), decimals};
    }
    return Steps{below + below % 2, decimals};
}

void DropTrailingZeros(Steps& steps)
{
    while (steps.decimals > 0 && steps.count % 10 == 0) {
        steps.count /= 10;
        --steps.decimals;
    }
}

bool LosesTooMuch(const Steps& steps, double size)
{
    // Of more steps half a step is no such share.
    constexpr std::int64_t kMostLossySteps = 100;
    if (steps.count > kMostLossySteps) {
        return false;
    }
    const double shown =
        static_cast<double>(steps.count) / kStepsPerUnit[static_cast<std::size_t>(steps.decimals)];
    return std::fabs(shown - size) > kLargestLoss * size;
}

constexpr std::array<char, 200> kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t number = 0; number < 100; ++number) {
        pairs[2 * number] = static_cast<char>('0' + number / 10);
        pairs[2 * number + 1] = static_cast<char>('0' + number % 10);
    }
    return pairs;
}();

/// A text that is written from its end to its beginning, as the digits of a number come. It is not
/// longer than a number of steps with its symbol.
class BackwardText
{
public:
    void Put(char character) { *--m_begin = character; }
    void Put(std::string_view text)
    {
        m_begin -= text.size();
        std::memcpy(m_begin, text.data(), text.size());
    }
    /// Takes so many digits off a number.
    void PutDigits(std::uint64_t& number, int count)
    {
        for (; count >= 2; count -= 2) {
            PutPair(number);
        }
        if (count == 1) {
            PutDigit(number);
        }
    }
    void PutNumber(std::uint64_t number)
    {
        while (number >= 10) {
            PutPair(number);
        }
        if (number > 0) {
            PutDigit(number);
        }
    }
    std::string_view View() const
    {
        return {m_begin, static_cast<std::size_t>(m_room.data() + m_room.size() - m_begin)};
    }

private:
    void PutPair(std::uint64_t& number)
    {
        m_begin -= 2;
        std::memcpy(m_begin, kDigitPairs.data() + 2 * (number % 100), 2);
        number /= 100;
    }
    void PutDigit(std::uint64_t& number)
    {
        Put(static_cast<char>('0' + number % 10));
        number /= 10;
    }

    std::array<char, kSign + kPoint + kMostStepDigits + kSeparatorAndSymbol> m_room;
    char* m_begin = m_room.data() + m_room.size();
};

CATUnicodeString Show(const Steps& steps, bool isNegative, std::string_view symbol)
{
    BackwardText text;
    auto digits = static_cast<std::uint64_t>(steps.count);
    text.Put(symbol);
    if (steps.decimals > 0) {
        text.PutDigits(digits, steps.decimals);
        text.Put(CATDecimalSeparator());
    }
    if (digits == 0) {
        text.Put('0');
    } else {
        text.PutNumber(digits);
    }
    if (isNegative && steps.count != 0) {
        text.Put('-');
    }
    return CATUnicodeString(text.View());
}

enum class Zeros
{
    Keep,
    DropTrailing
};

std::string_view Between(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// Any number, infinities and what is none, to the last digit.
CATUnicodeString ShowAny(double value, std::chars_format format, int decimals, Zeros zeros,
                         std::string_view symbol)
{
    constexpr std::size_t kMostDigits =
        kSign + std::numeric_limits<double>::max_exponent10 + 1 + kPoint + kMostFixedDecimals;
    std::array<char, kMostDigits> digits;
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, format, decimals).ptr;
    const std::string_view number = Between(digits.data(), end);
    const std::size_t exponent = std::min(number.find('e'), number.size());
    const std::size_t point = std::min(number.find('.'), exponent);
    const std::size_t behindPoint = std::min(point + kPoint, exponent);
    std::string_view whole = number.substr(0, point);
    std::string_view fraction = number.substr(behindPoint, exponent - behindPoint);
    if (whole == "-0" && fraction.find_first_not_of('0') == std::string_view::npos) {
        whole.remove_prefix(kSign);
    }
    while (zeros == Zeros::DropTrailing && fraction.ends_with('0')) {
        fraction.remove_suffix(1);
    }

    std::array<char, kMostDigits + kSeparatorAndSymbol> text;
    char* behind = std::ranges::copy(whole, text.data()).out;
    if (!fraction.empty()) {
        behind = std::ranges::copy(CATDecimalSeparator(), behind).out;
        behind = std::ranges::copy(fraction, behind).out;
    }
    behind = std::ranges::copy(number.substr(exponent), behind).out;
    behind = std::ranges::copy(symbol, behind).out;
    return CATUnicodeString(Between(text.data(), behind));
}

} // namespace

CATUnicodeString CATCkeShowExactly(double value, int decimals, std::string_view symbol)
{
    if (const std::optional<Steps> steps = CountSteps(std::fabs(value), decimals)) {
        return Show(*steps, value < 0.0, symbol);
    }
    return ShowAny(value, std::chars_format::fixed, std::min(decimals, kMostFixedDecimals),
                   Zeros::Keep, symbol);
}

CATUnicodeString CATCkeShowAtMost(double value, int decimals, CATCkeSmallValues small,
                                  std::string_view symbol)
{
    const double size = std::fabs(value);
    std::optional<Steps> steps = CountSteps(size, decimals);
    if (!steps) {
        return ShowAny(value, std::chars_format::fixed, decimals, Zeros::DropTrailing, symbol);
    }
    if (small == CATCkeSmallValues::Exponent && LosesTooMuch(*steps, size)) {
        return ShowAny(value, std::chars_format::scientific, kExponentDecimals, Zeros::DropTrailing,
                       symbol);
    }
    DropTrailingZeros(*steps);
    return Show(*steps, value < 0.0, symbol);
}
