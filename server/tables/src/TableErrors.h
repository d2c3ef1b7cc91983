#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wb
{
/// Collects what is wrong with a table. The first twenty findings are kept, so that a user can mend
/// many at once; the rest is counted.
class TableErrors
{
public:
    explicit TableErrors(std::string file) : m_file(std::move(file)) {}

    /// FILE: TEXT
    void File(std::string_view text);
    /// FILE:LINE: TEXT
    void Line(std::uint32_t line, std::string_view text);
    /// FILE:LINE: column "COLUMN": TEXT
    void Column(std::uint32_t line, std::string_view column, std::string_view text);
    /// FILE:LINE: column "COLUMN": found "FOUND", expected EXPECTED
    void Found(std::uint32_t line, std::string_view column, std::string_view found,
               std::string_view expected);

    bool Any() const { return !m_kept.empty(); }
    /// In the order of the lines, with "and N more" at the end where some were only counted.
    std::vector<std::string> Sentences() const;

private:
    void Keep(std::uint32_t line, std::string text);

    std::string m_file;
    std::vector<std::pair<std::uint32_t, std::string>> m_kept;
    std::size_t m_more = 0;
};

/// The text in double quotes; a long one is cut.
std::string Quoted(std::string_view text);
} // namespace wb
