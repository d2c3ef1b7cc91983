#include "ProductTreeModel.h"

#include "CATIProduct.h"
#include "CATNavigator.h"
#include "QtTexts.h"

#include <QBrush>
#include <QFont>
#include <QPalette>

#include <algorithm>

ProductTreeSource NavigatorTreeSource()
{
    return {CATNavigator::CurrentRoot(),
            [](const CATBaseUnknown_var& object) { return CATNavigatorNode_var(object)->Row(); },
            [](const CATBaseUnknown_var& object) {
                const auto& children = CATNavigatorNode_var(object)->Children();
                return std::vector<CATBaseUnknown_var>(children.begin(), children.end());
            }};
}

namespace
{

CATProductRow RowOfProduct(const CATBaseUnknown_var& object)
{
    const CATIProduct_var product = object;
    CATProductRow row;
    row.instance = product->GetInstanceName();
    row.part = product->GetPartNumber();
    row.version = product->GetPartVersion();
    row.name = product->GetPartName();
    row.quantity = product->GetQuantity();
    row.hasUses = product->HasChildren();
    return row;
}

std::vector<CATBaseUnknown_var> ChildrenOfProduct(const CATBaseUnknown_var& object)
{
    const CATIProduct_var product = object;
    std::vector<CATBaseUnknown_var> children;
    for (int position = 1; position <= product->GetChildCount(); ++position) {
        children.emplace_back(product->GetChild(position));
    }
    return children;
}

} // namespace

ProductTreeSource DocumentTreeSource(const CATBaseUnknown_var& rootProduct)
{
    return {rootProduct, RowOfProduct, ChildrenOfProduct};
}

struct ProductTreeModel::Node
{
    Node* parent = nullptr;
    int position = 0; // among the parent's children, from 0
    CATBaseUnknown_var object;
    CATProductRow row;
    bool read = false;
    std::vector<std::unique_ptr<Node>> children;
};

ProductTreeModel::ProductTreeModel(QObject* parent) : QAbstractItemModel(parent)
{}

ProductTreeModel::~ProductTreeModel() = default;

void ProductTreeModel::SetSource(ProductTreeSource source)
{
    beginResetModel();
    m_source = std::move(source);
    m_root.reset();
    if (!m_source.root.IsNull()) {
        m_root = std::make_unique<Node>();
        m_root->object = m_source.root;
        m_root->row = m_source.rowOf(m_source.root);
    }
    endResetModel();
}

ProductTreeModel::Node* ProductTreeModel::NodeOf(const QModelIndex& index) const
{
    return static_cast<Node*>(index.internalPointer());
}

CATPathElement_var ProductTreeModel::PathOf(const QModelIndex& index) const
{
    std::vector<CATBaseUnknown_var> objects;
    for (const Node* node = NodeOf(index); node != nullptr; node = node->parent) {
        objects.push_back(node->object);
    }
    if (objects.empty()) {
        return {};
    }
    std::reverse(objects.begin(), objects.end());
    return CATPathElement_var::Adopt(new CATPathElement(std::move(objects)));
}

QModelIndex ProductTreeModel::Find(const std::vector<QString>& names)
{
    QModelIndex current = index(0, 0);
    for (const QString& name : names) {
        if (canFetchMore(current)) {
            fetchMore(current);
        }
        QModelIndex found;
        for (int row = 0; row < rowCount(current) && !found.isValid(); ++row) {
            const QModelIndex child = index(row, 0, current);
            if (ToQString(NodeOf(child)->row.instance) == name) {
                found = child;
            }
        }
        if (!found.isValid()) {
            return {};
        }
        current = found;
    }
    return current;
}

QModelIndex ProductTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    Node* node = parent.isValid() ? NodeOf(parent)->children[static_cast<std::size_t>(row)].get()
                                  : m_root.get();
    return createIndex(row, column, node);
}

QModelIndex ProductTreeModel::parent(const QModelIndex& child) const
{
    const Node* node = NodeOf(child);
    if (node == nullptr || node->parent == nullptr) {
        return {};
    }
    return createIndex(node->parent->position, 0, node->parent);
}

int ProductTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return m_root ? 1 : 0;
    }
    return parent.column() == 0 ? static_cast<int>(NodeOf(parent)->children.size()) : 0;
}

int ProductTreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ColumnCount;
}

bool ProductTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return m_root != nullptr;
    }
    const Node* node = NodeOf(parent);
    return parent.column() == 0 && (node->read ? !node->children.empty() : node->row.hasUses);
}

bool ProductTreeModel::canFetchMore(const QModelIndex& parent) const
{
    return parent.isValid() && !NodeOf(parent)->read && NodeOf(parent)->row.hasUses;
}

void ProductTreeModel::fetchMore(const QModelIndex& parent)
{
    if (!canFetchMore(parent)) {
        return;
    }
    Node* node = NodeOf(parent);
    node->read = true;
    const std::vector<CATBaseUnknown_var> objects = m_source.childrenOf(node->object);
    if (objects.empty()) {
        return;
    }
    beginInsertRows(parent, 0, static_cast<int>(objects.size()) - 1);
    for (const CATBaseUnknown_var& object : objects) {
        auto child = std::make_unique<Node>();
        child->parent = node;
        child->position = static_cast<int>(node->children.size());
        child->object = object;
        child->row = m_source.rowOf(object);
        node->children.push_back(std::move(child));
    }
    endInsertRows();
}

QVariant ProductTreeModel::data(const QModelIndex& index, int role) const
{
    const Node* node = NodeOf(index);
    if (node == nullptr) {
        return {};
    }
    if (role == Qt::TextAlignmentRole && index.column() == Pieces) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (index.column()) {
    case Instance:
        return ToQString(node->row.instance);
    case Part:
        return ToQString(node->row.part);
    case Version:
        return ToQString(node->row.version);
    case Name:
        return ToQString(node->row.name);
    case Pieces:
        return node->row.quantity;
    default:
        return {};
    }
}

QVariant ProductTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole && section == Pieces) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case Instance:
        return tr("Instance");
    case Part:
        return tr("Part");
    case Version:
        return tr("Version");
    case Name:
        return tr("Name");
    case Pieces:
        return tr("Pieces");
    default:
        return {};
    }
}
