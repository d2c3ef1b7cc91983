#pragma once

#include "CATBaseUnknown.h"
#include "CATHandle.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"

class CATIDOMDocument;
class CATIDOMElement;
class CATIDOMNamedNodeMap;
class CATIDOMNode;
class CATIDOMNodeList;
using CATIDOMDocument_var = CATHandle<CATIDOMDocument>;
using CATIDOMElement_var = CATHandle<CATIDOMElement>;
using CATIDOMNamedNodeMap_var = CATHandle<CATIDOMNamedNodeMap>;
using CATIDOMNode_var = CATHandle<CATIDOMNode>;
using CATIDOMNodeList_var = CATHandle<CATIDOMNodeList>;

/// The kinds of nodes, by the numbers that every XML document object model gives them.
enum class CATDOMNodeType : int
{
    Element = 1,
    Attribute = 2,
    Text = 3,
    CDataSection = 4,
    ProcessingInstruction = 7,
    Comment = 8,
    Document = 9
};

/// A node of a document. A handle on any node keeps its whole document alive. A node that was taken
/// out of the tree stays what it is for as long as a handle holds it, and can be put in again; what
/// nobody holds and nothing contains gives its room back to the document. Documents and their nodes
/// live on the user-interface thread.
///
/// An operation that answers a handle answers a null one where there is nothing to answer. Changes
/// of the tree give S_OK, or E_INVALIDARG with nothing changed when the tree does not allow them.
class WB_EXPORT CATIDOMNode : public CATBaseUnknown
{
public:
    // Slot order is binary interface: append, never sort.
    virtual CATDOMNodeType NodeType() const = 0;
    /// Of an element or attribute its name, of a processing instruction its target; else "#text",
    /// "#cdata-section", "#comment" or "#document".
    virtual CATUnicodeString NodeName() const = 0;
    /// The text of an attribute, text, section, comment or instruction; of others the empty text.
    virtual CATUnicodeString NodeValue() const = 0;

    virtual CATIDOMNode_var ParentNode() const = 0; ///< an attribute has none
    virtual CATIDOMNode_var FirstChild() const = 0;
    virtual CATIDOMNode_var LastChild() const = 0;
    virtual CATIDOMNode_var PreviousSibling() const = 0;
    virtual CATIDOMNode_var NextSibling() const = 0;
    /// The children in document order, live: the list follows every later change of the tree.
    virtual CATIDOMNodeList_var ChildNodes() const = 0;
    /// The attributes in order of appearance, live; null for a node that is no element.
    virtual CATIDOMNamedNodeMap_var Attributes() const = 0;
    virtual CATIDOMDocument_var OwnerDocument() const = 0;

    /// Puts the node behind the last child. A node that stands elsewhere in the same document is
    /// taken out there first. Refused: a node of another document, an ancestor of this node or the
    /// node itself, a child of a node that takes none, a second element or a text below the
    /// document itself, a place deeper than kCATDOMMostDepth.
    virtual long AppendChild(const CATIDOMNode_var& child) = 0;
    /// Puts the node before one of the children; before a null one it appends. Refused as above,
    /// and when `before` is no child.
    virtual long InsertBefore(const CATIDOMNode_var& child, const CATIDOMNode_var& before) = 0;
    /// Takes out a child. E_INVALIDARG when it is none.
    virtual long RemoveChild(const CATIDOMNode_var& child) = 0;

    /// This node as an element, without a handle; null when it is none.
    virtual CATIDOMElement* AsElement() = 0;
};
