#include "ImportErrors.h"

namespace wb
{
void ImportErrors::Keep(std::string sentence)
{
    constexpr std::size_t kMost = 20;
    if (m_sentences.size() == kMost) {
        ++m_more;
        return;
    }
    m_sentences.push_back(std::move(sentence));
}

void ImportErrors::Line(std::uint32_t line, const std::string& text)
{
    Keep(m_file + ":" + std::to_string(line) + ": " + text);
}

void ImportErrors::File(const std::string& text)
{
    Keep(m_file + ": " + text);
}

std::vector<std::string> ImportErrors::Sentences() const
{
    std::vector<std::string> sentences = m_sentences;
    if (m_more > 0) {
        sentences.push_back("and " + std::to_string(m_more) + " more");
    }
    return sentences;
}
} // namespace wb
