#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATHandle.h"
#include "CATProductSource.h"
#include "CATUnicodeString.h"

#include <functional>
#include <memory>
#include <vector>

/// Something with named text attributes.
class WB_EXPORT CATISpecAttrAccess
{
public:
    virtual ~CATISpecAttrAccess();
    /// S_OK and the text, S_FALSE with the output untouched when there is no such attribute.
    virtual long GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const = 0;
};
using CATISpecAttrAccess_var = CATHandle<CATISpecAttrAccess>;

/// A node of the navigator's tree: the root or an item instance below it. Attributes: "Type"
/// ("ENOVIA_VPMItem" for the root, "ENOVIA_VPMItemInstance" below), "V_ID" (the part), "V_version",
/// "V_Name", "Instance".
class WB_EXPORT CATNavigatorNode : public CATBaseUnknown, public CATISpecAttrAccess
{
public:
    const char* ClassName() const override;
    long GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const override;

    const CATProductRow& Row() const { return m_row; }
    /// Null for the root.
    CATNavigatorNode* Parent() const { return m_parent; }
    bool IsRoot() const { return m_parent == nullptr; }
    /// Read from the server when first asked for.
    const std::vector<CATHandle<CATNavigatorNode>>& Children();
    /// The names of root and instances, root first.
    CATListValCATUnicodeString PathNames() const;

private:
    friend class CATNavigator;
    CATNavigatorNode(std::shared_ptr<CATProductSource> source, CATNavigatorNode* parent, CATProductRow row);

    std::shared_ptr<CATProductSource> m_source;
    CATNavigatorNode* m_parent; // the root keeps the tree alive
    CATProductRow m_row;
    bool m_read = false;
    std::vector<CATHandle<CATNavigatorNode>> m_children;
};
using CATNavigatorNode_var = CATHandle<CATNavigatorNode>;

/// The navigator's current root: what the user has open in the navigator workshop.
class WB_EXPORT CATNavigator
{
public:
    /// The server's products as a source (methods "WBListRoots" and "WBListUses"). A call that
    /// fails gives no rows; the sentence that the server answered is told to ReportProblemsTo.
    static std::shared_ptr<CATProductSource> ServerSource();
    /// Opens a root of that source; replaces the one that was open.
    static CATNavigatorNode_var Open(std::shared_ptr<CATProductSource> source, const CATProductRow& root);
    static CATNavigatorNode_var CurrentRoot();
    static void Close();
    /// Who is told, as a sentence, that products could not be read.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);
    /// The node at instance names from the root down (the root itself not among them), or null.
    static CATNavigatorNode_var Find(const CATListValCATUnicodeString& instanceNames);
};
