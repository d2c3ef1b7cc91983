#pragma once

#include "CATIDOMNode.h"

#include <cstdint>

class DomDocument;
class LiveList;

/// How a node stands in its tree; every node but an attribute has this beside its interface.
struct NodeLinks
{
    NodeLinks(DomDocument& owner, CATDOMNodeType type, std::uint32_t nodeName)
        : document(&owner), name(nodeName), kind(type)
    {}

    DomDocument* document;
    NodeLinks* parent = nullptr;
    NodeLinks* previous = nullptr;
    NodeLinks* next = nullptr;
    NodeLinks* first = nullptr; // of the children
    NodeLinks* last = nullptr;
    LiveList* childLists = nullptr; // the lists of this node's children
    std::int64_t order = 0;         // grows from sibling to sibling
    std::uint32_t name;             // number of the element's name or the instruction's target
    CATDOMNodeType kind;
};

/// The number that stands for a name where a node has none.
inline constexpr std::uint32_t kNoName = 0xffffffffU;

/// The first node behind this one and all that it holds, in document order and inside `root`; null
/// at the end.
inline NodeLinks* NextBehind(const NodeLinks* node, const NodeLinks* root)
{
    while (node != root) {
        if (node->next != nullptr) {
            return node->next;
        }
        node = node->parent;
    }
    return nullptr;
}

/// The next node in document order inside `root`; null at the end.
inline NodeLinks* NextInOrder(const NodeLinks* node, const NodeLinks* root)
{
    return node->first != nullptr ? node->first : NextBehind(node, root);
}

/// The node inside `root` that is last in document order; `root` itself when it is empty.
inline NodeLinks* LastInOrder(NodeLinks* root)
{
    while (root->last != nullptr) {
        root = root->last;
    }
    return root;
}

/// The node before this one in document order; the parent of a first child.
inline NodeLinks* PreviousInOrder(const NodeLinks* node)
{
    return node->previous != nullptr ? LastInOrder(node->previous) : node->parent;
}

/// Whether `node` is `ancestor` or stands inside it.
bool IsInside(const NodeLinks* node, const NodeLinks* ancestor);

/// Whether `left` comes before `right` in document order. Both stand in one tree, neither inside
/// the other.
bool Precedes(const NodeLinks* left, const NodeLinks* right);

/// How many elements stand around a child of this node, this one included.
int DepthBelow(const NodeLinks* node);

/// How many elements stand in one another at most from this node down, itself included.
int ElementHeight(const NodeLinks* node);

/// Puts a node that stands nowhere before a child of `parent`; before null means behind the last.
void LinkNode(NodeLinks& node, NodeLinks& parent, NodeLinks* before);
/// Takes a node out from its parent.
void UnlinkNode(NodeLinks& node);
