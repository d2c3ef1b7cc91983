#include "DocumentWriter.h"

#include "DomDocument.h"
#include "ElementNode.h"
#include "LeafNode.h"

#include <array>
#include <cstring>
#include <memory>

namespace
{

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::size_t kBuffer = std::size_t{1} << 18U;

// For each byte whether it stands for itself, in a text and in an attribute's value. Blanks other
// than the blank itself are kept in a value only as references, a carriage return always.
enum Place : unsigned char
{
    InText = 1,
    InValue = 2
};
constexpr std::array<unsigned char, 256> kEscaped = [] {
    std::array<unsigned char, 256> escaped{};
    escaped['&'] = InText | InValue;
    escaped['<'] = InText | InValue;
    escaped['>'] = InText;
    escaped['"'] = InValue;
    escaped['\t'] = InValue;
    escaped['\n'] = InValue;
    escaped['\r'] = InText | InValue;
    return escaped;
}();

std::string_view ReferenceOf(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    default:
        return "&#13;";
    }
}

class Writer
{
public:
    explicit Writer(const std::function<bool(std::string_view)>& receiver)
        : m_receiver(receiver),
          m_buffer(std::make_unique<char[]>(kBuffer)),
          m_at(m_buffer.get()),
          m_end(m_at + kBuffer)
    {}

    bool IsGood() const { return m_isGood; }
    void Put(std::string_view text)
    {
        while (text.size() > static_cast<std::size_t>(m_end - m_at)) {
            const auto part = static_cast<std::size_t>(m_end - m_at);
            std::memcpy(m_at, text.data(), part);
            m_at = m_end;
            text.remove_prefix(part);
            Drain();
        }
        std::memcpy(m_at, text.data(), text.size());
        m_at += text.size();
    }
    void PutEscaped(std::string_view text, Place place)
    {
        const char* from = text.data();
        const char* const end = from + text.size();
        for (const char* at = from; at != end; ++at) {
            if ((kEscaped[static_cast<unsigned char>(*at)] & place) != 0) {
                Put({from, static_cast<std::size_t>(at - from)});
                Put(ReferenceOf(*at));
                from = at + 1;
            }
        }
        Put({from, static_cast<std::size_t>(end - from)});
    }
    void Drain()
    {
        m_isGood = m_isGood &&
                   m_receiver({m_buffer.get(), static_cast<std::size_t>(m_at - m_buffer.get())});
        m_at = m_buffer.get();
    }

private:
    const std::function<bool(std::string_view)>& m_receiver;
    std::unique_ptr<char[]> m_buffer;
    char* m_at;
    char* m_end;
    bool m_isGood = true;
};

void PutStartTag(Writer& out, const NameTable& names, const ElementNode& element)
{
    out.Put("<");
    out.Put(names.Text(element.name));
    for (int index = 0; index < element.AttributeCount(); ++index) {
        out.Put(names.AttributeStart(element.NameAt(index)));
        out.PutEscaped(element.TextAt(index), InValue);
        out.Put("\"");
    }
    out.Put(element.first == nullptr ? "/>" : ">");
}

void PutLeaf(Writer& out, const NameTable& names, const LeafNode& leaf)
{
    switch (leaf.kind) {
    case CATDOMNodeType::CDataSection:
        out.Put("<![CDATA[");
        out.Put(leaf.Text());
        out.Put("]]>");
        return;
    case CATDOMNodeType::Comment:
        out.Put("<!--");
        out.Put(leaf.Text());
        out.Put("-->");
        return;
    case CATDOMNodeType::ProcessingInstruction:
        out.Put("<?");
        out.Put(names.Text(leaf.name));
        out.Put(leaf.Text().empty() ? "" : " ");
        out.Put(leaf.Text());
        out.Put("?>");
        return;
    default:
        out.PutEscaped(leaf.Text(), InText);
    }
}

void PutEndTag(Writer& out, const NameTable& names, const NodeLinks& element)
{
    out.Put("</");
    out.Put(names.Text(element.name));
    out.Put(">");
}

} // namespace

bool WriteDocument(const DomDocument& document,
                   const std::function<bool(std::string_view piece)>& receiver)
{
    Writer out(receiver);
    const NameTable& names = document.Names();
    out.Put(kDeclaration);
    const NodeLinks* node = document.first;
    while (node != nullptr && out.IsGood()) {
        if (node->kind == CATDOMNodeType::Element) {
            PutStartTag(out, names, static_cast<const ElementNode&>(*node));
        } else {
            PutLeaf(out, names, static_cast<const LeafNode&>(*node));
        }
        if (node->first != nullptr) {
            node = node->first;
            continue;
        }
        while (node != &document && node->next == nullptr) {
            node = node->parent;
            if (node != &document) {
                PutEndTag(out, names, *node);
            }
        }
        node = node->next;
    }
    out.Drain();
    return out.IsGood();
}
