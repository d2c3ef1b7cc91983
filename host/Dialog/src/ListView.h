#pragma once

#include <QTableView>

#include <functional>
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
    /// After the model has settled: the widths fit, and the selected row is where it belongs.
    void Refresh();

    /// All that is shown, titles first, columns in the order on the screen.
    std::vector<QStringList> ShownTable() const;
    /// The selected cells with the titles of their columns; a cell between them that is not
    /// selected is empty.
    std::vector<QStringList> SelectedTable() const;

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
    void NoteSelectedRow();
    void MakeActions();
    QAction* AddAction(const char* key, const char* defaultText, const QKeySequence& shortcut,
                       const std::function<void()>& action);
    void FitColumns();
    int FittingWidth(int column) const;
    void FillWidth();
    std::vector<int> ColumnsAsShown() const;
    QStringList TitlesOf(const std::vector<int>& columns) const;
    void SortByCurrentColumn(Qt::SortOrder order);

    ListModel& m_model;
    QString m_emptyText;
    int m_visibleLines;
    int m_visibleCharacters;
    int m_currentRow = -1;
    int m_currentColumn = 0;
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
    void Refresh();

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
