#include "ProductTreeView.h"

#include "ProductTreeModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
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

} // namespace

ProductTreeView::ProductTreeView(QWidget* parent)
    : QTreeView(parent), m_products(new ProductTreeModel(this))
{
    setModel(m_products);
    setItemDelegate(new RoomyRows(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideRight);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    // A node that is opened may show longer names than the ones before.
    connect(this, &QTreeView::expanded, this,
            [this] { resizeColumnToContents(ProductTreeModel::Instance); });
}

void ProductTreeView::ShowFirstLevel()
{
    const QModelIndex root = m_products->index(0, 0);
    if (!root.isValid()) {
        return;
    }
    expand(root);
    // The name takes what the others leave, so that nothing needs a scroll bar at the usual width.
    header()->setSectionResizeMode(ProductTreeModel::Name, QHeaderView::Stretch);
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
