#pragma once

#include "CATIDOMElement.h"
#include "NodeOf.h"

class AttributeNode;

/// An element of a document, in the document's arena. Its attributes lie in one room: first all
/// name numbers, so that looking for one touches little memory, then all texts.
class ElementNode final : public NodeOf<CATIDOMElement>
{
public:
    ElementNode(DomDocument& owner, std::uint32_t nodeName);

    const char* ClassName() const override { return "CATIDOMElement"; }
    CATUnicodeString NodeName() const override;
    CATIDOMNamedNodeMap_var Attributes() const override;
    CATIDOMElement* AsElement() override { return this; }

    bool HasAttribute(const CATUnicodeString& name) const override;
    long GetAttribute(const CATUnicodeString& name, CATUnicodeString& value) const override;
    long SetAttribute(const CATUnicodeString& name, const CATUnicodeString& value) override;
    long RemoveAttribute(const CATUnicodeString& name) override;
    CATIDOMNodeList_var ElementsByTagName(const CATUnicodeString& name) const override;
    int AttributeCount() const override { return static_cast<int>(m_count); }
    CATDOMName AttributeName(int index) const override;
    std::string_view AttributeText(int index) const override;
    int FindAttribute(CATDOMName name) const override;
    long RewriteAttribute(int index, std::string_view text) override;

    /// Makes room for so many attributes in all.
    void ReserveAttributes(std::size_t count);
    /// Adds an attribute that the element is known to lack, for which there is room.
    void AddReservedAttribute(std::uint32_t number, std::string_view text);
    /// For an index that is in range.
    std::uint32_t NameAt(int index) const { return Names()[index]; }
    std::string_view TextAt(int index) const { return TextOf(Texts()[index]); }
    /// Gives all rooms of the attributes back, before the element itself goes.
    void DropAttributes();

    /// The attribute as a node of its own: the one that is held already, or a new one.
    CATIDOMNode_var AttributeNodeAt(int index);
    void Forget(AttributeNode& node);

private:
    /// A text in place, or with kElsewhere as its length the address, length and room of one.
    struct Text
    {
        char bytes[19];
        std::uint8_t length;
    };
    struct Elsewhere
    {
        char* bytes;
        std::uint32_t length;
        std::uint32_t room;
    };
    static constexpr std::uint8_t kElsewhere = 0xff;

    void OnLastRelease() const override;

    static Elsewhere ElsewhereOf(const Text& text);
    static std::string_view TextOf(const Text& text);
    void Assign(Text& text, std::string_view value);
    void AssignElsewhere(Text& text, std::string_view value);
    void Drop(const Text& text);
    std::uint32_t* Names() const { return reinterpret_cast<std::uint32_t*>(m_attributes); }
    Text* Texts() const
    {
        return reinterpret_cast<Text*>(m_attributes + sizeof(std::uint32_t) * m_capacity);
    }
    int IndexOf(std::uint32_t number) const;
    int IndexOf(const CATUnicodeString& name) const;
    bool IsInRange(int index) const;

    char* m_attributes = nullptr;
    std::uint32_t m_count = 0;
    std::uint32_t m_capacity = 0;
    AttributeNode* m_attributeNodes = nullptr; // those that somebody holds
};
