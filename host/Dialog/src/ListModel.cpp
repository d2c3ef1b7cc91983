#include "ListModel.h"

#include "Toolkit.h"

#include <QApplication>
#include <QFont>

#include <algorithm>

void ListModel::Expect(bool& what)
{
    what = true;
    if (!m_settleIsQueued) {
        m_settleIsQueued = true;
        QMetaObject::invokeMethod(
            this, [this] { Settle(); }, Qt::QueuedConnection);
    }
}

void ListModel::SetTitles(const CATListValCATUnicodeString& titles)
{
    if (titles.Size() == m_titles.Size() && titles.Size() > 0) {
        // The same columns under other names (another unit): the user's selection and place stay.
        m_titles = titles;
        emit headerDataChanged(Qt::Horizontal, 0, titles.Size() - 1);
        Expect(m_cellsChanged);
        return;
    }
    beginResetModel();
    m_titles = titles;
    m_cells.WidenTo(static_cast<std::size_t>(titles.Size()));
    endResetModel();
    Expect(m_rowsChanged);
}

void ListModel::SetNumberColumn(int column, bool isNumber)
{
    m_numberColumns[column] = isNumber;
    Expect(m_cellsChanged);
}

bool ListModel::IsNumberColumn(int column) const
{
    const auto found = m_numberColumns.find(column);
    return found == m_numberColumns.end() ? m_cells.IsNumberColumn(static_cast<std::size_t>(column))
                                          : found->second;
}

void ListModel::SetColumnTooltip(int column, const QString& tooltip)
{
    m_columnTooltips[column] = tooltip;
}

bool ListModel::SetCell(std::size_t row, std::size_t column, std::string_view text)
{
    if (row == m_cells.RowCount()) {
        m_cells.AppendRow();
        Expect(m_rowsChanged);
    }
    Expect(m_cellsChanged);
    return m_cells.SetText(row, column, text);
}

void ListModel::RemoveRows()
{
    m_cells.Clear(static_cast<std::size_t>(m_titles.Size()));
    m_emphasised.clear();
    m_cellTooltips.clear();
    m_marked.clear();
    Expect(m_rowsChanged);
}

void ListModel::SetRows(const std::vector<CATListValCATUnicodeString>& rows)
{
    RemoveRows();
    for (const CATListValCATUnicodeString& cells : rows) {
        const std::size_t row = m_cells.RowCount();
        m_cells.WidenTo(cells.Items().size());
        m_cells.AppendRow();
        for (std::size_t column = 0; column < cells.Items().size(); ++column) {
            m_cells.SetText(row, column, cells.Items()[column].View());
        }
    }
}

void ListModel::SetEmphasis(std::size_t row, bool emphasised)
{
    if (emphasised) {
        m_emphasised.insert(row);
    } else {
        m_emphasised.erase(row);
    }
    Expect(m_cellsChanged);
}

void ListModel::SetCellTooltip(std::size_t row, std::size_t column, const QString& tooltip)
{
    m_cellTooltips[{row, column}] = tooltip;
}

void ListModel::SetMark(std::size_t row, std::size_t column, bool marked)
{
    if (marked) {
        m_marked.insert({row, column});
    } else {
        m_marked.erase({row, column});
    }
    Expect(m_cellsChanged);
}

void ListModel::SetFilter(const CATUnicodeString& filter)
{
    m_filter = filter;
    m_filterWords = FilterWords(filter);
    m_orderChanged = true;
    Settle();
}

void ListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0) {
        m_sort = ListSort::AsDelivered;
    } else {
        m_sort = order == Qt::AscendingOrder ? ListSort::Up : ListSort::Down;
        m_sortColumn = static_cast<std::size_t>(column);
    }
    m_orderChanged = true;
    Settle();
}

int ListModel::PlaceOf(int ownerRow) const
{
    const auto found = std::ranges::find(m_shown, ownerRow);
    return found == m_shown.end() ? -1 : static_cast<int>(found - m_shown.begin());
}

void ListModel::ShowAgain()
{
    std::vector<int> shown = ShownRows(m_cells, m_filterWords, m_sort, m_sortColumn);
    const bool onlyAppends =
        shown.size() > m_shown.size() && std::equal(m_shown.begin(), m_shown.end(), shown.begin());
    if (onlyAppends) {
        // The view keeps its selection and its place while rows arrive.
        beginInsertRows(QModelIndex(), static_cast<int>(m_shown.size()),
                        static_cast<int>(shown.size()) - 1);
        m_shown = std::move(shown);
        endInsertRows();
    } else if (shown.size() != m_shown.size()) {
        beginResetModel();
        m_shown = std::move(shown);
        endResetModel();
    } else if (shown != m_shown) {
        emit layoutAboutToBeChanged();
        m_shown = std::move(shown);
        emit layoutChanged();
    }
}

void ListModel::Settle()
{
    m_settleIsQueued = false;
    const bool hasChanged = m_rowsChanged || m_cellsChanged;
    if (!hasChanged && !m_orderChanged) {
        return;
    }
    // A changed text may belong elsewhere in a sorted or filtered list.
    const bool mayMove =
        m_rowsChanged || m_orderChanged || m_sort != ListSort::AsDelivered || IsFiltered();
    m_rowsChanged = false;
    m_cellsChanged = false;
    m_orderChanged = false;
    if (mayMove) {
        ShowAgain();
    }
    if (hasChanged) {
        m_cells.ReleaseSpare();
        TellNewTexts();
    }
    if (m_onSettled) {
        m_onSettled(hasChanged);
    }
}

void ListModel::TellNewTexts()
{
    if (!m_shown.empty() && m_titles.Size() > 0) {
        // A title stands above its cells, at the right when they are numbers.
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_titles.Size();
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const auto row = static_cast<std::size_t>(OwnerRow(index.row()));
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(m_cells.Text(row, column));
    case kMarkRole:
        return IsMarked(row, column);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
        const auto found = m_cellTooltips.find({row, column});
        return found == m_cellTooltips.end() ? QVariant() : QVariant(found->second);
    }
    case Qt::TextAlignmentRole:
        return static_cast<int>((IsNumberColumn(index.column()) ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    case Qt::FontRole:
        if (IsBold(row, column)) {
            QFont font = QApplication::font();
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_titles.Size()) {
        return {};
    }
    const QString title = ToQt(m_titles[section + 1]);
    switch (role) {
    case Qt::DisplayRole:
        return title;
    case Qt::ToolTipRole: {
        const auto found = m_columnTooltips.find(section);
        return found == m_columnTooltips.end() || found->second.isEmpty()
                   ? title
                   : title + QLatin1Char('\n') + found->second;
    }
    case Qt::TextAlignmentRole:
        return static_cast<int>((IsNumberColumn(section) ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    default:
        return {};
    }
}
