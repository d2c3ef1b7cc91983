#include "CATProduct.h"
#include "CATProductDocumentImpl.h"

#include <algorithm>

namespace
{
/// Two versions of a product may be open side by side, so the version belongs to the name.
CATUnicodeString DocumentName(const CATProductRow& root)
{
    if (root.version.IsEmpty()) {
        return root.part;
    }
    return root.part + " " + root.version;
}

/// A text that may be missing, the way documents tell theirs.
long Tell(const CATUnicodeString& text, CATUnicodeString& output)
{
    if (text.IsEmpty()) {
        return E_FAIL;
    }
    output = text;
    return S_OK;
}
} // namespace

CATHandle<CATProductDocument> CATProductDocument::Open(std::shared_ptr<CATProductSource> source,
                                                       const CATProductRow& root,
                                                       const CATUnicodeString& environment)
{
    if (source == nullptr) {
        return {};
    }
    // Counted: its last handle frees it.
    return CATProductDocument_var::Adopt(
        new CATProductDocumentImpl(std::move(source), root, environment));
}

CATProductDocumentImpl::CATProductDocumentImpl(std::shared_ptr<CATProductSource> source,
                                               const CATProductRow& root,
                                               CATUnicodeString environment)
    : m_tree(std::move(source), root),
      m_identifier(DocumentName(root)),
      m_environment(std::move(environment))
{}

const char* CATProductDocumentImpl::ClassName() const
{
    return "CATProductDocument";
}

long CATProductDocumentImpl::GetIdentifier(CATUnicodeString& identifier) const
{
    return Tell(m_identifier, identifier);
}

long CATProductDocumentImpl::GetStorageEnvironment(CATUnicodeString& environment) const
{
    return Tell(m_environment, environment);
}

CATIProduct_var CATProductDocumentImpl::GetRoot()
{
    return CATProduct::Of(CATHandle<CATProductDocumentImpl>(this), m_tree.Root());
}

CATIProduct_var CATProductDocumentImpl::FindProduct(const CATListValCATUnicodeString& instanceNames)
{
    CATProductNode* node = &m_tree.Root();
    for (const CATUnicodeString& name : instanceNames.Items()) {
        const auto& children = m_tree.Children(*node);
        const auto child = std::ranges::find_if(
            children, [&name](const auto& candidate) { return candidate->row.instance == name; });
        if (child == children.end()) {
            return {};
        }
        node = child->get();
    }
    return CATProduct::Of(CATHandle<CATProductDocumentImpl>(this), *node);
}
