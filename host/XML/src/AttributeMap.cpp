#include "AttributeMap.h"

#include "DomDocument.h"
#include "ElementNode.h"

AttributeMap::AttributeMap(ElementNode& element) : m_element(&element), m_hold(HandleOn(&element))
{}

int AttributeMap::Length() const
{
    return m_element->AttributeCount();
}

CATIDOMNode_var AttributeMap::Item(int index) const
{
    if (index < 0 || index >= Length()) {
        return {};
    }
    return m_element->AttributeNodeAt(index);
}

CATIDOMNode_var AttributeMap::NamedItem(const CATUnicodeString& name) const
{
    return Item(
        m_element->FindAttribute(CATDOMName{m_element->document->Names().Find(name.View())}));
}
