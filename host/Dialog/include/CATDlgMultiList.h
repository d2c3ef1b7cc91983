#pragma once

#include "CATCollections.h"
#include "CATDialog.h"

/// A list of rows and columns. Rows count from 1, columns from 0. The user can sort it by a column
/// (numbers as numbers, whatever unit follows them), filter it, copy cells with their headers and
/// export it as seen to CSV; none of that changes the rows as the owner wrote them. Every column
/// can be reached by keyboard; a text that is cut ends in an ellipsis and shows whole in its
/// tooltip.
class WB_EXPORT CATDlgMultiList : public CATDialog
{
public:
    CATDlgMultiList(CATDialog* parent, const CATString& name, int style = 0);
    ~CATDlgMultiList() override;
    static const CATEvent RowSelected; ///< the user went to another row; the detail is the row

    /// Titles fix the number of columns. A column of numbers is right-aligned, title and cells: one
    /// that the owner calls so, and one of which it says nothing and whose every filled cell begins
    /// with a number.
    void SetColumnTitles(const CATListValCATUnicodeString& titles);
    CATListValCATUnicodeString ColumnTitles() const;
    void SetColumnIsNumber(int column, bool isNumber);
    void SetColumnTooltip(int column, const CATUnicodeString& tooltip);

    /// Option of SetCell: appends the row when it is not there (the one after the last).
    static constexpr int kAppendRow = 64;
    /// Without the option, a cell of a row that is not there is not written: S_FALSE, as with it
    /// for a row beyond the next. E_INVALIDARG for a row below 1 or a column that has no title,
    /// E_FAIL for a text that there is no room for (about a thousand rows hold 4 GiB).
    long SetCell(int column, int row, const CATUnicodeString& text, int option = kAppendRow);
    /// The text as the owner wrote it; empty for a cell that is not there.
    CATUnicodeString Cell(int column, int row) const;
    /// Whole rows at once, replacing all; none is selected then.
    void SetRows(const std::vector<CATListValCATUnicodeString>& rows);
    /// Takes all rows away. When they are written anew at once, with other texts (an option of
    /// their display has changed), everything that the user did stays: sorting, filter, selection,
    /// column widths and place. They are taken for the same rows when they are as many and the
    /// selected one begins with the same cell.
    void RemoveAll();
    int RowCount() const;
    int ColumnCount() const;
    /// Marks a row (the active one) by a bold face.
    void SetRowEmphasis(int row, bool emphasised);
    /// A cell's own tooltip, where it says more than the cell.
    void SetCellTooltip(int column, int row, const CATUnicodeString& tooltip);

    /// Marks a cell whose text has changed: bold, coloured, and with a corner for those who see no
    /// colours. It is neither copied nor exported; what stood there before belongs into the
    /// tooltip.
    void SetCellMark(int column, int row, bool marked);

    /// The selected row as the owner wrote it, 0 for none.
    int SelectedRow() const;
    void SelectRow(int row);
    /// What stands in the list's place when it has no rows ("No document revisions").
    void SetEmptyText(const CATUnicodeString& text);

    /// The room that the list asks for; it takes more where there is more.
    void SetVisibleLines(int lines);
    void SetVisibleTextWidth(int characters);

private:
    struct Model;
    std::unique_ptr<Model> m_model;
};
