#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace wb
{
/// Collects why an import is refused. The first twenty sentences are kept, so that a user can mend
/// many at once; the rest is counted.
class ImportErrors
{
public:
    explicit ImportErrors(std::string file) : m_file(std::move(file)) {}

    /// FILE:LINE: TEXT
    void Line(std::uint32_t line, const std::string& text);
    /// FILE: TEXT
    void File(const std::string& text);

    bool Any() const { return !m_sentences.empty(); }
    /// With "and N more" at the end where some were only counted.
    std::vector<std::string> Sentences() const;

private:
    void Keep(std::string sentence);

    std::string m_file;
    std::vector<std::string> m_sentences;
    std::size_t m_more = 0;
};
} // namespace wb
