#include "WBReportOrder.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace
{

/// Reads the keys of elements. Nearly all elements of a report name the same attribute, so that it
/// is looked for once and then known by its number.
class KeyReader
{
public:
    explicit KeyReader(const CATIDOMDocument_var& document)
        : m_document(document), m_alias(document->FindName("instIdAttrAlias"))
    {}

    CATUnicodeString KeyOf(const CATIDOMElement& element)
    {
        const int alias = element.FindAttribute(m_alias);
        if (alias < 0) {
            return {};
        }
        UseName(element.AttributeText(alias));
        const int key = element.FindAttribute(m_name);
        return key < 0 ? CATUnicodeString() : CATUnicodeString(element.AttributeText(key));
    }

private:
    void UseName(std::string_view text)
    {
        if (text != m_nameText) {
            m_nameText = text;
            m_name = m_document->FindName(text);
        }
    }

    CATIDOMDocument_var m_document;
    CATDOMName m_alias;
    std::string m_nameText;
    CATDOMName m_name;
};

struct Keyed
{
    CATUnicodeString key;
    CATIDOMNode_var element;
};

/// The element children in their order; false when one of the list's nodes is missing.
bool ReadElements(const DSTrace& trace, const CATIDOMNodeList& children, int length,
                  std::vector<Keyed>& elements)
{
    KeyReader reader(children.OwnerDocument());
    for (int index = 0; index < length; ++index) {
        CATIDOMNode_var node = children.Item(index);
        if (node.IsNull()) {
            trace.Line("Failed to retrieve the node at index ", index, "!");
            return false;
        }
        if (const CATIDOMElement* const element = node->AsElement()) {
            elements.push_back({reader.KeyOf(*element), std::move(node)});
        }
    }
    return true;
}

/// False, with nothing changed, when one of the list's nodes is missing.
bool SortChildren(const DSTrace& trace, CATIDOMNode& parent, const CATIDOMNodeList& children,
                  int length)
{
    std::vector<Keyed> elements;
    if (!ReadElements(trace, children, length, elements)) {
        return false;
    }
    std::ranges::stable_sort(elements, [](const Keyed& left, const Keyed& right) {
        return left.key.Order(right.key) < 0;
    });
    for (const Keyed& each : elements) {
        parent.AppendChild(each.element); // which takes it from where it stood
    }
    return true;
}

/// The elements below each child, up to and including the index behind the last child. There never
/// is a node, so that this always fails, and with it every list that is not empty: a caller that
/// sorts a level above stops at this child. Reports have been compared in the order that comes of
/// it for years, so the bound stays.
long SortBelow(const DSTrace& trace, const CATIDOMNodeList& children, int length)
{
    for (int index = 0; index <= length; ++index) {
        const CATIDOMNode_var node = children.Item(index);
        if (node.IsNull()) {
            trace.Line("Failed to retrieve the node at index ", index, "!");
            return E_FAIL;
        }
        if (node->AsElement() == nullptr) {
            continue;
        }
        const CATIDOMNodeList_var below = node->ChildNodes();
        if (below.IsNull()) {
            trace.Line("Could not retrieve the children of the node at index ", index);
            return E_FAIL;
        }
        const long status = SortReportNodes(trace, node, below);
        if (status < 0) {
            trace.Line("SortListOfNodes() failed for node at index ", index, "!");
            return status;
        }
    }
    return S_OK;
}

} // namespace

long ReadTopLevel(const DSTrace& trace, const CATIDOMDocument_var& document, CATIDOMNode_var& top,
                  CATIDOMNodeList_var& children)
{
    trace.Line("SortDOMDocument");
    top = {};
    children = {};
    if (document.IsNull()) {
        trace.Line("Invalid argument has been received!");
        return E_INVALIDARG;
    }
    const CATIDOMElement_var root = document->DocumentElement();
    if (root.IsNull()) {
        trace.Line("Failed to retrieve the root element of the document!");
        return E_FAIL;
    }
    const CATIDOMNodeList_var list = root->ChildNodes();
    if (list.IsNull()) {
        trace.Line("Could not retrieve root element's children!");
        return E_FAIL;
    }
    if (list->Length() < 0) {
        trace.Line("Unable to determine the size of root element's child list!");
        return E_FAIL;
    }
    top = root;
    children = list;
    return S_OK;
}

long SortReportNodes(const DSTrace& trace, const CATIDOMNode_var& parent,
                     const CATIDOMNodeList_var& children)
{
    trace.Line("SortListOfNodes");
    if (children.IsNull()) {
        return E_INVALIDARG;
    }
    const int length = children->Length();
    if (length < 0) {
        trace.Line("Unable to determine the size of the list!");
        return E_FAIL;
    }
    if (length == 0) {
        return S_OK;
    }
    if (!SortChildren(trace, *parent, *children, length)) {
        return E_FAIL;
    }
    return SortBelow(trace, *children, length);
}
