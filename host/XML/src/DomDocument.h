#pragma once

#include "CATIDOMDocument.h"
#include "DomArena.h"
#include "NameTable.h"
#include "NodeOf.h"

class ElementNode;
class LeafNode;

/// A document: the arena of its nodes, their names, and the live lists that follow its changes.
class DomDocument final : public NodeOf<CATIDOMDocument>
{
public:
    DomDocument();

    const char* ClassName() const override { return "CATIDOMDocument"; }
    CATUnicodeString NodeName() const override { return "#document"; }
    CATIDOMElement_var DocumentElement() const override;
    CATIDOMNodeList_var ElementsByTagName(const CATUnicodeString& name) const override;
    CATIDOMElement_var CreateElement(const CATUnicodeString& name) override;
    CATIDOMNode_var CreateTextNode(const CATUnicodeString& text) override;
    CATIDOMNode_var CreateComment(const CATUnicodeString& text) override;
    CATDOMName FindName(std::string_view name) const override;
    std::string_view NameText(CATDOMName name) const override;

    DomArena& Arena() { return m_arena; }
    NameTable& Names() { return m_names; }
    const NameTable& Names() const { return m_names; }
    /// The number of a name that an element or attribute gets.
    std::uint32_t UsedName(std::string_view name);

    /// New nodes that stand nowhere, without a handle.
    ElementNode& NewElement(std::uint32_t name);
    LeafNode& NewLeaf(CATDOMNodeType type, std::uint32_t name, std::string_view text);

    /// Nobody holds the node any more. When nothing contains it either, it goes, with what it
    /// holds; what of that is held stays, as the top of a tree of its own.
    void OnNodeReleased(NodeLinks& node);

    /// The lists of elements that follow the document's changes.
    void Follow(LiveList& list);
    void Unfollow(LiveList& list);

    /// Puts a node that stands nowhere in its place, and takes one out; lists follow.
    void Insert(NodeLinks& node, NodeLinks& parent, NodeLinks* before);
    void TakeOut(NodeLinks& node);

private:
    void FreeTree(NodeLinks& top);
    void FreeNode(NodeLinks& node);

    // Nodes lie close together and apart from their texts: a walk over many touches them alone.
    DomArena m_nodes;
    DomArena m_arena;
    NameTable m_names;
    LiveList* m_newestList = nullptr;
    LiveList* m_oldestList = nullptr;
    int m_listCount = 0;
};
