#include "CATVariant.h"

#include "CATStatus.h"

long BuildVariant(const CATUnicodeString& text, CATVariant& variant)
{
    variant.m_value = text;
    return S_OK;
}

long ConvertVariant(const CATVariant& variant, CATUnicodeString& text)
{
    const CATUnicodeString* held = std::get_if<CATUnicodeString>(&variant.m_value);
    text = held == nullptr ? CATUnicodeString() : *held;
    return held == nullptr ? S_FALSE : S_OK;
}
