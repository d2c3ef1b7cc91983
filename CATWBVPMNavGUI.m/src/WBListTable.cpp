#include "WBListTable.h"

#include "CATDlgMultiList.h"

namespace
{

// Titles are set each time: they carry the units, which the user may have changed.
void ShowTitles(CATDlgMultiList& list, const WBPanelTable& table)
{
    CATListValCATUnicodeString titles;
    for (const WBPanelTable::Column& column : table.columns) {
        titles.Append(column.title);
    }
    list.SetColumnTitles(titles);
}

} // namespace

void WBShowTable(CATDlgMultiList& list, const WBPanelTable& table)
{
    ShowTitles(list, table);
    int column = 0;
    for (const WBPanelTable::Column& described : table.columns) {
        list.SetColumnIsNumber(column, described.isNumber);
        list.SetColumnTooltip(column, described.tooltip);
        ++column;
    }
    list.SetRows(table.rows);
}

void WBRewriteTable(CATDlgMultiList& list, const WBPanelTable& table)
{
    if (list.RowCount() != static_cast<int>(table.rows.size())) {
        WBShowTable(list, table);
        return;
    }
    ShowTitles(list, table);
    int row = 0;
    for (const WBPanelRow& cells : table.rows) {
        ++row;
        for (int position = 1; position <= cells.Size(); ++position) {
            list.SetCell(position - 1, row, cells[position]);
        }
    }
}
