#pragma once

#include "CATBaseUnknown.h"
#include "CATIProduct.h"
#include "CATProductDocumentImpl.h"

struct CATProductNode;

/// What others hold of a product: a counted object that keeps its whole document. The document owns
/// the nodes and never the products, so the two cannot keep each other alive for good.
class CATProduct : public CATBaseUnknown,
                   public CATIProduct,
                   public CATIMovable,
                   public CATILinkableObject
{
public:
    /// The product of a node: the one that somebody holds already, so that two handles on one place
    /// are equal, or a new one.
    static CATIProduct_var Of(const CATHandle<CATProductDocumentImpl>& document,
                              CATProductNode& node);
    CATProduct(const CATProduct&) = delete;
    CATProduct& operator=(const CATProduct&) = delete;
    ~CATProduct() override;
    const char* ClassName() const override;

    CATUnicodeString GetPartNumber() const override;
    CATUnicodeString GetPartVersion() const override;
    CATUnicodeString GetInstanceName() const override;
    CATUnicodeString GetPartName() const override;
    int GetQuantity() const override;
    CATHandle<CATIProduct> GetParent() const override;
    bool HasChildren() const override;
    int GetChildCount() const override;
    CATHandle<CATIProduct> GetChild(int position) const override;

    CATMathTransformation GetAbsoluteTransformation() const override;

    CATUnicodeString GetType() const override;
    CATHandle<CATDocument> GetDocument() const override;

private:
    CATProduct(const CATHandle<CATProductDocumentImpl>& document, CATProductNode& node);

    CATHandle<CATProductDocumentImpl> m_document;
    CATProductNode& m_node; // owned by the document, which this product keeps
};
