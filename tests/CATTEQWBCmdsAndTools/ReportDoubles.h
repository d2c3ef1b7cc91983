#pragma once

#include "ReportDocuments.h"

#include <string>
#include <utility>
#include <vector>

/// Nodes as a test says, also what no real document has: a list that hides its length, an element
/// without a map of its attributes.

class NodesAsTold : public CATIDOMNodeList
{
public:
    explicit NodesAsTold(std::vector<CATIDOMNode_var> nodes)
        : length(static_cast<int>(nodes.size())), m_nodes(std::move(nodes))
    {}
    static CATIDOMNodeList_var List(std::vector<CATIDOMNode_var> nodes)
    {
        return CATIDOMNodeList_var::Adopt(new NodesAsTold(std::move(nodes)));
    }
    /// A list that says to have so many nodes.
    static CATIDOMNodeList_var OfLength(int length, std::vector<CATIDOMNode_var> nodes = {})
    {
        auto* list = new NodesAsTold(std::move(nodes));
        list->length = length;
        return CATIDOMNodeList_var::Adopt(list);
    }

    int Length() const override { return length; }
    CATIDOMNode_var Item(int index) const override
    {
        const auto place = static_cast<std::size_t>(index);
        return place < m_nodes.size() ? m_nodes[place] : CATIDOMNode_var();
    }
    CATIDOMDocument_var OwnerDocument() const override { return document; }

    int length;
    CATIDOMDocument_var document = Parsed("<Any/>");

private:
    std::vector<CATIDOMNode_var> m_nodes;
};

class MapAsTold : public CATIDOMNamedNodeMap
{
public:
    explicit MapAsTold(int announced) : m_length(announced) {}
    static CATIDOMNamedNodeMap_var OfLength(int length)
    {
        return CATIDOMNamedNodeMap_var::Adopt(new MapAsTold(length));
    }
    int Length() const override { return m_length; }
    CATIDOMNode_var Item(int) const override { return {}; }
    CATIDOMNode_var NamedItem(const CATUnicodeString&) const override { return {}; }

private:
    int m_length;
};

/// An element that has nothing but what a test gives it.
class ElementAsTold : public CATIDOMElement
{
public:
    static CATIDOMNode_var WithMap(const CATIDOMNamedNodeMap_var& map,
                                   std::vector<CATDOMName> names = {})
    {
        auto* element = new ElementAsTold;
        element->map = map;
        element->names = std::move(names);
        return CATIDOMNode_var::Adopt(element);
    }
    static CATIDOMNode_var WithChildren(const CATIDOMNodeList_var& children)
    {
        auto* element = new ElementAsTold;
        element->children = children;
        return CATIDOMNode_var::Adopt(element);
    }

    CATDOMNodeType NodeType() const override { return CATDOMNodeType::Element; }
    CATUnicodeString NodeName() const override { return "PartInstance"; }
    CATUnicodeString NodeValue() const override { return {}; }
    CATIDOMNode_var ParentNode() const override { return {}; }
    CATIDOMNode_var FirstChild() const override { return {}; }
    CATIDOMNode_var LastChild() const override { return {}; }
    CATIDOMNode_var PreviousSibling() const override { return {}; }
    CATIDOMNode_var NextSibling() const override { return {}; }
    CATIDOMNodeList_var ChildNodes() const override { return children; }
    CATIDOMNamedNodeMap_var Attributes() const override { return map; }
    CATIDOMDocument_var OwnerDocument() const override { return {}; }
    long AppendChild(const CATIDOMNode_var&) override { return E_INVALIDARG; }
    long InsertBefore(const CATIDOMNode_var&, const CATIDOMNode_var&) override
    {
        return E_INVALIDARG;
    }
    long RemoveChild(const CATIDOMNode_var&) override { return E_INVALIDARG; }
    CATIDOMElement* AsElement() override { return this; }
    bool HasAttribute(const CATUnicodeString&) const override { return false; }
    long GetAttribute(const CATUnicodeString&, CATUnicodeString&) const override { return E_FAIL; }
    long SetAttribute(const CATUnicodeString&, const CATUnicodeString&) override { return E_FAIL; }
    long RemoveAttribute(const CATUnicodeString&) override { return S_FALSE; }
    CATIDOMNodeList_var ElementsByTagName(const CATUnicodeString&) const override { return {}; }
    int AttributeCount() const override { return static_cast<int>(names.size()); }
    CATDOMName AttributeName(int index) const override
    {
        return names[static_cast<std::size_t>(index)];
    }
    std::string_view AttributeText(int) const override { return {}; }
    int FindAttribute(CATDOMName) const override { return -1; }
    long RewriteAttribute(int, std::string_view) override { return E_FAIL; }

    CATIDOMNamedNodeMap_var map;
    std::vector<CATDOMName> names;
    CATIDOMNodeList_var children;
};
