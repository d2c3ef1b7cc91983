#include "TableRow.h"

#include "WBNumbers.h"
#include "WBTexts.h"

#include <algorithm>
#include <cmath>

namespace wb
{
TableRow::TableRow(const CsvTable& table, const TableColumns& columns, TableErrors& errors)
    : m_table(table),
      m_columns(columns),
      m_errors(errors),
      m_propertyCells(columns.Properties().size())
{}

void TableRow::Load(std::size_t row)
{
    m_filled.reset();
    m_secondCell.reset();
    for (const std::uint32_t property : m_filledProperties) {
        m_propertyCells[property] = {};
    }
    m_filledProperties.clear();
    m_line = m_table.LineOf(row);
    for (const CsvTable::Cell& cell : m_table.CellsOf(row)) {
        if (cell.column >= m_table.Header().size()) {
            continue; // complained about when the table was cut
        }
        const TableColumns::Place& place = m_columns.At(cell.column);
        if (place.property >= 0) {
            const auto property = static_cast<std::uint32_t>(place.property);
            m_propertyCells[property] = m_table.TextOf(cell);
            m_filledProperties.push_back(property);
        } else if (place.column != Column::Count) {
            const auto column = static_cast<std::size_t>(place.column);
            if (m_filled[column]) {
                m_secondCell = cell.column;
            }
            m_filled.set(column);
            m_cells[column] = m_table.TextOf(cell);
            m_positions[column] = cell.column;
        }
    }
}

bool TableRow::AnyFilled(Column first, Column last) const
{
    const auto before = static_cast<std::size_t>(first);
    const std::size_t behind = kColumns - 1 - static_cast<std::size_t>(last);
    return (m_filled >> before << (before + behind)).any();
}

bool TableRow::OnlyPlacesAPart() const
{
    return m_filledProperties.empty() && !AnyFilled(Column::Name, Column::Standard) &&
           !AnyFilled(Column::MassType, Column::DocMass);
}

void TableRow::Wrong(Column column, std::string_view expected)
{
    m_errors.Found(m_line, HeaderOf(column), Cell(column), expected);
}

void TableRow::Complain(Column column, std::string_view text)
{
    m_errors.Column(m_line, HeaderOf(column), text);
}

void TableRow::ComplainOfMassType(std::uint32_t line)
{
    m_errors.Column(line, m_columns.HeaderOf(Column::MassType),
                    "the cell is blank beside values, expected their mass type (or the option "
                    "--mass-type NAME for the whole table)");
}

std::optional<double> TableRow::TypedText(std::string_view text, const std::string& header)
{
    const auto* const mark = std::ranges::find_if(
        text, [](char character) { return character == '.' || character == ','; });
    const bool marked = mark != text.end();
    if (marked && *mark == ',' && m_table.Separator() == ',') {
        m_errors.Found(m_line, header, text,
                       "a number with a decimal point, since \",\" separates the cells");
        return std::nullopt;
    }
    // 1.234 and 1,234 in one table: one of them would be read a thousand times too small.
    if (marked && m_decimalMark == 0) {
        m_decimalMark = *mark;
        m_decimalMarkLine = m_line;
    } else if (marked && m_decimalMark != *mark) {
        m_errors.Found(m_line, header, text,
                       std::string("a number with the decimal mark \"") + m_decimalMark +
                           "\" as in line " + std::to_string(m_decimalMarkLine));
        return std::nullopt;
    }
    const auto value = ReadNumber(text);
    if (!value) {
        m_errors.Found(m_line, header, text, "a number");
    }
    return value;
}

std::optional<double> TableRow::Typed(Column column)
{
    return Filled(column) ? TypedText(Cell(column), HeaderOf(column)) : std::nullopt;
}

std::optional<double> TableRow::Stored(Column column)
{
    const auto typed = Typed(column);
    if (!typed) {
        return std::nullopt;
    }
    const Unit* unit = m_columns.At(m_positions[static_cast<std::size_t>(column)]).unit;
    if (unit == nullptr) {
        return std::nullopt; // complained about when the header was read
    }
    const double value = ToStorage(*unit, *typed);
    if (!std::isfinite(value)) {
        Wrong(column, "a smaller number");
        return std::nullopt;
    }
    return value;
}

std::optional<double> TableRow::StoredNotNegative(Column column)
{
    const auto value = Stored(column);
    if (value && *value < 0.0) {
        Wrong(column, "a number that is not negative");
        return std::nullopt;
    }
    return value;
}

std::optional<std::size_t> TableRow::Choice(Column column,
                                            std::initializer_list<std::string_view> choices)
{
    if (!Filled(column)) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(choices, LowerCase(Cell(column)));
    if (found != choices.end()) {
        return static_cast<std::size_t>(found - choices.begin());
    }
    std::string expected = "one of ";
    for (const std::string_view choice : choices) {
        expected += (choice == *choices.begin() ? "" : ", ") + std::string(choice);
    }
    Wrong(column, expected);
    return std::nullopt;
}

std::optional<bool> TableRow::YesNo(Column column)
{
    const auto choice = Choice(column, {"no", "yes"});
    return choice ? std::optional(*choice == 1) : std::nullopt;
}

std::string_view TableRow::UnitOf(Column column) const
{
    const Unit* unit =
        Filled(column) ? m_columns.At(m_positions[static_cast<std::size_t>(column)]).unit : nullptr;
    return unit == nullptr ? std::string_view() : unit->symbol;
}

const std::string& TableRow::HeaderOf(Column column) const
{
    return Filled(column) ? m_table.Header()[m_positions[static_cast<std::size_t>(column)]]
                          : m_columns.HeaderOf(column);
}

void TableRow::RefuseTwoUnits()
{
    if (m_secondCell) {
        const Column column = m_columns.At(*m_secondCell).column;
        m_errors.Found(m_line, m_table.Header()[*m_secondCell], Cell(column),
                       "a cell of one unit in the row, since " +
                           Quoted(m_columns.HeaderOf(column)) + " is filled too");
    }
}
} // namespace wb
