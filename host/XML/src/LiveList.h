#pragma once

#include "CATIDOMDocument.h"
#include "NodeLinks.h"

#include <string_view>

/// A live list: the children of a node, or the elements of a name inside one.
///
/// It remembers one place, a node inside the root (or the end) together with the number of the
/// list's nodes before it, and walks from there. Changes of the tree move the place along: when
/// its node leaves, it goes on to what follows. So walking, and removing while walking, cost what
/// they pass and no more.
class LiveList final : public CATIDOMNodeList
{
public:
    static CATIDOMNodeList_var OfChildren(NodeLinks& parent);
    static CATIDOMNodeList_var OfElements(NodeLinks& root, std::string_view name);
    static CATIDOMNodeList_var Empty(DomDocument& document);
    LiveList(const LiveList&) = delete;
    LiveList& operator=(const LiveList&) = delete;
    ~LiveList() override;

    const char* ClassName() const override { return "CATIDOMNodeList"; }
    int Length() const override;
    CATIDOMNode_var Item(int index) const override;
    CATIDOMDocument_var OwnerDocument() const override;

    // For lists of children: the child was just put in, or is about to leave.
    void OnChildInserted(const NodeLinks& child);
    void OnChildLeaving(const NodeLinks& child);
    // For lists of elements: so was or is a whole tree somewhere in the document.
    void OnTreeInserted(const NodeLinks& top);
    void OnTreeLeaving(const NodeLinks& top);
    /// Nobody tells the list of changes any more: what it remembers is void.
    void ForgetPlace();

    // The chain of lists that are told of changes, newest first.
    LiveList* Older() const { return m_older; }
    LiveList* Newer() const { return m_newer; }
    void Chain(LiveList*& newest);
    void Unchain(LiveList*& newest);

private:
    enum class Content
    {
        Nothing,
        Children,
        Elements, // of one name
        AllElements
    };
    LiveList(DomDocument& document, NodeLinks* root, Content content, std::uint32_t name);

    bool IsMember(const NodeLinks& node) const;
    NodeLinks* FirstPlace() const;
    NodeLinks* PlaceAfter(const NodeLinks* place) const;
    NodeLinks* PlaceBefore(const NodeLinks* place) const;
    // How many members stand in the tree `top` before `end`; null counts them all.
    int CountIn(const NodeLinks& top, const NodeLinks* end) const;
    void BeginFollowing() const;
    NodeLinks* Seek(int index) const;

    DomDocument* m_document;
    NodeLinks* m_root;
    CATIDOMNode_var m_hold; // on the root, and so on the document
    Content m_content;
    std::uint32_t m_name;
    mutable bool m_isFollowing = false;
    mutable int m_length = -1;            // -1: not counted yet
    mutable NodeLinks* m_place = nullptr; // null: the end
    mutable int m_index = 0;              // members before the place
    LiveList* m_older = nullptr;
    LiveList* m_newer = nullptr;
};
