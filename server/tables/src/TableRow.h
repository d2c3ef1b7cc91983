#pragma once

#include "CsvTable.h"
#include "FactKeeper.h"
#include "TableColumns.h"
#include "TableErrors.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// One row of a table after another: its cells by column, as texts, numbers and choices. What is
/// wrong with a cell goes to the errors, by line and column.
class TableRow
{
public:
    TableRow(const CsvTable& table, const TableColumns& columns, TableErrors& errors);

    void Load(std::size_t row);

    std::uint32_t Line() const { return m_line; }
    bool Filled(Column column) const { return m_filled[static_cast<std::size_t>(column)]; }
    bool AnyFilled(Column first, Column last) const;
    /// True of most rows of a large product: they say who uses whom and where, and no facts.
    bool OnlyPlacesAPart() const;
    /// The text of the cell; empty where it is blank.
    std::string_view Cell(Column column) const
    {
        return Filled(column) ? m_cells[static_cast<std::size_t>(column)] : std::string_view();
    }
    /// The header over the row's cell of that column; the column's first one where it is blank.
    const std::string& HeaderOf(Column column) const;
    std::string_view UnitOf(Column column) const;
    /// What the cell states of that fact, for a FactKeeper.
    FactKeeper::Statement Statement(Fact fact, Column column) const
    {
        return {fact, m_line, HeaderOf(column), Cell(column), UnitOf(column)};
    }

    /// The number in a cell as typed; nothing when the cell is blank or was complained about.
    std::optional<double> Typed(Column column);
    std::optional<double> TypedText(std::string_view text, const std::string& header);
    /// The number in storage units.
    std::optional<double> Stored(Column column);
    std::optional<double> StoredNotNegative(Column column);
    std::optional<bool> YesNo(Column column);
    /// The position of the cell's text among the choices; complains about any other text.
    std::optional<std::size_t> Choice(Column column,
                                      std::initializer_list<std::string_view> choices);

    /// The filled properties, as positions in the list of property columns.
    const std::vector<std::uint32_t>& FilledProperties() const { return m_filledProperties; }
    const PropertyColumn& PropertyAt(std::uint32_t index) const
    {
        return m_columns.Properties()[index];
    }
    std::string_view PropertyCell(std::uint32_t index) const { return m_propertyCells[index]; }

    /// A mass in kg and one in lb in the same row: nobody could say which one counts.
    void RefuseTwoUnits();
    /// The cell's text is not what was expected.
    void Wrong(Column column, std::string_view expected);
    void Complain(Column column, std::string_view text);
    /// Values without a mass type, in the row of that line.
    void ComplainOfMassType(std::uint32_t line);
    TableErrors& Errors() { return m_errors; }

private:
    const CsvTable& m_table;
    const TableColumns& m_columns;
    TableErrors& m_errors;
    std::uint32_t m_line = 0;
    std::bitset<kColumns> m_filled;
    std::array<std::string_view, kColumns> m_cells;    // of the filled columns
    std::array<std::uint32_t, kColumns> m_positions{}; // of the filled columns, in the header
    std::optional<std::uint32_t> m_secondCell; // the position of a column's second filled cell
    std::vector<std::string_view> m_propertyCells;
    std::vector<std::uint32_t> m_filledProperties;
    char m_decimalMark = 0; // '.' or ','; 0 until a number shows it
    std::uint32_t m_decimalMarkLine = 0;
};
} // namespace wb
