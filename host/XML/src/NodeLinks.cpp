#include "NodeLinks.h"

#include <algorithm>

namespace
{

// Room between two siblings for others; 2^43 of them can be put in front of or behind the rest.
constexpr std::int64_t kOrderStep = std::int64_t{1} << 20U;

int AncestorCount(const NodeLinks* node)
{
    int count = 0;
    for (; node->parent != nullptr; node = node->parent) {
        ++count;
    }
    return count;
}

void RenumberChildren(const NodeLinks& parent)
{
    std::int64_t order = 0;
    for (NodeLinks* child = parent.first; child != nullptr; child = child->next) {
        child->order = order;
        order += kOrderStep;
    }
}

void GiveOrder(NodeLinks& node)
{
    if (node.previous == nullptr || node.next == nullptr) {
        node.order = node.previous != nullptr ? node.previous->order + kOrderStep
                     : node.next != nullptr   ? node.next->order - kOrderStep
                                              : 0;
        return;
    }
    node.order = node.previous->order + (node.next->order - node.previous->order) / 2;
    if (node.order == node.previous->order) {
        RenumberChildren(*node.parent);
    }
}

int ElementStep(const NodeLinks* node)
{
    return node->kind == CATDOMNodeType::Element ? 1 : 0;
}

} // namespace

bool IsInside(const NodeLinks* node, const NodeLinks* ancestor)
{
    while (node != nullptr && node != ancestor) {
        node = node->parent;
    }
    return node != nullptr;
}

bool Precedes(const NodeLinks* left, const NodeLinks* right)
{
    int ahead = AncestorCount(left) - AncestorCount(right);
    for (; ahead > 0; --ahead) {
        left = left->parent;
    }
    for (; ahead < 0; ++ahead) {
        right = right->parent;
    }
    while (left->parent != right->parent) {
        left = left->parent;
        right = right->parent;
    }
    return left->order < right->order;
}

int DepthBelow(const NodeLinks* node)
{
    int depth = 0;
    for (; node != nullptr; node = node->parent) {
        depth += ElementStep(node);
    }
    return depth;
}

int ElementHeight(const NodeLinks* node)
{
    int depth = ElementStep(node);
    int height = depth;
    const NodeLinks* at = node;
    while (true) {
        if (at->first != nullptr) {
            at = at->first;
        } else {
            while (at != node && at->next == nullptr) {
                depth -= ElementStep(at);
                at = at->parent;
            }
            if (at == node) {
                return height;
            }
            depth -= ElementStep(at);
            at = at->next;
        }
        depth += ElementStep(at);
        height = std::max(height, depth);
    }
}

void LinkNode(NodeLinks& node, NodeLinks& parent, NodeLinks* before)
{
    node.parent = &parent;
    node.next = before;
    node.previous = before != nullptr ? before->previous : parent.last;
    (node.previous != nullptr ? node.previous->next : parent.first) = &node;
    (before != nullptr ? before->previous : parent.last) = &node;
    GiveOrder(node);
}

void UnlinkNode(NodeLinks& node)
{
    (node.previous != nullptr ? node.previous->next : node.parent->first) = node.next;
    (node.next != nullptr ? node.next->previous : node.parent->last) = node.previous;
    node.parent = nullptr;
    node.previous = nullptr;
    node.next = nullptr;
}
