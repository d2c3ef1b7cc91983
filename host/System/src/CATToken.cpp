#include "CATToken.h"

CATToken::CATToken(const CATUnicodeString& text) : m_text(text)
{}

CATToken::~CATToken() = default;

CATUnicodeString CATToken::GetNextToken(const CATUnicodeString& delimiter)
{
    return CATUnicodeString(NextTokenView(delimiter.View()));
}

std::string_view CATToken::NextTokenView(std::string_view delimiter)
{
    const std::string_view rest = m_text.View().substr(m_position);
    std::size_t end = std::string_view::npos;
    if (delimiter.size() == 1) {
        end = rest.find(delimiter.front());
    } else if (!delimiter.empty()) {
        end = rest.find(delimiter);
    }
    if (end == std::string_view::npos) {
        m_position += rest.size();
        return rest;
    }
    m_position += end + delimiter.size();
    return rest.substr(0, end);
}
