#pragma once

#include "CATBaseUnknown.h"
#include "CATHandle.h"
#include "CATPathElement.h"
#include "CATProductSource.h"

#include <QAbstractItemModel>

#include <functional>
#include <memory>
#include <vector>

/// What a product tree shows: the navigator's nodes or a document's products. Objects are asked for
/// their children when the user opens them.
struct ProductTreeSource
{
    CATBaseUnknown_var root; ///< null: an empty tree
    std::function<CATProductRow(const CATBaseUnknown_var&)> rowOf;
    std::function<std::vector<CATBaseUnknown_var>(const CATBaseUnknown_var&)> childrenOf;
};

/// The navigator's current root as a tree.
ProductTreeSource NavigatorTreeSource();
/// The products of a document (a CATIProduct) as a tree.
ProductTreeSource DocumentTreeSource(const CATBaseUnknown_var& rootProduct);

/// The model behind a product tree; children are read when a node is opened.
class ProductTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        Instance,
        Part,
        Version,
        Pieces,
        Name,
        ColumnCount
    };

    explicit ProductTreeModel(QObject* parent = nullptr);
    ~ProductTreeModel() override;

    void SetSource(ProductTreeSource source);
    /// The path from the root to the node, null for no node.
    CATPathElement_var PathOf(const QModelIndex& index) const;
    /// The node at instance names below the root; opens what it passes. Invalid when there is none.
    QModelIndex Find(const std::vector<QString>& names);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Node;
    Node* NodeOf(const QModelIndex& index) const;

    ProductTreeSource m_source;
    std::unique_ptr<Node> m_root;
};
