#pragma once

#include "ListCsv.h"

#include <QTableView>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class ListModel;
class QAction;
class QLabel;
class QLineEdit;

/// The table of a list: uniform rows, cut texts with an ellipsis and a tooltip, sorting by a click
/// on a title (upwards, downwards, as delivered), copying and a menu for all of it. The selected
/// row stays selected when sorting or filtering moves it.
class ListView : public QTableView
{
public:
    ListView(QWidget* parent, ListModel& model);

    void SetVisibleLines(int lines);
    void SetVisibleCharacters(int characters);
    void SetEmptyText(const QString& text);

    /// The owner's row (from 0) that the user selected, the last one of several; -1 for none.
    int CurrentOwnerRow() const { return m_currentRow; }
    void SelectOwnerRow(int row);
    /// After the owner has replaced the rows: none is selected.
    void ForgetSelection();
    /// Before the owner takes the rows away, maybe to write them anew: none is selected until the
    /// model has settled. When as many rows are there again, and the selected one begins with the
    /// same cell, they are taken for the same rows, and the selection for the user's.
    void HoldSelection();
    /// After the model has settled: the selected row is where it belongs, and where the owner has
    /// changed texts the widths fit them.
    void Refresh(bool hasChanged);

    /// Takes a line of cells; false when it wants no more.
    using TakeLine = std::function<bool(const ListLine& line)>;
    /// Gives all that is shown line by line, titles first, columns in the order on the screen;
    /// false when they were not all taken.
    bool GiveShown(const TakeLine& take) const;
    /// Gives the selected cells with the titles of their columns; a cell between them that is not
    /// selected is empty.
    void GiveSelected(const TakeLine& take) const;

    std::function<void(int ownerRow)> onRowSelected;
    std::function<void()> onExport;
    std::function<void()> onFind;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct HeldSelection
    {
        int row; ///< -1: none was selected
        std::size_t rowCount;
        std::string firstCell;
    };

    QString TextInPlaceOfRows() const;
    void NoteSelectedRow();
    void TakeUpSelection();
    void CopySelection(std::size_t linesToSkip) const;
    void MakeActions();
    QAction* AddAction(const char* key, const char* defaultText, const QKeySequence& shortcut,
                       const std::function<void()>& action);
    void FitColumns();
    int FittingWidth(int column) const;
    std::vector<std::size_t> RowsToMeasure(std::size_t column) const;
    void FillWidth();
    std::vector<int> ColumnsAsShown() const;
    ListLine TitlesOf(const std::vector<int>& columns) const;
    void SortByCurrentColumn(Qt::SortOrder order);

    ListModel& m_model;
    QString m_emptyText;
    int m_visibleLines;
    int m_visibleCharacters;
    int m_currentRow = -1;
    int m_currentColumn = 0;
    std::optional<HeldSelection> m_held;
    bool m_isFitting = false;
    bool m_userHasSized = false;
    int m_lastColumnFit = 0;
};

/// The list with the line above it that filters it. The line shows where there is something to look
/// for, and wherever the user asks for it with Ctrl+F.
class ListBox : public QWidget
{
public:
    ListBox(QWidget* parent, ListModel& model);
    ListView& View() { return *m_view; }
    void SetFilterName(const QString& objectName);
    /// After the model has settled.
    void Refresh(bool hasChanged);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowFilter();

    ListModel& m_model;
    QWidget* m_filterRow;
    QLineEdit* m_filter;
    QLabel* m_count;
    ListView* m_view;
    bool m_isAskedFor = false;
};
