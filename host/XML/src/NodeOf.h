#pragma once

#include "CATIDOMDocument.h"
#include "NodeLinks.h"

/// The node as the session sees it.
CATIDOMNode* InterfaceOf(NodeLinks* node);
/// The place in the tree of a node that the session gave; null for null and for attributes.
NodeLinks* LinksOf(CATIDOMNode* node);

/// A handle on a node; null for null. The only way to a node's first handle: from then on the node
/// holds its document.
CATIDOMNode_var HandleOn(NodeLinks* node);
CATIDOMDocument_var HandleOn(DomDocument* document);
CATIDOMNodeList_var ChildListOf(NodeLinks& parent);

long InsertNode(NodeLinks& parent, CATIDOMNode* child, CATIDOMNode* before);
long RemoveNode(NodeLinks& parent, CATIDOMNode* child);

/// What all nodes that stand in a tree have in common, beside the interface that they offer.
template <class Interface>
class NodeOf : public Interface, public NodeLinks
{
public:
    NodeOf(DomDocument& owner, CATDOMNodeType type, std::uint32_t nodeName)
        : NodeLinks(owner, type, nodeName)
    {}

    CATDOMNodeType NodeType() const override { return kind; }
    CATUnicodeString NodeValue() const override { return {}; }
    CATIDOMNode_var ParentNode() const override { return HandleOn(parent); }
    CATIDOMNode_var FirstChild() const override { return HandleOn(first); }
    CATIDOMNode_var LastChild() const override { return HandleOn(last); }
    CATIDOMNode_var PreviousSibling() const override { return HandleOn(previous); }
    CATIDOMNode_var NextSibling() const override { return HandleOn(next); }
    CATIDOMNodeList_var ChildNodes() const override { return ChildListOf(Self()); }
    CATIDOMNamedNodeMap_var Attributes() const override { return {}; }
    CATIDOMDocument_var OwnerDocument() const override { return HandleOn(document); }
    long AppendChild(const CATIDOMNode_var& child) override
    {
        return InsertNode(*this, child.Get(), nullptr);
    }
    long InsertBefore(const CATIDOMNode_var& child, const CATIDOMNode_var& before) override
    {
        return InsertNode(*this, child.Get(), before.Get());
    }
    long RemoveChild(const CATIDOMNode_var& child) override
    {
        return RemoveNode(*this, child.Get());
    }
    CATIDOMElement* AsElement() override { return nullptr; }

protected:
    // Reading does not change a node; what is given out may be used to.
    NodeLinks& Self() const { return const_cast<NodeOf&>(*this); }
};
