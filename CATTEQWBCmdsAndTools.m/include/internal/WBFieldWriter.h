#pragma once

#include "CATUnicodeString.h"

#include <string>
#include <string_view>

/// Builds a "|"-separated stream: every field is followed by "|".
class WBFieldWriter
{
public:
    void Text(std::string_view text);
    void Int(int value);
    void Real(double value);
    /// The text, or "__null__" for an empty one.
    void NullableText(std::string_view text);

    const std::string& Stream() const { return m_stream; }

private:
    std::string m_stream;
};

/// The text without blanks at its ends.
std::string_view StripBlanks(std::string_view text);
