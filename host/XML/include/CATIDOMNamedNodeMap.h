#pragma once

#include "CATIDOMNode.h"

/// The attributes of an element in order of appearance, live. An attribute that stands at the index
/// when it is asked for is given as a node of its own; the node follows the attribute's text while
/// the element has it, and keeps the last text after that.
class WB_EXPORT CATIDOMNamedNodeMap : public CATBaseUnknown
{
public:
    // Slot order is binary interface: append, never sort.
    virtual int Length() const = 0;
    /// The attribute at that index, from 0; null past the end and below 0.
    virtual CATIDOMNode_var Item(int index) const = 0;
    /// Null when there is none of that name.
    virtual CATIDOMNode_var NamedItem(const CATUnicodeString& name) const = 0;
};
