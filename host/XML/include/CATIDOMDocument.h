#pragma once

#include "CATIDOMElement.h"
#include "CATIDOMNamedNodeMap.h"
#include "CATIDOMNodeList.h"

/// How many elements may stand in one another. Deeper texts are refused, so that whoever walks a
/// document by recursion has room to.
inline constexpr int kCATDOMMostDepth = 1000;

/// A document: one document element, perhaps with comments and instructions around it. New nodes
/// belong to the document and stand nowhere until somebody puts them somewhere.
class WB_EXPORT CATIDOMDocument : public CATIDOMNode
{
public:
    // Slot order is binary interface: append, never sort.
    virtual CATIDOMElement_var DocumentElement() const = 0;
    /// The elements of that name in the whole document, in document order, live; "*" means all.
    virtual CATIDOMNodeList_var ElementsByTagName(const CATUnicodeString& name) const = 0;

    /// Null when the name is no XML name.
    virtual CATIDOMElement_var CreateElement(const CATUnicodeString& name) = 0;
    /// Null when the text holds a character that no XML document can hold; so below. A comment may
    /// not hold "--" or a carriage return, nor end in "-".
    virtual CATIDOMNode_var CreateTextNode(const CATUnicodeString& text) = 0;
    virtual CATIDOMNode_var CreateComment(const CATUnicodeString& text) = 0;

    /// The name as this document keeps it; unknown when nothing in it was ever named so.
    virtual CATDOMName FindName(std::string_view name) const = 0;
    /// The text of a known name; valid as long as the document.
    virtual std::string_view NameText(CATDOMName name) const = 0;
};
