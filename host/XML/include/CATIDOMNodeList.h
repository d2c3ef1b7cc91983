#pragma once

#include "CATIDOMNode.h"

/// Nodes in document order. A list is live: nodes that are put in or taken out of the tree while
/// somebody walks along it come and go in the list at once, as they do in the tree. Walking from
/// one index to the next, in either direction, and removing while walking cost the same for each
/// step however long the list is.
class WB_EXPORT CATIDOMNodeList : public CATBaseUnknown
{
public:
    // Slot order is binary interface: append, never sort.
    virtual int Length() const = 0;
    /// The node at that index, from 0; null outside 0..Length()-1.
    virtual CATIDOMNode_var Item(int index) const = 0;
    /// The document whose nodes it lists.
    virtual CATIDOMDocument_var OwnerDocument() const = 0;
};
