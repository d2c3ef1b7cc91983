#pragma once

#include "CATDocument.h"
#include "CATProductTree.h"

/// A product document over a source.
class CATProductDocumentImpl : public CATProductDocument
{
public:
    CATProductDocumentImpl(std::shared_ptr<CATProductSource> source, const CATProductRow& root,
                           CATUnicodeString environment);
    const char* ClassName() const override;

    long GetIdentifier(CATUnicodeString& identifier) const override;
    long GetStorageEnvironment(CATUnicodeString& environment) const override;
    CATIProduct_var GetRoot() override;
    CATIProduct_var FindProduct(const CATListValCATUnicodeString& instanceNames) override;

    CATProductTree& Tree() { return m_tree; }

private:
    CATProductTree m_tree;
    CATUnicodeString m_identifier;
    CATUnicodeString m_environment;
};
