#include "WBFields.h"

#include "CATToken.h"

#include <utility>

std::optional<std::string_view> RawField(std::string_view text, int n)
{
    for (int dropped = 0; dropped < n; ++dropped) {
        const std::size_t delimiter = text.find('|');
        if (delimiter == std::string_view::npos) {
            return std::nullopt;
        }
        text.remove_prefix(delimiter + 1);
    }
    return text.substr(0, text.find('|'));
}

CATListValCATUnicodeString LeadingTokens(const CATUnicodeString& text,
                                         const CATUnicodeString& delimiter)
{
    CATListValCATUnicodeString tokens;
    CATToken tokenizer(text);
    CATUnicodeString token = tokenizer.GetNextToken(delimiter);
    while (!token.IsEmpty()) {
        tokens.Append(std::move(token));
        token = tokenizer.GetNextToken(delimiter);
    }
    return tokens;
}
