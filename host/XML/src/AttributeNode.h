#pragma once

#include "CATIDOMDocument.h"

#include <cstdint>

class ElementNode;

/// An attribute seen as a node: made when it is asked for, kept in its element's chain as long as
/// somebody holds it. Once its attribute was removed it stands for itself, with the last text.
class AttributeNode final : public CATIDOMNode
{
public:
    AttributeNode(ElementNode& element, std::uint32_t number, AttributeNode* next);
    AttributeNode(const AttributeNode&) = delete;
    AttributeNode& operator=(const AttributeNode&) = delete;
    ~AttributeNode() override;

    std::uint32_t Number() const { return m_number; }
    AttributeNode* Next() const { return m_next; }
    /// The attribute goes: its last text is kept.
    void KeepText(std::string_view text);
    /// Leaves the chain that begins at `head`.
    void Unchain(AttributeNode*& head);

    const char* ClassName() const override { return "CATIDOMNode"; }
    CATDOMNodeType NodeType() const override { return CATDOMNodeType::Attribute; }
    CATUnicodeString NodeName() const override;
    CATUnicodeString NodeValue() const override;
    CATIDOMNode_var ParentNode() const override { return {}; }
    CATIDOMNode_var FirstChild() const override { return {}; }
    CATIDOMNode_var LastChild() const override { return {}; }
    CATIDOMNode_var PreviousSibling() const override { return {}; }
    CATIDOMNode_var NextSibling() const override { return {}; }
    CATIDOMNodeList_var ChildNodes() const override;
    CATIDOMNamedNodeMap_var Attributes() const override { return {}; }
    CATIDOMDocument_var OwnerDocument() const override;
    long AppendChild(const CATIDOMNode_var& child) override;
    long InsertBefore(const CATIDOMNode_var& child, const CATIDOMNode_var& before) override;
    long RemoveChild(const CATIDOMNode_var& child) override;
    CATIDOMElement* AsElement() override { return nullptr; }

private:
    ElementNode* m_element;
    CATIDOMNode_var m_hold; // on the element
    std::uint32_t m_number;
    bool m_isRemoved = false;
    CATUnicodeString m_lastText;
    AttributeNode* m_previous = nullptr;
    AttributeNode* m_next;
};
