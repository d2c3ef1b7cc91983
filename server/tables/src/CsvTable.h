#pragma once

#include "TableErrors.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// A table cut into cells. Blank cells are left out and all texts stand in one string, so that a
/// table takes little more memory than its file.
class CsvTable
{
public:
    struct Cell
    {
        std::uint32_t column; // from 0
        std::uint32_t offset;
        std::uint32_t length;
    };

    /// Cuts the content of a file into header and rows. Separator ",", ";" or tab, found from the
    /// header; UTF-8 with or without byte-order mark; fields in double quotes. What is wrong goes
    /// to errors: no header, another encoding, a quote that never ends, a row with another number
    /// of cells, a text that may not enter.
    static CsvTable Parse(std::string_view content, TableErrors& errors);

    /// Replaces the rows by others of the same table, whole lines of its file that begin with that
    /// line. False when they are not plain or anything is wrong with them: a double quote, another
    /// encoding, a row with another number of cells, a text that may not enter.
    bool TakePlainRows(std::string_view lines, std::uint32_t firstLine);

    char Separator() const { return m_separator; }
    const std::vector<std::string>& Header() const { return m_header; }
    std::uint32_t HeaderLine() const { return m_headerLine; }
    std::size_t RowCount() const { return m_rows.size(); }
    std::uint32_t LineOf(std::size_t row) const { return m_rows[row].line; }
    /// The filled cells of a row, in the order of the columns.
    std::span<const Cell> CellsOf(std::size_t row) const;
    std::string_view TextOf(const Cell& cell) const
    {
        return std::string_view(m_text).substr(cell.offset, cell.length);
    }

private:
    struct Row
    {
        std::uint32_t line;
        std::uint32_t firstCell;
    };
    struct Collector;
    bool TakePlainRow(std::size_t begin, std::size_t end, std::uint32_t line);

    char m_separator = ',';
    std::uint32_t m_headerLine = 1;
    std::vector<std::string> m_header;
    std::string m_text;
    std::vector<Cell> m_cells;
    std::vector<Row> m_rows;
};
} // namespace wb
