#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATHandle.h"
#include "CATProductSource.h"
#include "CATStatus.h"
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
/// A node that is held keeps its parents up to the root. When the navigator closes the root or
/// opens another, the nodes leave it: one that is still held keeps its row, its parents and its
/// path, and has no children any more.
class WB_EXPORT CATNavigatorNode : public CATBaseUnknown, public CATISpecAttrAccess
{
public:
    const char* ClassName() const override;
    long GetString(const CATUnicodeString& attribute, CATUnicodeString& value) const override;

    const CATProductRow& Row() const { return m_row; }
    /// Null for the root.
    CATNavigatorNode* Parent() const { return m_parent.Get(); }
    bool IsRoot() const { return m_parent.IsNull(); }
    /// Read from the source when first asked for; Row().hasUses tells without reading. Where the
    /// source gives none although there are some (the server was away), the next call asks again.
    const std::vector<CATHandle<CATNavigatorNode>>& Children();
    /// The root's part number and the instance names below it, root first.
    CATListValCATUnicodeString PathNames() const;

private:
    friend class CATNavigator;
    friend class CATNavigatorSession;
    CATNavigatorNode(std::shared_ptr<CATProductSource> source, CATNavigatorNode* parent,
                     CATProductRow row);
    void LeaveNavigator();

    std::shared_ptr<CATProductSource> m_source; // null once the node has left the navigator
    // Parents and children hold each other, so that a node held anywhere keeps its path; leaving
    // the navigator lets the children go.
    CATHandle<CATNavigatorNode> m_parent;
    CATProductRow m_row;
    std::vector<CATHandle<CATNavigatorNode>> m_children;
};
using CATNavigatorNode_var = CATHandle<CATNavigatorNode>;

/// The navigator's current root: what the user has open in the navigator workshop.
class WB_EXPORT CATNavigator
{
public:
    /// The server's products as a source (methods "WBListRoots" and "WBListUses"). A call that
    /// fails, or an answer that cannot be read, gives no rows; a sentence that says so is told to
    /// ReportProblemsTo and to the diagnostic error stream. The server's list of roots does not say
    /// which of them have uses: their rows all promise some.
    static std::shared_ptr<CATProductSource> ServerSource();
    /// Opens a root of that source; replaces the one that was open. Without a source null, and the
    /// one that was open stays.
    static CATNavigatorNode_var Open(std::shared_ptr<CATProductSource> source,
                                     const CATProductRow& root);
    static CATNavigatorNode_var CurrentRoot();
    static void Close();
    /// Who is told, as a sentence, that products could not be read or picked objects not be
    /// identified; replaces who was told before, and an empty one ends it.
    static void ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener);
    /// The node at instance names from the root down (the root itself not among them), or null.
    static CATNavigatorNode_var Find(const CATListValCATUnicodeString& instanceNames);
};
