#include "ProductTreeView.h"

#include "ProductTreeModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QStyledItemDelegate>

#include <algorithm>

namespace
{

/// Rows with a little air, so that they are easy to hit and to tell apart.
class RoomyRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        constexpr int kAir = 6;
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kAir);
    }
};

/// Columns with room between them, so that a number and the text behind it do not run together.
class RoomyColumns : public QProxyStyle
{
public:
    RoomyColumns() : QProxyStyle(QStringLiteral("Fusion")) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        constexpr int kPadding = 6;
        switch (metric) {
        case PM_HeaderMargin:
            return kPadding;
        case PM_FocusFrameHMargin: // the style adds one pixel of its own beside a cell's text
            return kPadding - 1;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element != PE_IndicatorBranch || (option->state & State_Selected) == 0) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        // The arrow of a selected row is as bright as the row's text: a dark one is hardly seen.
        QStyleOption bright(*option);
        bright.palette.setColor(QPalette::WindowText,
                                option->palette.color(QPalette::HighlightedText));
        QProxyStyle::drawPrimitive(element, &bright, painter, widget);
    }
};

} // namespace

ProductTreeView::ProductTreeView(QWidget* parent)
    : QTreeView(parent), m_products(new ProductTreeModel(this))
{
    setModel(m_products);
    setItemDelegate(new RoomyRows(this));
    auto* columnStyle = new RoomyColumns;
    columnStyle->setParent(this);
    setStyle(columnStyle);
    header()->setStyle(columnStyle);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    // A row is picked as a whole: the keyboard's frame goes around all of it.
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideRight);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    // A node that is opened may show longer texts than the ones before.
    connect(this, &QTreeView::expanded, this, &ProductTreeView::FitColumns);
}

void ProductTreeView::ShowFirstLevel()
{
    const QModelIndex root = m_products->index(0, 0);
    if (!root.isValid()) {
        return;
    }
    expand(root);
    FitColumns();
}

void ProductTreeView::FitColumns()
{
    // The name, the last one, takes what the others leave: nothing needs a scroll bar at the usual
    // width, and the numbers stay near the parts that they belong to on a wide screen.
    for (const int column : {ProductTreeModel::Instance, ProductTreeModel::Part,
                             ProductTreeModel::Version, ProductTreeModel::Pieces}) {
        resizeColumnToContents(column);
    }
}

void ProductTreeView::selectionChanged(const QItemSelection& selected,
                                       const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    std::erase_if(m_selectionOrder, [this](const QPersistentModelIndex& index) {
        return !index.isValid() || !selectionModel()->isSelected(index);
    });
    for (const QModelIndex& index : selected.indexes()) {
        if (index.column() == 0) {
            m_selectionOrder.emplace_back(index);
        }
    }
}

void ProductTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    // A click on the arrow that opens a node, or beside all rows, picks nothing.
    const QModelIndex under = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && under.isValid() &&
        selectionModel()->isSelected(under)) {
        SendPick();
    }
}

void ProductTreeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        SendPick();
        return;
    }
    QTreeView::keyPressEvent(event);
}

void ProductTreeView::SendPick()
{
    std::vector<CATPathElement_var> paths;
    for (const QPersistentModelIndex& index : m_selectionOrder) {
        paths.push_back(m_products->PathOf(index));
    }
    if (!paths.empty()) {
        emit Picked(paths);
    }
}
