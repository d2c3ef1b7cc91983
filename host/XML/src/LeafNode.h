#pragma once

#include "NodeOf.h"

#include <string_view>

/// A text, CDATA section, comment or processing instruction, in the document's arena.
class LeafNode final : public NodeOf<CATIDOMNode>
{
public:
    /// The text is kept in the arena.
    LeafNode(DomDocument& owner, CATDOMNodeType type, std::uint32_t nodeName,
             std::string_view text);

    const char* ClassName() const override { return "CATIDOMNode"; }
    CATUnicodeString NodeName() const override;
    CATUnicodeString NodeValue() const override { return m_text; }

    std::string_view Text() const { return m_text; }
    /// Gives the room of the text back, before the node itself goes.
    void DropText();

private:
    void OnLastRelease() const override;

    std::string_view m_text = "";
};
