#include "WBShowing.h"

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"

#include <map>
#include <string>

namespace
{

/// Rows by what tells which one they are.
using RowsByKey = std::map<std::string, const WBPanelRow*>;

std::string KeyOf(const WBPanelTable& table, const WBPanelRow& row)
{
    std::string key;
    for (const int column : table.keyColumns) {
        key += row[column + 1].ToStdString() + "|";
    }
    return key;
}

RowsByKey RowsOf(const std::optional<WBPanelTable>& table)
{
    RowsByKey rows;
    if (table) {
        for (const WBPanelRow& row : table->rows) {
            rows.emplace(KeyOf(*table, row), &row);
        }
    }
    return rows;
}

CATUnicodeString BeforeText(const CATUnicodeString& before)
{
    return WBPanelText("Mark.Before", "@Before: /p1", {WBOrDash(before)});
}

} // namespace

void WBShowing::ShowTable(CATDlgMultiList& list, const TableOf& read)
{
    const WBPanelTable table = read(m_now);
    m_write(list, table);
    const std::optional<WBPanelTable> before =
        m_before == nullptr ? std::nullopt : std::optional(read(*m_before));
    const RowsByKey rowsBefore = RowsOf(before);
    int row = 0;
    for (const WBPanelRow& cells : table.rows) {
        ++row;
        const auto found = rowsBefore.find(KeyOf(table, cells));
        const WBPanelRow* cellsBefore = found == rowsBefore.end() ? nullptr : found->second;
        for (int position = 1; position <= cells.Size(); ++position) {
            // Of a row that was not there the numbers are news; the words only name them.
            const bool isNumber = table.columns[static_cast<std::size_t>(position) - 1].isNumber;
            const bool mayDiffer = before.has_value() && (cellsBefore != nullptr || isNumber);
            const CATUnicodeString old =
                cellsBefore == nullptr ? CATUnicodeString() : (*cellsBefore)[position];
            const bool isMarked = mayDiffer && !(old == cells[position]);
            list.SetCellMark(position - 1, row, isMarked);
            list.SetCellTooltip(position - 1, row, isMarked ? BeforeText(old) : CATUnicodeString());
            m_hasMarks = m_hasMarks || isMarked;
        }
    }
}

void WBShowing::ShowText(CATDlgLabel& label, const CATUnicodeString& now,
                         const CATUnicodeString* before)
{
    const bool isMarked = before != nullptr && !(*before == now);
    label.SetTitle(now);
    label.SetMark(isMarked);
    label.SetTooltip(isMarked ? BeforeText(*before) : CATUnicodeString());
    m_hasMarks = m_hasMarks || isMarked;
}
