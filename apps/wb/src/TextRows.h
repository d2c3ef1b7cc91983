#pragma once

#include <span>
#include <string>
#include <vector>

/// Rows of texts that a subcommand prints, for people or for programs.
struct TextRows
{
    enum class Kind
    {
        Text,
        Flag // "true" or "false"
    };
    struct Column
    {
        const char* name;
        Kind kind = Kind::Text;
    };

    std::span<const Column> columns;
    std::vector<std::vector<std::string>> rows; ///< a text a column; empty: unknown or none

    /// Lined up below their titles; "-" for an empty text.
    std::string AsTable() const;
    /// A line of titles first.
    std::string AsCsv() const;
    /// A list of objects, an object a line, as the value of a member of a document's outer object;
    /// null for an empty text.
    std::string AsJson() const;
};
