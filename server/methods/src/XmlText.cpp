#include "XmlText.h"

#include "WBNumbers.h"
#include "WBTexts.h"

#include <cmath>

namespace wb
{
namespace
{
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// What stands for a character; empty where it stands for itself.
std::string_view EscapeOf(char character)
{
    switch (character) {
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
    case '\r':
        return "&#13;";
    default:
        return static_cast<unsigned char>(character) < 0x20 ? kReplacement : std::string_view();
    }
}

/// U+FFFE and U+FFFF are well-formed UTF-8, but no characters of XML.
bool IsNoCharacter(std::string_view text, std::size_t position)
{
    const std::string_view sequence = text.substr(position, 3);
    return sequence == "\xEF\xBF\xBE" || sequence == "\xEF\xBF\xBF";
}

void AppendUtf8(std::string& xml, std::string_view text)
{
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string_view escape = EscapeOf(text[i]);
        std::size_t length = 1;
        if (text[i] == '\xEF' && IsNoCharacter(text, i)) {
            escape = kReplacement;
            length = 3;
        }
        if (!escape.empty()) {
            xml.append(text.substr(written, i - written)).append(escape);
            written = i + length;
        }
    }
    xml.append(text.substr(written));
}
} // namespace

void AppendEscaped(std::string& xml, std::string_view text)
{
    while (const auto bad = FirstNonUtf8(text)) {
        AppendUtf8(xml, text.substr(0, *bad));
        xml.append(kReplacement);
        text.remove_prefix(*bad + 1);
    }
    AppendUtf8(xml, text);
}

void XmlAttributes::Begin(std::string_view name)
{
    m_xml.append(1, ' ').append(name).append("=\"");
    ++m_count;
}

void XmlAttributes::Add(std::string_view name, std::string_view value)
{
    if (!value.empty()) {
        Begin(name);
        AppendEscaped(m_xml, value);
        m_xml += '"';
    }
}

void XmlAttributes::Add(std::string_view name, double value)
{
    if (std::isfinite(value)) {
        Begin(name);
        AppendNumber(m_xml, value);
        m_xml += '"';
    }
}

void XmlAttributes::AddEscaped(std::string_view name, std::string_view value)
{
    Begin(name);
    m_xml.append(value).append(1, '"');
}

void XmlAttributes::Add(const Written& written)
{
    m_xml.append(written.text);
    m_count += written.count;
}
} // namespace wb
