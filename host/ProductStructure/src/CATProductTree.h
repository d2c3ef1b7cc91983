#pragma once

#include "CATProductSource.h"

#include <memory>
#include <vector>

class CATProduct;

/// One place in a document's product structure. Nodes are owned from the root down and know nothing
/// of handles; what others hold is a CATProduct, of which a node has at most one at a time.
struct CATProductNode
{
    CATProductNode(CATProductNode* parentNode, CATProductRow productRow)
        : parent(parentNode), row(std::move(productRow))
    {}

    CATProductNode* parent; ///< null for the root
    CATProductRow row;
    std::vector<std::unique_ptr<CATProductNode>> children; ///< empty until they are read
    CATProduct* product = nullptr; ///< borrowed: it takes itself out here when it goes away
};

/// The structure of one document, read from its source part by part as somebody looks.
class CATProductTree
{
public:
    CATProductTree(std::shared_ptr<CATProductSource> source, CATProductRow root);

    CATProductNode& Root() { return m_root; }
    /// The children of a node of this tree; the first call reads them.
    const std::vector<std::unique_ptr<CATProductNode>>& Children(CATProductNode& node);

private:
    std::shared_ptr<CATProductSource> m_source;
    CATProductNode m_root;
};

/// Where a node's own axes stand in those of the root. The root's own placement has no part in it.
CATMathTransformation PlacementInRoot(const CATProductNode& node);
