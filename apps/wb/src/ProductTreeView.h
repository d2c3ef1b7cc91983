#pragma once

#include "CATPathElement.h"

#include <QTreeView>

#include <vector>

class ProductTreeModel;

/// A product tree that the user picks in: one node by a click, several with Ctrl, Shift or a drag.
/// The pick is made when the mouse is released or Return is pressed, in the order of selection.
class ProductTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit ProductTreeView(QWidget* parent = nullptr);

    ProductTreeModel& Products() { return *m_products; }
    /// Opens the tree far enough that its first level shows, and fits the columns.
    void ShowFirstLevel();

signals:
    void Picked(const std::vector<CATPathElement_var>& paths);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void FitColumns();
    void SendPick();

    ProductTreeModel* m_products;
    std::vector<QPersistentModelIndex> m_selectionOrder;
};
