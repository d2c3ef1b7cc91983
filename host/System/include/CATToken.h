#pragma once

#include "CATUnicodeString.h"

/// Cuts a text into tokens, front to back. Two delimiters in a row give an empty token between
/// them, a leading delimiter an empty first token, a trailing one none; past the end every token is
/// empty. Keeps its own copy of the text.
class WB_EXPORT CATToken
{
public:
    explicit CATToken(const CATUnicodeString& text);
    virtual ~CATToken();

    /// The next token up to `delimiter`, which is one text and not a set of characters. An empty
    /// delimiter gives all that is left.
    CATUnicodeString GetNextToken(const CATUnicodeString& delimiter);

protected:
    /// The same without making a text of it: the bytes stay valid as long as the tokenizer.
    std::string_view NextTokenView(std::string_view delimiter);

private:
    CATUnicodeString m_text;
    std::size_t m_position = 0; // in bytes
};
