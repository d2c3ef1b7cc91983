#include "AttributeNode.h"

#include "DomDocument.h"
#include "ElementNode.h"
#include "LiveList.h"

AttributeNode::AttributeNode(ElementNode& element, std::uint32_t number, AttributeNode* next)
    : m_element(&element), m_hold(HandleOn(&element)), m_number(number), m_next(next)
{
    if (m_next != nullptr) {
        m_next->m_previous = this;
    }
}

AttributeNode::~AttributeNode()
{
    if (!m_isRemoved) {
        m_element->Forget(*this);
    }
}

void AttributeNode::KeepText(std::string_view text)
{
    m_lastText = text;
    m_isRemoved = true;
}

void AttributeNode::Unchain(AttributeNode*& head)
{
    (m_previous != nullptr ? m_previous->m_next : head) = m_next;
    if (m_next != nullptr) {
        m_next->m_previous = m_previous;
    }
}

CATUnicodeString AttributeNode::NodeName() const
{
    return m_element->document->Names().Text(m_number);
}

CATUnicodeString AttributeNode::NodeValue() const
{
    if (m_isRemoved) {
        return m_lastText;
    }
    return m_element->TextAt(m_element->FindAttribute(CATDOMName{static_cast<int>(m_number)}));
}

CATIDOMNodeList_var AttributeNode::ChildNodes() const
{
    return LiveList::Empty(*m_element->document);
}

CATIDOMDocument_var AttributeNode::OwnerDocument() const
{
    return m_element->OwnerDocument();
}

long AttributeNode::AppendChild(const CATIDOMNode_var& /*child*/)
{
    return E_INVALIDARG;
}

long AttributeNode::InsertBefore(const CATIDOMNode_var& /*child*/,
                                 const CATIDOMNode_var& /*before*/)
{
    return E_INVALIDARG;
}

long AttributeNode::RemoveChild(const CATIDOMNode_var& /*child*/)
{
    return E_INVALIDARG;
}
