#pragma once

#include "CATCollections.h"
#include "ListCells.h"
#include "ListOrder.h"

#include <QAbstractTableModel>

#include <functional>
#include <map>
#include <set>

/// What stands in a list: the rows as their owner wrote them, and which of them are shown in which
/// order. Rows of the model are places on the screen; OwnerRow and PlaceOf translate. Rows, columns
/// and places count from 0 here.
///
/// The owner writes cell by cell; the view is told once, when the owner has finished (Settle,
/// called from the event loop or by whoever needs the view to be right).
class ListModel : public QAbstractTableModel
{
public:
    explicit ListModel(QObject* parent) : QAbstractTableModel(parent) {}

    // The owner's side.
    const ListCells& Cells() const { return m_cells; }
    const CATListValCATUnicodeString& Titles() const { return m_titles; }
    void SetTitles(const CATListValCATUnicodeString& titles);
    /// What the owner says of a column. Of any other its cells tell: a column of numbers is one
    /// whose every filled cell begins with a number.
    void SetNumberColumn(int column, bool isNumber);
    bool IsNumberColumn(int column) const;
    void SetColumnTooltip(int column, const QString& tooltip);
    /// The row is there or is the one after the last, the column has a title. False when there is
    /// no room for the text.
    bool SetCell(std::size_t row, std::size_t column, std::string_view text);
    void SetRows(const std::vector<CATListValCATUnicodeString>& rows);
    void RemoveRows();
    void SetEmphasis(std::size_t row, bool emphasised);
    bool IsEmphasised(std::size_t row) const { return m_emphasised.contains(row); }
    void SetCellTooltip(std::size_t row, std::size_t column, const QString& tooltip);
    void SetMark(std::size_t row, std::size_t column, bool marked);
    bool IsMarked(std::size_t row, std::size_t column) const
    {
        return m_marked.contains({row, column});
    }
    /// Whether a cell is shown in bold: one that is marked, or in an emphasised row.
    bool IsBold(std::size_t row, std::size_t column) const
    {
        return IsEmphasised(row) || IsMarked(row, column);
    }
    /// The role under which a cell says whether it is marked.
    static constexpr int kMarkRole = Qt::UserRole;

    // The user's side.
    void SetFilter(const CATUnicodeString& filter);
    const CATUnicodeString& Filter() const { return m_filter; }
    bool IsFiltered() const { return !m_filterWords.empty(); }
    void sort(int column, Qt::SortOrder order) override;
    ListSort Sorting() const { return m_sort; }
    int OwnerRow(int place) const { return m_shown[static_cast<std::size_t>(place)]; }
    /// -1 when the row is filtered away or not there.
    int PlaceOf(int ownerRow) const;

    /// Brings what the view knows up to what the owner wrote.
    void Settle();
    /// Called after the rows that are shown or their order have changed, and told whether the owner
    /// has changed their texts or looks too.
    void SetOnSettled(std::function<void(bool hasChanged)> onSettled)
    {
        m_onSettled = std::move(onSettled);
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    using CellKey = std::pair<std::size_t, std::size_t>;
    void Expect(bool& what);
    void ShowAgain();
    void TellNewTexts();

    ListCells m_cells;
    CATListValCATUnicodeString m_titles;
    std::map<int, bool> m_numberColumns;
    std::map<int, QString> m_columnTooltips;
    std::set<std::size_t> m_emphasised;
    std::map<CellKey, QString> m_cellTooltips;
    std::set<CellKey> m_marked;

    std::vector<int> m_shown;
    CATUnicodeString m_filter;
    std::vector<std::string> m_filterWords;
    ListSort m_sort = ListSort::AsDelivered;
    std::size_t m_sortColumn = 0;

    bool m_settleIsQueued = false;
    bool m_rowsChanged = false;  ///< rows were added or all replaced
    bool m_cellsChanged = false; ///< texts or looks of rows that the view knows
    bool m_orderChanged = false; ///< the user asked for another order or filter
    std::function<void(bool hasChanged)> m_onSettled;
};
