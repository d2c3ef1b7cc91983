#include "ElementNode.h"

#include "AttributeMap.h"
#include "AttributeNode.h"
#include "CATFatalError.h"
#include "DomDocument.h"
#include "LiveList.h"
#include "XMLText.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr std::size_t kLeastCapacity = 4;
constexpr std::size_t kAttributeBytes = 24;

} // namespace

ElementNode::ElementNode(DomDocument& owner, std::uint32_t nodeName)
    : NodeOf(owner, CATDOMNodeType::Element, nodeName)
{
    static_assert(sizeof(Text) + sizeof(std::uint32_t) == kAttributeBytes);
    BeginUnheld();
}

void ElementNode::OnLastRelease() const
{
    document->OnNodeReleased(Self());
}

CATUnicodeString ElementNode::NodeName() const
{
    return document->Names().Text(name);
}

CATIDOMNamedNodeMap_var ElementNode::Attributes() const
{
    return CATIDOMNamedNodeMap_var::Adopt(new AttributeMap(const_cast<ElementNode&>(*this)));
}

CATIDOMNodeList_var ElementNode::ElementsByTagName(const CATUnicodeString& tagName) const
{
    return LiveList::OfElements(Self(), tagName.View());
}

ElementNode::Elsewhere ElementNode::ElsewhereOf(const Text& text)
{
    Elsewhere elsewhere{};
    std::memcpy(&elsewhere, text.bytes, sizeof(elsewhere));
    return elsewhere;
}

std::string_view ElementNode::TextOf(const Text& text)
{
    if (text.length != kElsewhere) {
        return {text.bytes, text.length};
    }
    const Elsewhere elsewhere = ElsewhereOf(text);
    return {elsewhere.bytes, elsewhere.length};
}

// The value may be part of the text itself.
void ElementNode::Assign(Text& text, std::string_view value)
{
    if (text.length == kElsewhere || value.size() > sizeof(text.bytes)) {
        AssignElsewhere(text, value);
        return;
    }
    std::memmove(text.bytes, value.data(), value.size());
    text.length = static_cast<std::uint8_t>(value.size());
}

// A room that a text once needed stays with it, so that values that grow and shrink in turns take
// it once.
void ElementNode::AssignElsewhere(Text& text, std::string_view value)
{
    Elsewhere elsewhere = text.length == kElsewhere ? ElsewhereOf(text) : Elsewhere{};
    if (elsewhere.bytes != nullptr && value.size() <= elsewhere.room) {
        std::memmove(elsewhere.bytes, value.data(), value.size());
    } else {
        elsewhere.room = static_cast<std::uint32_t>(DomArena::RoomFor(value.size()));
        elsewhere.bytes = static_cast<char*>(document->Arena().Take(elsewhere.room));
        std::memcpy(elsewhere.bytes, value.data(), value.size());
        Drop(text);
    }
    elsewhere.length = static_cast<std::uint32_t>(value.size());
    std::memcpy(text.bytes, &elsewhere, sizeof(elsewhere));
    text.length = kElsewhere;
}

void ElementNode::Drop(const Text& text)
{
    if (text.length == kElsewhere) {
        const Elsewhere elsewhere = ElsewhereOf(text);
        document->Arena().GiveBack(elsewhere.bytes, elsewhere.room);
    }
}

void ElementNode::DropAttributes()
{
    std::for_each(Texts(), Texts() + m_count, [this](const Text& text) { Drop(text); });
    if (m_attributes != nullptr) {
        document->Arena().GiveBack(m_attributes, m_capacity * kAttributeBytes);
    }
}

void ElementNode::ReserveAttributes(std::size_t count)
{
    if (count <= m_capacity) {
        return;
    }
    const std::size_t room = DomArena::RoomFor(count * kAttributeBytes);
    const std::size_t capacity = room / kAttributeBytes;
    auto* attributes = static_cast<char*>(document->Arena().Take(room));
    if (m_attributes != nullptr) {
        std::memcpy(attributes, Names(), m_count * sizeof(std::uint32_t));
        std::memcpy(attributes + capacity * sizeof(std::uint32_t), Texts(), m_count * sizeof(Text));
        document->Arena().GiveBack(m_attributes, m_capacity * kAttributeBytes);
    }
    m_attributes = attributes;
    m_capacity = static_cast<std::uint32_t>(capacity);
}

void ElementNode::AddReservedAttribute(std::uint32_t number, std::string_view text)
{
    Text& added = Texts()[m_count];
    added.length = 0;
    Assign(added, text);
    Names()[m_count] = number;
    ++m_count;
}

int ElementNode::IndexOf(std::uint32_t number) const
{
    // Elements of one kind mostly have their attributes in one order: look where the last one was.
    const NameTable& names = document->Names();
    const std::uint32_t guess = names.LastIndex(number);
    const std::uint32_t* all = Names();
    if (guess < m_count && all[guess] == number) {
        return static_cast<int>(guess);
    }
    const std::uint32_t* found = std::find(all, all + m_count, number);
    if (found == all + m_count) {
        return -1;
    }
    const auto index = static_cast<std::uint32_t>(found - all);
    names.SetLastIndex(number, index);
    return static_cast<int>(index);
}

int ElementNode::IndexOf(const CATUnicodeString& attributeName) const
{
    return FindAttribute(CATDOMName{document->Names().Find(attributeName.View())});
}

int ElementNode::FindAttribute(CATDOMName attributeName) const
{
    const auto number = static_cast<std::uint32_t>(attributeName.number);
    return number < document->Names().Count() ? IndexOf(number) : -1;
}

bool ElementNode::IsInRange(int index) const
{
    if (static_cast<std::uint32_t>(index) < m_count) {
        return true;
    }
    CATRaiseFatalError("An attribute was asked for by an index that is out of range", __FILE__,
                       __LINE__);
    return false;
}

CATDOMName ElementNode::AttributeName(int index) const
{
    return IsInRange(index) ? CATDOMName{static_cast<int>(NameAt(index))} : CATDOMName{};
}

std::string_view ElementNode::AttributeText(int index) const
{
    return IsInRange(index) ? TextAt(index) : std::string_view();
}

long ElementNode::RewriteAttribute(int index, std::string_view text)
{
    // An empty view may point nowhere, which copying does not take.
    const std::string_view value = text.empty() ? std::string_view("") : text;
    if (!IsInRange(index) || !IsXMLText(value)) {
        return E_INVALIDARG;
    }
    Assign(Texts()[index], value);
    return S_OK;
}

bool ElementNode::HasAttribute(const CATUnicodeString& attributeName) const
{
    return IndexOf(attributeName) >= 0;
}

long ElementNode::GetAttribute(const CATUnicodeString& attributeName, CATUnicodeString& value) const
{
    const int index = IndexOf(attributeName);
    if (index < 0) {
        return E_FAIL;
    }
    value = TextAt(index);
    return S_OK;
}

long ElementNode::SetAttribute(const CATUnicodeString& attributeName, const CATUnicodeString& value)
{
    const int index = IndexOf(attributeName);
    if (index >= 0) {
        return RewriteAttribute(index, value.View());
    }
    if (!IsXMLName(attributeName.View()) || !IsXMLText(value.View())) {
        return E_INVALIDARG;
    }
    if (m_count == m_capacity) {
        ReserveAttributes(std::max(kLeastCapacity, m_count + std::size_t{m_count / 2}));
    }
    AddReservedAttribute(document->UsedName(attributeName.View()), value.View());
    return S_OK;
}

long ElementNode::RemoveAttribute(const CATUnicodeString& attributeName)
{
    const int index = IndexOf(attributeName);
    if (index < 0) {
        return S_FALSE;
    }
    for (AttributeNode* node = m_attributeNodes; node != nullptr;) {
        AttributeNode* following = node->Next();
        if (node->Number() == NameAt(index)) {
            node->KeepText(TextAt(index));
            Forget(*node);
        }
        node = following;
    }
    Drop(Texts()[index]);
    std::copy(Names() + index + 1, Names() + m_count, Names() + index);
    std::copy(Texts() + index + 1, Texts() + m_count, Texts() + index);
    --m_count;
    return S_OK;
}

CATIDOMNode_var ElementNode::AttributeNodeAt(int index)
{
    const std::uint32_t number = NameAt(index);
    for (AttributeNode* node = m_attributeNodes; node != nullptr; node = node->Next()) {
        if (node->Number() == number) {
            return node;
        }
    }
    auto* made = new AttributeNode(*this, number, m_attributeNodes);
    m_attributeNodes = made;
    return CATIDOMNode_var::Adopt(made);
}

void ElementNode::Forget(AttributeNode& node)
{
    node.Unchain(m_attributeNodes);
}
