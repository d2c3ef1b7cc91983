#pragma once

#include "CATIDOMNode.h"

#include <string_view>

/// A name of elements and attributes as one document keeps it: by its number, from 0. Comparing two
/// is comparing two numbers, so that a walk over many elements asks for each name once. Meant for
/// one document; its meaning in another is undefined.
struct CATDOMName
{
    int number = -1;
    bool IsKnown() const { return number >= 0; } ///< false: nothing in the document is named so
    friend bool operator==(const CATDOMName&, const CATDOMName&) = default;
};

/// An element: a name and attributes in order of appearance. A new attribute goes to the end, a
/// rewritten one keeps its place.
class WB_EXPORT CATIDOMElement : public CATIDOMNode
{
public:
    // Slot order is binary interface: append, never sort.
    virtual bool HasAttribute(const CATUnicodeString& name) const = 0;
    /// E_FAIL, with the output untouched, when the element has no such attribute: an attribute that
    /// is missing is not one that is empty.
    virtual long GetAttribute(const CATUnicodeString& name, CATUnicodeString& value) const = 0;
    /// E_INVALIDARG when the name is no XML name or the value holds a character that no XML
    /// document can hold.
    virtual long SetAttribute(const CATUnicodeString& name, const CATUnicodeString& value) = 0;
    /// S_FALSE when the element has no such attribute.
    virtual long RemoveAttribute(const CATUnicodeString& name) = 0;
    /// The elements of that name below this one, in document order, live; "*" means all.
    virtual CATIDOMNodeList_var ElementsByTagName(const CATUnicodeString& name) const = 0;

    // For long walks: attributes by number, texts without copies. An index counts from 0 and is
    // valid, as are the texts, until an attribute of this element is set, rewritten or removed. An
    // index that is out of range is a programming error and raises the host's fatal error.
    virtual int AttributeCount() const = 0;
    virtual CATDOMName AttributeName(int index) const = 0;
    virtual std::string_view AttributeText(int index) const = 0;
    /// -1 when the element has no such attribute, as for a name that is not known.
    virtual int FindAttribute(CATDOMName name) const = 0;
    /// E_INVALIDARG, with nothing changed, as for SetAttribute.
    virtual long RewriteAttribute(int index, std::string_view text) = 0;
};
