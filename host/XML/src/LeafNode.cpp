#include "LeafNode.h"

#include "DomDocument.h"

#include <cstring>

LeafNode::LeafNode(DomDocument& owner, CATDOMNodeType type, std::uint32_t nodeName,
                   std::string_view text)
    : NodeOf(owner, type, nodeName)
{
    BeginUnheld();
    if (!text.empty()) {
        auto* bytes = static_cast<char*>(owner.Arena().Take(text.size()));
        std::memcpy(bytes, text.data(), text.size());
        m_text = {bytes, text.size()};
    }
}

void LeafNode::OnLastRelease() const
{
    document->OnNodeReleased(Self());
}

CATUnicodeString LeafNode::NodeName() const
{
    switch (kind) {
    case CATDOMNodeType::Text:
        return "#text";
    case CATDOMNodeType::CDataSection:
        return "#cdata-section";
    case CATDOMNodeType::Comment:
        return "#comment";
    default:
        return document->Names().Text(name);
    }
}

void LeafNode::DropText()
{
    if (!m_text.empty()) {
        document->Arena().GiveBack(const_cast<char*>(m_text.data()), m_text.size());
    }
}
