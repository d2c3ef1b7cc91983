#pragma once

#include "CATUnicodeString.h"

#include <variant>

/// The wrapped value in which server calls take and give their texts.
class WB_EXPORT CATVariant
{
public:
    bool IsEmpty() const { return std::holds_alternative<std::monostate>(m_value); }
    void Clear() { m_value = std::monostate(); }

private:
    friend WB_EXPORT long BuildVariant(const CATUnicodeString& text, CATVariant& variant);
    friend WB_EXPORT long ConvertVariant(const CATVariant& variant, CATUnicodeString& text);

    std::variant<std::monostate, CATUnicodeString> m_value;
};

/// Wraps a text; replaces what the variant held. S_OK.
WB_EXPORT long BuildVariant(const CATUnicodeString& text, CATVariant& variant);
/// Unwraps a text: S_OK; an empty variant gives the empty text and S_FALSE.
WB_EXPORT long ConvertVariant(const CATVariant& variant, CATUnicodeString& text);
