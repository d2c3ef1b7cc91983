#include "LiveList.h"

#include "DomDocument.h"
#include "NodeOf.h"

LiveList::LiveList(DomDocument& document, NodeLinks* root, Content content, std::uint32_t name)
    : m_document(&document),
      m_root(root),
      m_hold(HandleOn(root == nullptr ? &document : root)),
      m_content(content),
      m_name(name)
{}

LiveList::~LiveList()
{
    if (!m_isFollowing) {
        return;
    }
    if (m_content == Content::Children) {
        Unchain(m_root->childLists);
    } else {
        m_document->Unfollow(*this);
    }
}

CATIDOMNodeList_var LiveList::OfChildren(NodeLinks& parent)
{
    return CATIDOMNodeList_var::Adopt(
        new LiveList(*parent.document, &parent, Content::Children, kNoName));
}

CATIDOMNodeList_var LiveList::OfElements(NodeLinks& root, std::string_view name)
{
    if (name == "*") {
        return CATIDOMNodeList_var::Adopt(
            new LiveList(*root.document, &root, Content::AllElements, kNoName));
    }
    return CATIDOMNodeList_var::Adopt(new LiveList(*root.document, &root, Content::Elements,
                                                   root.document->Names().Intern(name)));
}

CATIDOMNodeList_var LiveList::Empty(DomDocument& document)
{
    return CATIDOMNodeList_var::Adopt(new LiveList(document, nullptr, Content::Nothing, kNoName));
}

void LiveList::Chain(LiveList*& newest)
{
    m_older = newest;
    m_newer = nullptr;
    if (newest != nullptr) {
        newest->m_newer = this;
    }
    newest = this;
    m_isFollowing = true;
}

void LiveList::Unchain(LiveList*& newest)
{
    (m_newer != nullptr ? m_newer->m_older : newest) = m_older;
    if (m_older != nullptr) {
        m_older->m_newer = m_newer;
    }
    m_isFollowing = false;
}

void LiveList::ForgetPlace()
{
    m_length = -1;
}

// A list that nobody asks costs the changes of the tree nothing.
void LiveList::BeginFollowing() const
{
    if (m_isFollowing) {
        return;
    }
    m_place = FirstPlace();
    m_index = 0;
    auto& self = const_cast<LiveList&>(*this);
    if (m_content == Content::Children) {
        self.Chain(m_root->childLists);
    } else {
        m_document->Follow(self);
    }
}

bool LiveList::IsMember(const NodeLinks& node) const
{
    return m_content == Content::Children ||
           (node.kind == CATDOMNodeType::Element &&
            (m_content == Content::AllElements || node.name == m_name));
}

NodeLinks* LiveList::FirstPlace() const
{
    return m_root->first;
}

NodeLinks* LiveList::PlaceAfter(const NodeLinks* place) const
{
    return m_content == Content::Children ? place->next : NextInOrder(place, m_root);
}

NodeLinks* LiveList::PlaceBefore(const NodeLinks* place) const
{
    if (m_content == Content::Children) {
        return place == nullptr ? m_root->last : place->previous;
    }
    return place == nullptr ? LastInOrder(m_root) : PreviousInOrder(place);
}

int LiveList::CountIn(const NodeLinks& top, const NodeLinks* end) const
{
    int count = 0;
    for (const NodeLinks* node = &top; node != end; node = NextInOrder(node, &top)) {
        if (IsMember(*node)) {
            ++count;
        }
    }
    return count;
}

// Gives the member at the index, or null at the end, and remembers the place.
NodeLinks* LiveList::Seek(int index) const
{
    if (index < m_index - index) {
        m_place = FirstPlace();
        m_index = 0;
    } else if (m_length >= 0 && m_length - index < index - m_index) {
        m_place = nullptr;
        m_index = m_length;
    }
    while (index < m_index) {
        m_place = PlaceBefore(m_place);
        if (IsMember(*m_place)) {
            --m_index;
        }
    }
    while (m_place != nullptr) {
        if (IsMember(*m_place)) {
            if (m_index == index) {
                return m_place;
            }
            ++m_index;
        }
        m_place = PlaceAfter(m_place);
    }
    m_length = m_index;
    return nullptr;
}

CATIDOMNode_var LiveList::Item(int index) const
{
    if (m_content == Content::Nothing || index < 0) {
        return {};
    }
    BeginFollowing();
    return m_length >= 0 && index >= m_length ? CATIDOMNode_var() : HandleOn(Seek(index));
}

int LiveList::Length() const
{
    if (m_content == Content::Nothing) {
        return 0;
    }
    BeginFollowing();
    if (m_length < 0) {
        m_length = m_index;
        for (const NodeLinks* place = m_place; place != nullptr; place = PlaceAfter(place)) {
            if (IsMember(*place)) {
                ++m_length;
            }
        }
    }
    return m_length;
}

CATIDOMDocument_var LiveList::OwnerDocument() const
{
    return HandleOn(m_document);
}

void LiveList::OnChildInserted(const NodeLinks& child)
{
    if (m_place == nullptr || child.order < m_place->order) {
        ++m_index;
    }
    if (m_length >= 0) {
        ++m_length;
    }
}

void LiveList::OnChildLeaving(const NodeLinks& child)
{
    if (m_place == &child) {
        m_place = child.next;
    } else if (m_place == nullptr || child.order < m_place->order) {
        --m_index;
    }
    if (m_length >= 0) {
        --m_length;
    }
}

void LiveList::OnTreeInserted(const NodeLinks& top)
{
    if (!IsInside(top.parent, m_root)) {
        return;
    }
    const bool isBefore =
        m_place == nullptr || (!IsInside(&top, m_place) && Precedes(&top, m_place));
    if (!isBefore && m_length < 0) {
        return;
    }
    const int count = CountIn(top, nullptr);
    if (isBefore) {
        m_index += count;
    }
    if (m_length >= 0) {
        m_length += count;
    }
}

void LiveList::OnTreeLeaving(const NodeLinks& top)
{
    if (!IsInside(top.parent, m_root)) {
        return;
    }
    const bool holdsPlace = m_place != nullptr && IsInside(m_place, &top);
    const bool isBefore = !holdsPlace && (m_place == nullptr ||
                                          (!IsInside(&top, m_place) && Precedes(&top, m_place)));
    if (holdsPlace) {
        m_index -= CountIn(top, m_place);
        m_place = NextBehind(&top, m_root);
    }
    if (!isBefore && m_length < 0) {
        return;
    }
    const int count = CountIn(top, nullptr);
    if (isBefore) {
        m_index -= count;
    }
    if (m_length >= 0) {
        m_length -= count;
    }
}
