#include "NodeOf.h"

#include "DomDocument.h"
#include "ElementNode.h"
#include "LeafNode.h"
#include "LiveList.h"

namespace
{

bool TakesChildren(const NodeLinks& node)
{
    return node.kind == CATDOMNodeType::Element || node.kind == CATDOMNodeType::Document;
}

bool HasOtherElement(const NodeLinks& document, const NodeLinks& element)
{
    for (const NodeLinks* child = document.first; child != nullptr; child = child->next) {
        if (child->kind == CATDOMNodeType::Element && child != &element) {
            return true;
        }
    }
    return false;
}

bool MayStandBelowDocument(const NodeLinks& node, const NodeLinks& document)
{
    switch (node.kind) {
    case CATDOMNodeType::Element:
        return !HasOtherElement(document, node);
    case CATDOMNodeType::Comment:
    case CATDOMNodeType::ProcessingInstruction:
        return true;
    default:
        return false;
    }
}

bool MayStandIn(const NodeLinks& node, const NodeLinks& parent)
{
    if (!TakesChildren(parent) || node.document != parent.document ||
        node.kind == CATDOMNodeType::Document || IsInside(&parent, &node)) {
        return false;
    }
    if (parent.kind == CATDOMNodeType::Document && !MayStandBelowDocument(node, parent)) {
        return false;
    }
    // Within its parent a node moves as deep as it stood.
    return node.parent == &parent || node.kind != CATDOMNodeType::Element ||
           DepthBelow(&parent) + ElementHeight(&node) <= kCATDOMMostDepth;
}

} // namespace

CATIDOMNode* InterfaceOf(NodeLinks* node)
{
    switch (node->kind) {
    case CATDOMNodeType::Element:
        return static_cast<ElementNode*>(node);
    case CATDOMNodeType::Document:
        return static_cast<DomDocument*>(node);
    default:
        return static_cast<LeafNode*>(node);
    }
}

NodeLinks* LinksOf(CATIDOMNode* node)
{
    if (node == nullptr) {
        return nullptr;
    }
    switch (node->NodeType()) {
    case CATDOMNodeType::Element:
        return static_cast<ElementNode*>(node);
    case CATDOMNodeType::Document:
        return static_cast<DomDocument*>(node);
    case CATDOMNodeType::Attribute:
        return nullptr;
    default:
        return static_cast<LeafNode*>(node);
    }
}

CATIDOMNode_var HandleOn(NodeLinks* node)
{
    if (node == nullptr) {
        return {};
    }
    CATIDOMNode* object = InterfaceOf(node);
    if (object->ReferenceCount() == 0) {
        node->document->AddRef();
    }
    return object;
}

CATIDOMDocument_var HandleOn(DomDocument* document)
{
    return document;
}

CATIDOMNodeList_var ChildListOf(NodeLinks& parent)
{
    return LiveList::OfChildren(parent);
}

long InsertNode(NodeLinks& parent, CATIDOMNode* child, CATIDOMNode* before)
{
    NodeLinks* node = LinksOf(child);
    NodeLinks* place = LinksOf(before);
    const bool isPlaceGood = before == nullptr || (place != nullptr && place->parent == &parent);
    if (node == nullptr || !isPlaceGood || !MayStandIn(*node, parent)) {
        return E_INVALIDARG;
    }
    if (place == node) {
        return S_OK;
    }
    if (node->parent != nullptr) {
        node->document->TakeOut(*node);
    }
    node->document->Insert(*node, parent, place);
    return S_OK;
}

long RemoveNode(NodeLinks& parent, CATIDOMNode* child)
{
    NodeLinks* node = LinksOf(child);
    if (node == nullptr || node->parent != &parent) {
        return E_INVALIDARG;
    }
    node->document->TakeOut(*node);
    return S_OK;
}
