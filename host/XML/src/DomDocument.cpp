#include "DomDocument.h"

#include "ElementNode.h"
#include "LeafNode.h"
#include "LiveList.h"
#include "XMLText.h"

#include <new>

namespace
{

// Each change of the tree costs a little for each list that follows it. Beyond so many the list
// that began first stops, and counts anew when it is asked again.
constexpr int kMostFollowingLists = 256;

} // namespace

DomDocument::DomDocument() : NodeOf(*this, CATDOMNodeType::Document, kNoName), m_names(m_arena)
{}

std::uint32_t DomDocument::UsedName(std::string_view text)
{
    const std::uint32_t number = m_names.Intern(text);
    m_names.MarkUsed(number);
    return number;
}

ElementNode& DomDocument::NewElement(std::uint32_t elementName)
{
    return *new (m_nodes.Take(sizeof(ElementNode))) ElementNode(*this, elementName);
}

LeafNode& DomDocument::NewLeaf(CATDOMNodeType type, std::uint32_t target, std::string_view text)
{
    return *new (m_nodes.Take(sizeof(LeafNode))) LeafNode(*this, type, target, text);
}

CATIDOMElement_var DomDocument::DocumentElement() const
{
    NodeLinks* node = first;
    while (node != nullptr && node->kind != CATDOMNodeType::Element) {
        node = node->next;
    }
    return node == nullptr ? CATIDOMElement_var() : CATIDOMElement_var(HandleOn(node));
}

CATIDOMNodeList_var DomDocument::ElementsByTagName(const CATUnicodeString& tagName) const
{
    return LiveList::OfElements(Self(), tagName.View());
}

CATIDOMElement_var DomDocument::CreateElement(const CATUnicodeString& elementName)
{
    if (!IsXMLName(elementName.View())) {
        return {};
    }
    return HandleOn(&NewElement(UsedName(elementName.View())));
}

CATIDOMNode_var DomDocument::CreateTextNode(const CATUnicodeString& text)
{
    if (!IsXMLText(text.View())) {
        return {};
    }
    return HandleOn(&NewLeaf(CATDOMNodeType::Text, kNoName, text.View()));
}

// Whoever reads a comment again finds no carriage return in it, so none may be put in.
CATIDOMNode_var DomDocument::CreateComment(const CATUnicodeString& text)
{
    const std::string_view view = text.View();
    if (!IsXMLText(view) || view.find('\r') != std::string_view::npos ||
        view.find("--") != std::string_view::npos || view.ends_with('-')) {
        return {};
    }
    return HandleOn(&NewLeaf(CATDOMNodeType::Comment, kNoName, view));
}

CATDOMName DomDocument::FindName(std::string_view text) const
{
    const int number = m_names.Find(text);
    return number >= 0 && m_names.IsUsed(static_cast<std::uint32_t>(number)) ? CATDOMName{number}
                                                                             : CATDOMName{};
}

std::string_view DomDocument::NameText(CATDOMName known) const
{
    const auto number = static_cast<std::uint32_t>(known.number);
    return number < m_names.Count() ? m_names.Text(number) : std::string_view();
}

void DomDocument::OnNodeReleased(NodeLinks& node)
{
    if (node.parent == nullptr) {
        FreeTree(node);
    }
    Release();
}

// Goes down to a node without children, frees it and goes on from its parent.
void DomDocument::FreeTree(NodeLinks& top)
{
    NodeLinks* node = &top;
    while (node != nullptr) {
        NodeLinks* child = node->first;
        if (child == nullptr) {
            NodeLinks* above = node->parent;
            if (above != nullptr) {
                UnlinkNode(*node);
            }
            FreeNode(*node);
            node = above;
        } else if (InterfaceOf(child)->ReferenceCount() > 0) {
            UnlinkNode(*child);
        } else {
            node = child;
        }
    }
}

void DomDocument::FreeNode(NodeLinks& node)
{
    if (node.kind == CATDOMNodeType::Element) {
        auto& element = static_cast<ElementNode&>(node);
        element.DropAttributes();
        m_nodes.GiveBack(&element, sizeof(ElementNode));
    } else {
        auto& leaf = static_cast<LeafNode&>(node);
        leaf.DropText();
        m_nodes.GiveBack(&leaf, sizeof(LeafNode));
    }
}

void DomDocument::Follow(LiveList& list)
{
    if (m_listCount == kMostFollowingLists) {
        m_oldestList->ForgetPlace();
        Unfollow(*m_oldestList);
    }
    list.Chain(m_newestList);
    if (m_oldestList == nullptr) {
        m_oldestList = &list;
    }
    ++m_listCount;
}

void DomDocument::Unfollow(LiveList& list)
{
    if (m_oldestList == &list) {
        m_oldestList = list.Newer();
    }
    list.Unchain(m_newestList);
    --m_listCount;
}

void DomDocument::Insert(NodeLinks& node, NodeLinks& under, NodeLinks* before)
{
    LinkNode(node, under, before);
    for (LiveList* list = under.childLists; list != nullptr; list = list->Older()) {
        list->OnChildInserted(node);
    }
    for (LiveList* list = m_newestList; list != nullptr; list = list->Older()) {
        list->OnTreeInserted(node);
    }
}

void DomDocument::TakeOut(NodeLinks& node)
{
    for (LiveList* list = node.parent->childLists; list != nullptr; list = list->Older()) {
        list->OnChildLeaving(node);
    }
    for (LiveList* list = m_newestList; list != nullptr; list = list->Older()) {
        list->OnTreeLeaving(node);
    }
    UnlinkNode(node);
}
