#include "PlainReader.h"

#include "DocumentReader.h"
#include "DomDocument.h"
#include "ElementNode.h"
#include "LeafNode.h"
#include "XMLText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

namespace
{

constexpr std::array<std::string_view, 4> kDeclarations{
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "<?xml version=\"1.0\" encoding=\"utf-8\"?>",
    "<?xml version=\"1.0\"?>", "<?xml version='1.0' encoding='UTF-8'?>"};
constexpr std::size_t kLongestDeclaration = 38;

struct Entity
{
    std::string_view reference; // behind the "&"
    char character;
};
constexpr std::array kEntities{Entity{"lt;", '<'}, Entity{"gt;", '>'}, Entity{"amp;", '&'},
                               Entity{"quot;", '"'}, Entity{"apos;", '\''}};

constexpr std::string_view kEndOfSection = "]]>";

bool IsBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// The character of a reference "#n;" or "#xn;" that the text begins with, and the text's length;
// a length of 0 when it is none.
std::size_t NumberedCharacter(std::string_view text, std::uint32_t& character)
{
    const bool isHexadecimal = text.starts_with("#x");
    const std::size_t begin = isHexadecimal ? 2 : 1;
    const std::size_t end = std::min(text.find(';'), text.size());
    const auto [stop, error] =
        std::from_chars(text.data() + begin, text.data() + end, character, isHexadecimal ? 16 : 10);
    const bool isWhole = end < text.size() && begin < end && stop == text.data() + end;
    return isWhole && error == std::errc() ? end + 1 : 0;
}

} // namespace

PlainReader::PlainReader()
    : m_dom(new DomDocument),
      m_document(CATIDOMDocument_var::Adopt(m_dom)),
      m_parent(m_dom),
      m_lastElement(kNoName)
{}

std::size_t PlainReader::Take(std::string_view text, bool isLast)
{
    m_at = text.data();
    m_end = m_at + text.size();
    Result result = m_hasBegun ? Result::Done : ReadDeclaration(isLast);
    const char* whole = m_at;
    while (result == Result::Done && m_at != m_end) {
        result = ReadOne();
        if (result == Result::Done) {
            whole = m_at;
        }
    }
    const auto taken = static_cast<std::size_t>(whole - text.data());
    m_read += taken;
    const bool isWhole = result == Result::Done && m_depth == 0 && m_dom->first != nullptr;
    m_isPlain =
        result != Result::NotPlain && m_read <= ReadingLimits().mostBytes && (!isLast || isWhole);
    return taken;
}

PlainReader::Result PlainReader::ReadDeclaration(bool isLast)
{
    if (Left() < kLongestDeclaration && !isLast) {
        return Result::Incomplete;
    }
    m_hasBegun = true;
    std::any_of(kDeclarations.begin(), kDeclarations.end(),
                [this](std::string_view declaration) { return Skip(declaration); });
    return Result::Done;
}

bool PlainReader::Skip(std::string_view expected)
{
    if (!std::string_view(m_at, Left()).starts_with(expected)) {
        return false;
    }
    m_at += expected.size();
    return true;
}

void PlainReader::SkipBlanks()
{
    while (m_at != m_end && IsBlank(*m_at)) {
        ++m_at;
    }
}

PlainReader::Result PlainReader::ReadOne()
{
    if (*m_at != '<') {
        return ReadText();
    }
    if (Left() == 1) {
        return Result::Incomplete;
    }
    return m_at[1] == '/' ? ReadEndTag() : ReadStartTag();
}

PlainReader::Result PlainReader::ReadText()
{
    if (m_depth == 0) {
        SkipBlanks();
        return m_at == m_end || *m_at == '<' ? Result::Done : Result::NotPlain;
    }
    const auto* end = static_cast<const char*>(std::memchr(m_at, '<', Left()));
    if (end == nullptr) {
        return Result::Incomplete;
    }
    const std::string_view text(m_at, static_cast<std::size_t>(end - m_at));
    m_decoded.clear();
    const bool isLiteral = IsLiteralText(text);
    if (text.find(kEndOfSection) != std::string_view::npos || (!isLiteral && !Decode(text))) {
        return Result::NotPlain;
    }
    const std::string_view kept = isLiteral ? text : std::string_view(m_decoded);
    LinkNode(m_dom->NewLeaf(CATDOMNodeType::Text, kNoName, kept), *m_parent, nullptr);
    m_at = end;
    return Result::Done;
}

// Appends the text with its references replaced to m_decoded. Line ends and tabs stand for
// themselves; a carriage return would have to be read as a line end.
bool PlainReader::Decode(std::string_view text)
{
    while (!text.empty()) {
        std::size_t length = XMLCharacterLength(text);
        if (text.front() != '&') {
            if (length == 0 || text.front() == '\r') {
                return false;
            }
            m_decoded += text.substr(0, length);
            text.remove_prefix(length);
            continue;
        }
        text.remove_prefix(1);
        const auto* entity =
            std::find_if(kEntities.begin(), kEntities.end(),
                         [text](const Entity& row) { return text.starts_with(row.reference); });
        if (entity != kEntities.end()) {
            m_decoded += entity->character;
            length = entity->reference.size();
        } else {
            std::uint32_t character = 0;
            length = text.starts_with('#') ? NumberedCharacter(text, character) : 0;
            if (length == 0 || !AppendXMLCharacter(character, m_decoded)) {
                return false;
            }
        }
        text.remove_prefix(length);
    }
    return true;
}

// A name in ASCII, with what ends it behind it.
PlainReader::Result PlainReader::ReadName(std::string_view& name)
{
    name = {m_at, AsciiNameLength({m_at, Left()})};
    m_at += name.size();
    if (m_at == m_end) {
        return Result::Incomplete;
    }
    const bool isEnded = IsBlank(*m_at) || *m_at == '=' || *m_at == '>' || *m_at == '/';
    return !name.empty() && isEnded ? Result::Done : Result::NotPlain;
}

PlainReader::Result PlainReader::ReadEndTag()
{
    m_at += 2;
    std::string_view name;
    const Result result = ReadName(name);
    if (result != Result::Done) {
        return result;
    }
    SkipBlanks();
    if (m_at == m_end) {
        return Result::Incomplete;
    }
    if (*m_at != '>' || m_depth == 0 || name != m_dom->Names().Text(m_parent->name)) {
        return Result::NotPlain;
    }
    ++m_at;
    m_parent = m_parent->parent;
    --m_depth;
    return Result::Done;
}

PlainReader::Result PlainReader::ReadStartTag()
{
    ++m_at;
    std::string_view name;
    Result result = ReadName(name);
    if (result != Result::Done) {
        return result;
    }
    if (m_depth == kCATDOMMostDepth || (m_depth == 0 && m_dom->first != nullptr)) {
        return Result::NotPlain;
    }
    if (m_lastElement == kNoName || m_dom->Names().Text(m_lastElement) != name) {
        m_lastElement = m_dom->UsedName(name);
    }
    if (m_lastElement >= m_lastAttributes.size()) {
        m_lastAttributes.resize(m_lastElement + std::size_t{1});
    }
    ++m_tag;
    m_found.clear();
    m_decoded.clear();
    std::vector<std::uint32_t>& last = m_lastAttributes[m_lastElement];
    while (m_at == m_end || (*m_at != '>' && *m_at != '/')) {
        result = ReadAttribute(last);
        if (result != Result::Done) {
            return result;
        }
    }
    return ReadTagEnd();
}

PlainReader::Result PlainReader::ReadTagEnd()
{
    const bool isEmpty = *m_at == '/';
    m_at += isEmpty ? 1 : 0;
    if (m_at == m_end) {
        return Result::Incomplete;
    }
    if (*m_at != '>') {
        return Result::NotPlain;
    }
    ++m_at;
    AddElement(m_lastElement, isEmpty);
    return Result::Done;
}

// Reads the next attribute, or up to the tag's end where there is none.
PlainReader::Result PlainReader::ReadAttribute(std::vector<std::uint32_t>& last)
{
    const std::size_t index = m_found.size();
    if (index < last.size() && Skip(m_dom->Names().AttributeStart(last[index]))) {
        return ReadValue('"', last[index]);
    }
    const char* before = m_at;
    SkipBlanks();
    if (m_at == m_end) {
        return Result::Incomplete;
    }
    if (*m_at == '>' || *m_at == '/') {
        return Result::Done;
    }
    if (m_at == before) {
        return Result::NotPlain;
    }
    char quote = '"';
    std::uint32_t name = kNoName;
    const Result result = ReadAttributeStart(quote, name);
    if (result != Result::Done) {
        return result;
    }
    if (index == last.size()) {
        last.push_back(name);
    } else {
        last[index] = name;
    }
    return ReadValue(quote, name);
}

PlainReader::Result PlainReader::ReadAttributeStart(char& quote, std::uint32_t& name)
{
    std::string_view text;
    const Result result = ReadName(text);
    if (result != Result::Done) {
        return result;
    }
    SkipBlanks();
    if (m_at != m_end && *m_at != '=') {
        return Result::NotPlain;
    }
    m_at += m_at == m_end ? 0 : 1;
    SkipBlanks();
    if (m_at == m_end) {
        return Result::Incomplete;
    }
    quote = *m_at;
    ++m_at;
    name = m_dom->UsedName(text);
    return quote == '"' || quote == '\'' ? Result::Done : Result::NotPlain;
}

PlainReader::Result PlainReader::ReadValue(char quote, std::uint32_t name)
{
    const auto* end = static_cast<const char*>(std::memchr(m_at, quote, Left()));
    if (end == nullptr) {
        return Result::Incomplete;
    }
    const std::string_view text(m_at, static_cast<std::size_t>(end - m_at));
    m_at = end + 1;
    if (!IsFirstInTag(name)) {
        return Result::NotPlain;
    }
    if (IsLiteralText(text)) {
        m_found.push_back({name, false, text.data(), 0, text.size()});
        return Result::Done;
    }
    // A value may not hold "<", and line ends and tabs in it would have to be read as blanks.
    const std::size_t offset = m_decoded.size();
    if (text.find_first_of("<\n\t") != std::string_view::npos || !Decode(text)) {
        return Result::NotPlain;
    }
    m_found.push_back({name, true, nullptr, offset, m_decoded.size() - offset});
    return Result::Done;
}

// Whether no other attribute of this tag has the name.
bool PlainReader::IsFirstInTag(std::uint32_t name)
{
    if (name >= m_lastTag.size()) {
        m_lastTag.resize(name + std::size_t{1});
    }
    return std::exchange(m_lastTag[name], m_tag) != m_tag;
}

void PlainReader::AddElement(std::uint32_t name, bool isEmpty)
{
    ElementNode& element = m_dom->NewElement(name);
    LinkNode(element, *m_parent, nullptr);
    element.ReserveAttributes(m_found.size());
    for (const Found& found : m_found) {
        const char* text = found.isDecoded ? m_decoded.data() + found.offset : found.text;
        element.AddReservedAttribute(found.name, {text, found.size});
    }
    if (!isEmpty) {
        m_parent = &element;
        ++m_depth;
    }
}
