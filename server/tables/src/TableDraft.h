#pragma once

#include "TableColumns.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace wb
{
/// A number for a cell: its text and the unit that the column's header must state (null where the
/// column has none).
struct NumberText
{
    std::string text;
    const Unit* unit = nullptr;
};

/// A table in the making. Which columns it has, and what decimal mark, is known when the last cell
/// is: columns that no row fills are left out.
class TableDraft
{
public:
    /// Cells of the current row. A blank text fills nothing.
    void PutText(Column column, std::string_view text);
    void PutNumber(Column column, const NumberText& number);
    /// False when the column of the property stands before that of the row's last one: the reader
    /// takes properties in the order of the columns, so this one needs a further row.
    bool PutProperty(bool ofUse, const Property& property);
    void EndRow();

    std::string Write() const;

private:
    struct Slot
    {
        std::size_t column;  // of the fixed columns; behind them those of parts, then of uses
        std::size_t unit;    // position in its magnitude
        std::uint32_t first; // order of appearance
        std::string header;
    };
    struct Cell
    {
        std::size_t offset;
        std::uint32_t length;
        std::uint32_t slot;
        bool isNumber;
    };

    std::uint32_t SlotOf(Column column, const Unit* unit);
    std::uint32_t AddSlot(std::size_t column, std::size_t unit, std::string header);
    void Put(std::uint32_t slot, std::string_view text, bool isNumber);

    std::vector<Slot> m_slots;
    std::array<std::vector<std::pair<const Unit*, std::uint32_t>>, kColumns> m_fixed;
    std::unordered_map<std::string, std::uint32_t> m_properties; // by header
    std::array<std::int64_t, 2> m_lastProperty{-1, -1};          // of the row: of part, of use
    std::string m_text;
    std::vector<Cell> m_cells;
    std::vector<std::size_t> m_rowEnds;
    std::size_t m_points = 0;
    std::size_t m_commas = 0;
};

/// A text as a cell: in double quotes where it must be.
void AppendCell(std::string& table, std::string_view text, char separator);
} // namespace wb
