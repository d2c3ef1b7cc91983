#pragma once

#include "CATHandle.h"
#include "CATMathTransformation.h"
#include "CATUnicodeString.h"

class CATDocument;

/// A product instance in a document: one use of a part in its parent, or the root.
class WB_EXPORT CATIProduct
{
public:
    virtual ~CATIProduct();
    virtual CATUnicodeString GetPartNumber() const = 0;
    virtual CATUnicodeString GetPartVersion() const = 0;
    /// The name below its parent; of the root, its part number.
    virtual CATUnicodeString GetInstanceName() const = 0;
    /// The part's own name, as people say it.
    virtual CATUnicodeString GetPartName() const = 0;
    /// So many pieces at this one place.
    virtual int GetQuantity() const = 0;
    /// Null for the root.
    virtual CATHandle<CATIProduct> GetParent() const = 0;
    /// Whether there are children, without reading them.
    virtual bool HasChildren() const = 0;
    /// Children are read from the document's source when they are first asked for; positions
    /// from 1. Where the source gives none although there are some (the server was away), the next
    /// call asks again.
    virtual int GetChildCount() const = 0;
    /// Null where there is no such position.
    virtual CATHandle<CATIProduct> GetChild(int position) const = 0;
};
using CATIProduct_var = CATHandle<CATIProduct>;

/// Something that has a place in space.
class WB_EXPORT CATIMovable
{
public:
    virtual ~CATIMovable();
    /// From the object's own axes to those of its document's root; lengths in mm.
    virtual CATMathTransformation GetAbsoluteTransformation() const = 0;
};
using CATIMovable_var = CATHandle<CATIMovable>;

/// Something that lives in a document.
class WB_EXPORT CATILinkableObject
{
public:
    virtual ~CATILinkableObject();
    /// The kind of object: "ASMPRODUCT" for a product instance.
    virtual CATUnicodeString GetType() const = 0;
    /// Null when the object has left its document.
    virtual CATHandle<CATDocument> GetDocument() const = 0;
};
using CATILinkableObject_var = CATHandle<CATILinkableObject>;
