#include "CATProductTree.h"

CATProductTree::CATProductTree(std::shared_ptr<CATProductSource> source, CATProductRow root)
    : m_source(std::move(source)), m_root(nullptr, std::move(root))
{}

const std::vector<std::unique_ptr<CATProductNode>>& CATProductTree::Children(CATProductNode& node)
{
    // A source that gave nothing for a part that has uses has failed (the server was away): the
    // node stays as if nobody had looked, so that the next look asks again. A part without uses is
    // never asked for.
    if (node.children.empty() && node.row.hasUses) {
        for (CATProductRow& use : m_source->Uses(node.row.part, node.row.version)) {
            node.children.push_back(std::make_unique<CATProductNode>(&node, std::move(use)));
        }
    }
    return node.children;
}

CATMathTransformation PlacementInRoot(const CATProductNode& node)
{
    CATMathTransformation placement;
    for (const CATProductNode* step = &node; step->parent != nullptr; step = step->parent) {
        placement = step->row.placement * placement;
    }
    return placement;
}
