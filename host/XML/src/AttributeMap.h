#pragma once

#include "CATIDOMNamedNodeMap.h"

class ElementNode;

/// The attributes of an element; asks the element anew each time.
class AttributeMap final : public CATIDOMNamedNodeMap
{
public:
    explicit AttributeMap(ElementNode& element);

    const char* ClassName() const override { return "CATIDOMNamedNodeMap"; }
    int Length() const override;
    CATIDOMNode_var Item(int index) const override;
    CATIDOMNode_var NamedItem(const CATUnicodeString& name) const override;

private:
    ElementNode* m_element;
    CATIDOMNode_var m_hold; // on the element
};
