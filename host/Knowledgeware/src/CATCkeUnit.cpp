#include "CATCkeUnit.h"

#include "CATNumberLocale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

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
constexpr std::size_t kMostDigits =
    kSign + std::numeric_limits<double>::max_exponent10 + 1 + kPoint + kMostFixedDecimals;

/// A number's text with "." in room of its own, so that showing a value takes nothing from the
/// heap.
struct NumberText
{
    std::array<char, kMostDigits> characters;
    std::size_t length;
    std::string_view View() const { return {characters.data(), length}; }
};

void Write(double value, std::chars_format format, int decimals, NumberText& text)
{
    char* const begin = text.characters.data();
    const auto end =
        std::to_chars(begin, begin + text.characters.size(), value, format, decimals).ptr;
    text.length = static_cast<std::size_t>(end - begin);
}

void Erase(NumberText& text, std::size_t from, std::size_t to)
{
    char* const begin = text.characters.data();
    std::copy(begin + to, begin + text.length, begin + from);
    text.length -= to - from;
}

/// Drops the zeros that end the decimals, and a point that is left without any.
void DropTrailingZeros(NumberText& text)
{
    const std::string_view view = text.View();
    const std::size_t point = view.find('.');
    if (point == std::string_view::npos) {
        return;
    }
    const std::size_t end = std::min(view.find('e'), view.size());
    std::size_t kept = end;
    while (view[kept - 1] == '0') {
        --kept;
    }
    Erase(text, kept - 1 == point ? point : kept, end);
}

/// Values that round to nothing carry no sign: "-0.000" would make a user look for what is
/// negative.
void DropSignOfZero(NumberText& text)
{
    const std::string_view view = text.View();
    if (view.starts_with('-') && view.find_first_not_of("-0.") == std::string_view::npos) {
        Erase(text, 0, 1);
    }
}

bool LosesTooMuch(double value, int decimals, const NumberText& text)
{
    constexpr std::array kHundredSteps{1e2,  1e1,  1e0,  1e-1, 1e-2, 1e-3, 1e-4,
                                       1e-5, 1e-6, 1e-7, 1e-8, 1e-9, 1e-10};
    static_assert(kHundredSteps.size() == kCATCkeMostDecimals + 1);
    // Half a step is at most 0.5 % of a hundred steps: larger values need not be read back. Nor do
    // zero and what is no number, of which the comparison is false.
    const double size = std::fabs(value);
    if (!(size > 0.0 && size < kHundredSteps[static_cast<std::size_t>(decimals)])) {
        return false;
    }
    double shown = 0.0;
    std::from_chars(text.characters.data(), text.characters.data() + text.length, shown);
    return std::fabs(shown - value) > kLargestLoss * size;
}

CATUnicodeString Assemble(const NumberText& text, std::string_view symbol)
{
    constexpr std::size_t kSeparatorAndSymbol = 64;
    std::array<char, kMostDigits + kSeparatorAndSymbol> whole;
    const std::string_view number = text.View();
    const std::string_view separator = CATDecimalSeparator();
    const std::size_t point = number.find('.');

    char* end = std::ranges::copy(number.substr(0, point), whole.data()).out;
    if (point != std::string_view::npos) {
        end = std::ranges::copy(separator, end).out;
        end = std::ranges::copy(number.substr(point + 1), end).out;
    }
    end = std::ranges::copy(symbol, end).out;
    return CATUnicodeString(
        std::string_view(whole.data(), static_cast<std::size_t>(end - whole.data())));
}

} // namespace

bool CATCkeIsUsableSymbol(std::string_view symbol)
{
    constexpr std::size_t kMostBytes = 32;
    constexpr std::string_view kPartsOfNumbers = "0123456789+-.,eExX";
    constexpr std::string_view kPartsOfLists = ";|[]";
    if (symbol.empty() || symbol.size() > kMostBytes || symbol.front() == ' ' ||
        symbol.back() == ' ') {
        return false;
    }
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    };
    return kPartsOfNumbers.find(symbol.front()) == std::string_view::npos &&
           symbol.find_first_of(kPartsOfLists) == std::string_view::npos &&
           std::ranges::none_of(symbol, isControl);
}

CATCkeUnit::CATCkeUnit(CATCkeUnitDefinition definition) : m_definition(std::move(definition))
{}

const char* CATCkeUnit::ClassName() const
{
    return "CATCkeUnit";
}

CATUnicodeString CATCkeUnit::Symbol() const
{
    return m_definition.symbol;
}

double CATCkeUnit::ToStorage(double value) const
{
    return (value + m_definition.offset) * m_definition.factor.numerator /
           m_definition.factor.denominator;
}

double CATCkeUnit::FromStorage(double storageValue) const
{
    return storageValue * m_definition.factor.denominator / m_definition.factor.numerator -
           m_definition.offset;
}

CATUnicodeString CATCkeUnit::Show(double storageValue, int decimals) const
{
    const double value = FromStorage(storageValue);
    NumberText text;
    if (decimals > 0) {
        Write(value, std::chars_format::fixed, std::min(decimals, kMostFixedDecimals), text);
    } else {
        Write(value, std::chars_format::fixed, m_definition.decimals, text);
        if (m_definition.small == CATCkeSmallValues::Exponent &&
            LosesTooMuch(value, m_definition.decimals, text)) {
            Write(value, std::chars_format::scientific, kExponentDecimals, text);
        }
        DropTrailingZeros(text);
    }
    DropSignOfZero(text);
    return Assemble(text, m_definition.symbol.View());
}

bool CATCkeUnit::IsStorage() const
{
    return m_definition.factor == CATCkeFactor{} && m_definition.offset == 0.0;
}
