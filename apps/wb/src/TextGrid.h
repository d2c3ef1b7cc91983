#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// Columns of text for people, each as wide as its widest cell.
class TextGrid
{
public:
    enum class Side
    {
        Left,
        Right // numbers
    };

    explicit TextGrid(std::vector<Side> columns) : m_columns(std::move(columns)) {}
    /// Cells that are missing at the end stay blank.
    void Add(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
    /// A line a row, two blanks before each column and none at the end.
    std::string Text() const;

private:
    std::vector<Side> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

/// As many characters of a text as there is room for; the last one is "…" where it was cut.
std::string Shortened(const std::string& text, std::size_t most);

/// The text in lines of at most 80 characters, broken at blanks, a line end behind each. Lines
/// after the first begin with `indent`. A word that is longer stays whole.
std::string Wrapped(const std::string& text, const std::string& indent);

/// How many decimals show eight digits of the largest of these figures, so that a column of them
/// lines up; unknown ones do not count.
int DecimalsFor(std::span<const double> values);

/// A figure with that many decimals and "." for the decimal mark, whatever the locale; "-" for an
/// unknown one. What rounds to zero has no sign.
std::string FixedText(double value, int decimals);
