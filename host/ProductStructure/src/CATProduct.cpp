#include "CATProduct.h"

#include "CATProductTree.h"

CATIProduct_var CATProduct::Of(const CATHandle<CATProductDocumentImpl>& document,
                               CATProductNode& node)
{
    if (node.product != nullptr) {
        return {node.product};
    }
    return CATIProduct_var::Adopt(
        new CATProduct(document, node)); // counted: its last handle frees it
}

CATProduct::CATProduct(const CATHandle<CATProductDocumentImpl>& document, CATProductNode& node)
    : m_document(document), m_node(node)
{
    m_node.product = this;
}

CATProduct::~CATProduct()
{
    // Before the document is let go, which may take the node with it.
    m_node.product = nullptr;
}

const char* CATProduct::ClassName() const
{
    return "CATProduct";
}

CATUnicodeString CATProduct::GetPartNumber() const
{
    return m_node.row.part;
}

CATUnicodeString CATProduct::GetPartVersion() const
{
    return m_node.row.version;
}

CATUnicodeString CATProduct::GetInstanceName() const
{
    return m_node.parent == nullptr ? m_node.row.part : m_node.row.instance;
}

CATUnicodeString CATProduct::GetPartName() const
{
    return m_node.row.name;
}

int CATProduct::GetQuantity() const
{
    return m_node.row.quantity;
}

CATHandle<CATIProduct> CATProduct::GetParent() const
{
    return m_node.parent == nullptr ? CATIProduct_var() : Of(m_document, *m_node.parent);
}

bool CATProduct::HasChildren() const
{
    return m_node.row.hasUses;
}

int CATProduct::GetChildCount() const
{
    return static_cast<int>(m_document->Tree().Children(m_node).size());
}

CATHandle<CATIProduct> CATProduct::GetChild(int position) const
{
    const auto& children = m_document->Tree().Children(m_node);
    if (position < 1 || position > static_cast<int>(children.size())) {
        return {};
    }
    return Of(m_document, *children[static_cast<std::size_t>(position) - 1]);
}

CATMathTransformation CATProduct::GetAbsoluteTransformation() const
{
    return PlacementInRoot(m_node);
}

CATUnicodeString CATProduct::GetType() const
{
    return "ASMPRODUCT";
}

CATHandle<CATDocument> CATProduct::GetDocument() const
{
    return m_document;
}
