#include "TextGrid.h"

#include "CATUnicodeString.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace
{
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(CATUnicodeString(text).Length());
}
} // namespace

std::string TextGrid::Text() const
{
    std::vector<std::size_t> widths(m_columns.size(), 0);
    for (const auto& row : m_rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], Width(row[column]));
        }
    }
    std::string text;
    for (const auto& row : m_rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string blanks(widths[column] - Width(row[column]), ' ');
            text += "  ";
            text += m_columns[column] == Side::Right ? blanks + row[column] : row[column] + blanks;
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

std::string Shortened(const std::string& text, std::size_t most)
{
    const CATUnicodeString characters(text);
    if (Width(text) <= most) {
        return text;
    }
    return characters.Part(0, static_cast<int>(most) - 1).ToStdString() + "…";
}

std::string Wrapped(const std::string& text, const std::string& indent)
{
    constexpr std::size_t kLineWidth = 80;
    std::string wrapped;
    std::string line;
    std::size_t begin = 0;
    bool isLineBegin = true;
    while (begin < text.size()) {
        // Blanks in front belong to the word: they are those of the first line.
        const std::size_t word = std::min(text.find_first_not_of(' ', begin), text.size());
        const std::size_t end = std::min(text.find(' ', word), text.size());
        std::string next = text.substr(begin, end - begin);
        if (!isLineBegin && Width(line) + Width(next) > kLineWidth) {
            wrapped += line + '\n';
            line = indent;
            next = text.substr(word, end - word);
        }
        line += next;
        isLineBegin = false;
        begin = end;
    }
    return wrapped + line + '\n';
}

int DecimalsFor(std::span<const double> values)
{
    constexpr int kDigits = 8;
    constexpr int kMostDecimals = 12;
    double largest = 0.0;
    for (const double value : values) {
        largest = std::isfinite(value) ? std::max(largest, std::abs(value)) : largest;
    }
    if (largest == 0.0) {
        return 0;
    }
    const int before = static_cast<int>(std::floor(std::log10(largest))) + 1;
    return std::clamp(kDigits - before, 0, kMostDecimals);
}

std::string FixedText(double value, int decimals)
{
    if (!std::isfinite(value)) {
        return "-";
    }
    std::array<char, 400> digits; // the largest double has 309 of them before the point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, decimals);
    std::string text(digits.data(), end.ptr);
    if (text.find_first_not_of("-0.") == std::string::npos && text.front() == '-') {
        text.erase(0, 1);
    }
    return text;
}
