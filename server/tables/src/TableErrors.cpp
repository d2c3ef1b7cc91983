#include "TableErrors.h"

#include <algorithm>

namespace wb
{
void TableErrors::Keep(std::uint32_t line, std::string text)
{
    constexpr std::size_t kMost = 20;
    if (m_kept.size() == kMost) {
        ++m_more;
        return;
    }
    m_kept.emplace_back(line, std::move(text));
}

void TableErrors::File(std::string_view text)
{
    Keep(0, m_file + ": " + std::string(text));
}

void TableErrors::Line(std::uint32_t line, std::string_view text)
{
    Keep(line, m_file + ":" + std::to_string(line) + ": " + std::string(text));
}

void TableErrors::Column(std::uint32_t line, std::string_view column, std::string_view text)
{
    Line(line, "column " + Quoted(column) + ": " + std::string(text));
}

void TableErrors::Found(std::uint32_t line, std::string_view column, std::string_view found,
                        std::string_view expected)
{
    Column(line, column, "found " + Quoted(found) + ", expected " + std::string(expected));
}

std::vector<std::string> TableErrors::Sentences() const
{
    auto sorted = m_kept;
    std::ranges::stable_sort(sorted, {}, &std::pair<std::uint32_t, std::string>::first);
    std::vector<std::string> sentences;
    sentences.reserve(sorted.size() + 1);
    for (auto& [line, text] : sorted) {
        sentences.push_back(std::move(text));
    }
    if (m_more > 0) {
        sentences.push_back("and " + std::to_string(m_more) + " more");
    }
    return sentences;
}

std::string Quoted(std::string_view text)
{
    constexpr std::size_t kLongest = 80;
    std::string quoted = "\"";
    for (const char character : text.substr(0, kLongest)) {
        // A control character would break the message into lines or hide a part of it.
        quoted += static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
    }
    return quoted + (text.size() > kLongest ? "...\"" : "\"");
}
} // namespace wb
