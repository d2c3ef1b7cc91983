#include "ListView.h"

#include "Appearance.h"
#include "ListModel.h"
#include "Toolkit.h"
#include "WholeText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <numeric>

namespace
{
constexpr int kUsualLines = 5;
constexpr int kLeastLines = 2;
constexpr int kUsualCharacters = 50;
constexpr int kLeastCharacters = 20;
// Widths come from the first rows: looking at all of a long list would take longer than showing it.
constexpr std::size_t kSampledRows = 200;
constexpr std::size_t kMeasuredTexts = 16; // of the sample, the longest
constexpr int kWidestCharacters = 40;
constexpr int kNarrowestCharacters = 4;
constexpr int kCellPadding = 6;
constexpr int kCellMargin = 2 * kCellPadding;
constexpr int kSortMarkRoom = 14;
constexpr int kSortMarkWidth = 10;
constexpr int kRowMargin = 6;
constexpr std::size_t kRowsWithoutFilter = 12;
constexpr int kMarkSize = 6;

/// The upper right corner of a marked cell, in the padding, so that it hides nothing.
void PaintCorner(QPainter& painter, const QRect& cell, const QColor& colour)
{
    const QPoint corner = cell.topRight() + QPoint(1, 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(
        QPolygon({corner - QPoint(kMarkSize, 0), corner, corner + QPoint(0, kMarkSize)}));
}

/// A cell with room at both sides, so that a number at the right of its column and a text at the
/// left of the next one do not run into each other.
class PaddedCell : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = std::exchange(cell.text, QString());
        const QStyle& style = *cell.widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        const QRect room = cell.rect.adjusted(kCellPadding, 0, -kCellPadding, 0);
        painter->save();
        painter->setFont(cell.font);
        const bool isSelected = (cell.state & QStyle::State_Selected) != 0;
        const bool isEnabled = (cell.state & QStyle::State_Enabled) != 0;
        if (index.data(ListModel::kMarkRole).toBool()) {
            cell.palette.setColor(QPalette::Text, ChangedColour());
            PaintCorner(
                *painter, cell.rect,
                cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        }
        style.drawItemText(painter, room, static_cast<int>(cell.displayAlignment), cell.palette,
                           isEnabled,
                           cell.fontMetrics.elidedText(text, Qt::ElideRight, room.width()),
                           isSelected ? QPalette::HighlightedText : QPalette::Text);
        painter->restore();
    }
};

/// Titles with the same room as the cells below them. The mark of the sorted column stands in room
/// that every title has for it, so that sorting cuts no title.
class PaddedTitles : public QProxyStyle
{
public:
    PaddedTitles() : QProxyStyle(QStringLiteral("Fusion")) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        return metric == PM_HeaderMargin ? kCellPadding
                                         : QProxyStyle::pixelMetric(metric, option, widget);
    }
    // The usual style draws a title and its mark without asking a style that stands before it where
    // they go, so both are drawn from here.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* title =
            element == CE_Header ? qstyleoption_cast<const QStyleOptionHeaderV2*>(option) : nullptr;
        if (title == nullptr) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        drawControl(CE_HeaderSection, title, painter, widget);
        QStyleOptionHeaderV2 part = *title;
        part.rect = title->rect.adjusted(kCellPadding, 0, -kCellPadding, 0);
        if (title->sortIndicator != QStyleOptionHeader::None) {
            QStyleOptionHeaderV2 mark = part;
            mark.rect.setLeft(part.rect.right() + 1 - kSortMarkWidth);
            drawPrimitive(PE_IndicatorHeaderArrow, &mark, painter, widget);
            part.rect.adjust(0, 0, -kSortMarkRoom, 0);
        }
        drawControl(CE_HeaderLabel, &part, painter, widget);
    }
};
} // namespace

ListView::ListView(QWidget* parent, ListModel& model)
    : QTableView(parent),
      m_model(model),
      m_visibleLines(kUsualLines),
      m_visibleCharacters(kUsualCharacters)
{
    setModel(&model);
    setItemDelegate(new PaddedCell(this)); // goes with the view
    auto* titleStyle = new PaddedTitles;
    titleStyle->setParent(this);
    horizontalHeader()->setStyle(titleStyle);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // The arrow keys reach every cell; Tab goes on to the next control.
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setContextMenuPolicy(Qt::CustomContextMenu);

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
    QHeaderView& titles = *horizontalHeader();
    titles.setTextElideMode(Qt::ElideRight);
    titles.setHighlightSections(false);
    titles.setSectionsMovable(true);
    titles.setMinimumSectionSize(kCellMargin + kSortMarkRoom);
    titles.setSortIndicator(-1, Qt::AscendingOrder);
    titles.setSortIndicatorClearable(true);
    setSortingEnabled(true);
    connect(&titles, &QHeaderView::sectionResized, this,
            [this] { m_userHasSized = m_userHasSized || !m_isFitting; });
    MakeActions();
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        auto* menu = new QMenu(this); // deletes itself when it closes
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addActions(actions());
        menu->popup(viewport()->mapToGlobal(position));
    });
}

QAction* ListView::AddAction(const char* key, const char* defaultText, const QKeySequence& shortcut,
                             const std::function<void()>& action)
{
    auto* entry = new QAction(DialogMessage(key, defaultText), this);
    entry->setObjectName(QString::fromUtf8(key));
    entry->setShortcut(shortcut);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, action);
    addAction(entry);
    return entry;
}

void ListView::MakeActions()
{
    const auto separate = [this] {
        auto* line = new QAction(this);
        line->setSeparator(true);
        addAction(line);
    };
    AddAction("List.Copy", "@Copy with column titles", QKeySequence::Copy,
              [this] { CopySelection(0); });
    AddAction("List.CopyPlain", "@Copy cells alone", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
              [this] { CopySelection(1); });
    AddAction("List.SelectAll", "@Select all", QKeySequence::SelectAll, [this] { selectAll(); });
    separate();
    AddAction("List.Filter", "@Find rows", QKeySequence::Find, [this] { onFind(); });
    AddAction("List.SortUp", "@Sort upwards by this column", QKeySequence(Qt::CTRL | Qt::Key_Up),
              [this] { SortByCurrentColumn(Qt::AscendingOrder); });
    AddAction("List.SortDown", "@Sort downwards by this column",
              QKeySequence(Qt::CTRL | Qt::Key_Down),
              [this] { SortByCurrentColumn(Qt::DescendingOrder); });
    AddAction("List.SortNone", "@Order as delivered", QKeySequence(Qt::CTRL | Qt::Key_0),
              [this] { sortByColumn(-1, Qt::AscendingOrder); });
    separate();
    AddAction("List.Export", "@Export to CSV...", QKeySequence(Qt::CTRL | Qt::Key_E),
              [this] { onExport(); });
}

void ListView::SortByCurrentColumn(Qt::SortOrder order)
{
    sortByColumn(m_currentColumn, order);
}

void ListView::SetVisibleLines(int lines)
{
    m_visibleLines = std::max(lines, 1);
    updateGeometry();
}

void ListView::SetVisibleCharacters(int characters)
{
    m_visibleCharacters = std::max(characters, 1);
    updateGeometry();
}

void ListView::SetEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

QSize ListView::sizeHint() const
{
    const int lines = horizontalHeader()->sizeHint().height() +
                      m_visibleLines * verticalHeader()->defaultSectionSize() + 2 * frameWidth() +
                      kRowMargin;
    return {m_visibleCharacters * fontMetrics().averageCharWidth(), lines};
}

QSize ListView::minimumSizeHint() const
{
    const int lines = std::min(m_visibleLines, kLeastLines);
    return {std::min(m_visibleCharacters, kLeastCharacters) * fontMetrics().averageCharWidth(),
            sizeHint().height() -
                (m_visibleLines - lines) * verticalHeader()->defaultSectionSize()};
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    NoteSelectedRow();
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    NoteSelectedRow();
}

void ListView::NoteSelectedRow()
{
    const QModelIndex current = currentIndex();
    if (current.isValid()) {
        m_currentColumn = current.column();
    }
    // A list that is merely entered has a current cell and no selected one. A row that is filtered
    // away has neither and is remembered.
    if (!current.isValid() || !selectionModel()->isSelected(current)) {
        return;
    }
    const int row = m_model.OwnerRow(current.row());
    if (row != m_currentRow) {
        m_currentRow = row;
        if (onRowSelected) {
            onRowSelected(row);
        }
    }
}

void ListView::SelectOwnerRow(int row)
{
    const Quiet quiet;
    m_held.reset();
    m_currentRow = row;
    const int place = row < 0 ? -1 : m_model.PlaceOf(row);
    if (place < 0) {
        selectionModel()->clear();
        return;
    }
    const QModelIndex cell = m_model.index(place, m_currentColumn);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
    scrollTo(cell);
}

void ListView::ForgetSelection()
{
    const Quiet quiet;
    m_held.reset();
    m_currentRow = -1;
    m_currentColumn = 0;
    selectionModel()->clear();
}

void ListView::HoldSelection()
{
    if (m_held) {
        return; // of rows that are gone already
    }
    const ListCells& cells = m_model.Cells();
    const auto row = static_cast<std::size_t>(m_currentRow);
    m_held = {m_currentRow, cells.RowCount(), std::string(cells.Text(row, 0))};
    m_currentRow = -1;
}

void ListView::TakeUpSelection()
{
    if (!m_held) {
        return;
    }
    const ListCells& cells = m_model.Cells();
    if (cells.RowCount() == m_held->rowCount &&
        cells.Text(static_cast<std::size_t>(m_held->row), 0) == m_held->firstCell) {
        m_currentRow = m_held->row;
        m_held.reset();
    } else {
        ForgetSelection();
    }
}

void ListView::Refresh(bool hasChanged)
{
    if (hasChanged) {
        TakeUpSelection();
        FitColumns();
    }
    const int place = m_currentRow < 0 ? -1 : m_model.PlaceOf(m_currentRow);
    if (place >= 0 && place != currentIndex().row()) {
        SelectOwnerRow(m_currentRow);
    }
    viewport()->update();
}

std::vector<std::size_t> ListView::RowsToMeasure(std::size_t column) const
{
    const ListCells& cells = m_model.Cells();
    std::vector<std::size_t> rows(std::min(cells.RowCount(), kSampledRows));
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    const std::size_t count = std::min(rows.size(), kMeasuredTexts);
    // A letter in bold is about a fifth wider.
    const auto weight = [&](std::size_t row) {
        return cells.Text(row, column).size() * (m_model.IsBold(row, column) ? 6 : 5);
    };
    std::ranges::partial_sort(rows, rows.begin() + static_cast<std::ptrdiff_t>(count),
                              std::greater<>(), weight);
    rows.resize(count);
    return rows;
}

int ListView::FittingWidth(int column) const
{
    const QFontMetrics usual = fontMetrics();
    QFont boldFont = font();
    boldFont.setBold(true);
    const QFontMetrics bold(boldFont);
    const QString title = m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    // An advance is rounded, and may be a part of a pixel short of what is painted.
    constexpr int kRounding = 1;
    int width = usual.horizontalAdvance(title) + kRounding + kSortMarkRoom;
    const auto index = static_cast<std::size_t>(column);
    for (const std::size_t row : RowsToMeasure(index)) {
        const QFontMetrics& metrics = m_model.IsBold(row, index) ? bold : usual;
        const QString text = ToQt(m_model.Cells().Text(row, index));
        width = std::max(width, metrics.horizontalAdvance(text) + kRounding);
    }
    const int character = usual.horizontalAdvance(QLatin1Char('0'));
    return std::clamp(width, kNarrowestCharacters * character, kWidestCharacters * character) +
           kCellMargin;
}

void ListView::FitColumns()
{
    if (m_userHasSized || m_model.columnCount() == 0) {
        return;
    }
    m_isFitting = true;
    for (int column = 0; column < m_model.columnCount(); ++column) {
        setColumnWidth(column, FittingWidth(column));
    }
    m_lastColumnFit = columnWidth(horizontalHeader()->logicalIndex(m_model.columnCount() - 1));
    m_isFitting = false;
    FillWidth();
}

void ListView::FillWidth()
{
    if (m_userHasSized || m_model.columnCount() == 0) {
        return;
    }
    const int last = horizontalHeader()->logicalIndex(m_model.columnCount() - 1);
    if (m_model.IsNumberColumn(last)) {
        return; // numbers far at the right could no longer be read across with the other columns
    }
    m_isFitting = true;
    const int others = horizontalHeader()->length() - columnWidth(last);
    setColumnWidth(last, std::max(m_lastColumnFit, viewport()->width() - others));
    m_isFitting = false;
}

void ListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    FillWidth();
}

bool ListView::event(QEvent* event)
{
    const bool isDone = QTableView::event(event);
    // Who goes through a window by Tab sees where the keys go, also while a list is empty.
    if (event->type() == QEvent::Paint && hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return isDone;
}

bool ListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex cell = indexAt(help->pos());
        if (cell.isValid()) {
            const QString text = cell.data(Qt::DisplayRole).toString();
            const QString more = cell.data(Qt::ToolTipRole).toString();
            const QVariant cellFont = cell.data(Qt::FontRole);
            const QFontMetrics metrics(cellFont.isValid() ? cellFont.value<QFont>() : font());
            QStringList lines;
            if (metrics.horizontalAdvance(text) >= columnWidth(cell.column()) - kCellMargin) {
                lines.append(text);
            }
            if (!more.isEmpty()) {
                lines.append(more);
            }
            QToolTip::showText(help->globalPos(), AsTooltip(lines.join(QLatin1Char('\n'))),
                               viewport(), visualRect(cell));
            return true;
        }
    }
    return QTableView::viewportEvent(event);
}

QString ListView::TextInPlaceOfRows() const
{
    if (m_model.rowCount() > 0) {
        return {};
    }
    return m_model.Cells().RowCount() == 0
               ? m_emptyText
               : DialogMessage("List.NoMatch", "@No row holds \"/p1\".", {ToQt(m_model.Filter())});
}

void ListView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    const QString text = TextInPlaceOfRows();
    if (!text.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(QuietColour());
        painter.drawText(viewport()->rect().adjusted(kCellMargin, 0, -kCellMargin, 0),
                         static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap),
                         text);
    }
}

std::vector<int> ListView::ColumnsAsShown() const
{
    std::vector<int> columns;
    for (int place = 0; place < m_model.columnCount(); ++place) {
        columns.push_back(horizontalHeader()->logicalIndex(place));
    }
    return columns;
}

ListLine ListView::TitlesOf(const std::vector<int>& columns) const
{
    ListLine titles;
    for (const int column : columns) {
        titles.push_back(m_model.Titles()[column + 1].View());
    }
    return titles;
}

bool ListView::GiveShown(const TakeLine& take) const
{
    const std::vector<int> columns = ColumnsAsShown();
    bool isTaken = take(TitlesOf(columns));
    ListLine line(columns.size());
    for (int place = 0; isTaken && place < m_model.rowCount(); ++place) {
        const auto row = static_cast<std::size_t>(m_model.OwnerRow(place));
        std::ranges::transform(columns, line.begin(), [&](int column) {
            return m_model.Cells().Text(row, static_cast<std::size_t>(column));
        });
        isTaken = take(line);
    }
    return isTaken;
}

void ListView::GiveSelected(const TakeLine& take) const
{
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) {
        return;
    }
    std::vector<bool> columnIsIn(static_cast<std::size_t>(m_model.columnCount()), false);
    std::vector<bool> placeIsIn(static_cast<std::size_t>(m_model.rowCount()), false);
    for (const QItemSelectionRange& range : selection) {
        for (int column = range.left(); column <= range.right(); ++column) {
            columnIsIn[static_cast<std::size_t>(column)] = true;
        }
        for (int place = range.top(); place <= range.bottom(); ++place) {
            placeIsIn[static_cast<std::size_t>(place)] = true;
        }
    }
    std::vector<int> columns = ColumnsAsShown();
    std::erase_if(columns,
                  [&](int column) { return !columnIsIn[static_cast<std::size_t>(column)]; });
    bool isTaken = take(TitlesOf(columns));
    ListLine line(columns.size());
    for (int place = 0; isTaken && place < m_model.rowCount(); ++place) {
        if (!placeIsIn[static_cast<std::size_t>(place)]) {
            continue;
        }
        const auto row = static_cast<std::size_t>(m_model.OwnerRow(place));
        std::ranges::transform(columns, line.begin(), [&](int column) {
            // One block of cells is selected as a whole; only several can leave gaps.
            const bool isIn =
                selection.size() == 1 || selection.contains(m_model.index(place, column));
            return isIn ? m_model.Cells().Text(row, static_cast<std::size_t>(column))
                        : std::string_view();
        });
        isTaken = take(line);
    }
}

void ListView::CopySelection(std::size_t linesToSkip) const
{
    std::string text;
    GiveSelected([&](const ListLine& line) {
        if (linesToSkip > 0) {
            --linesToSkip;
        } else {
            text += text.empty() ? "" : "\n";
            AppendTabbedLine(text, line);
        }
        return true;
    });
    QApplication::clipboard()->setText(QString::fromStdString(text));
}

ListBox::ListBox(QWidget* parent, ListModel& model)
    : QWidget(parent),
      m_model(model),
      m_filterRow(new QWidget(this)),
      m_filter(new QLineEdit(m_filterRow)),
      m_count(new QLabel(m_filterRow)),
      m_view(new ListView(this, model))
{
    auto* line = new QHBoxLayout(m_filterRow);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_filter, 1);
    line->addWidget(m_count);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addWidget(m_filterRow);
    rows->addWidget(m_view, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    m_filter->setPlaceholderText(DialogMessage("List.Filter", "@Find rows"));
    m_filter->setAccessibleName(DialogMessage("List.Filter", "@Find rows"));
    m_filter->setToolTip(DialogMessage("List.FilterHint", "@Shows the rows that hold every word."));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_filterRow->hide();
    connect(m_filter, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_model.SetFilter(FromQt(text)); });
    m_view->onFind = [this] {
        ShowFilter();
    };
}

void ListBox::SetFilterName(const QString& objectName)
{
    m_filter->setObjectName(objectName);
}

void ListBox::ShowFilter()
{
    m_isAskedFor = true;
    m_filterRow->show();
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

void ListBox::Refresh(bool hasChanged)
{
    m_view->Refresh(hasChanged);
    m_filterRow->setVisible(m_isAskedFor || m_model.IsFiltered() ||
                            m_model.Cells().RowCount() > kRowsWithoutFilter);
    const QStringList counts{QString::number(m_model.rowCount()),
                             QString::number(m_model.Cells().RowCount())};
    m_count->setVisible(m_model.IsFiltered());
    m_count->setText(m_model.IsFiltered()
                         ? DialogMessage("List.FilterCount", "@/p1 of /p2 rows", counts)
                         : QString());
}

bool ListBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            // Esc leaves the filter, not the window.
            m_isAskedFor = false;
            m_filter->clear();
            m_view->setFocus(Qt::OtherFocusReason);
            Refresh(false);
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_view->setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
