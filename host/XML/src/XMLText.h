#pragma once

#include <string_view>

/// Whether the text is UTF-8 and holds only characters that XML 1.0 can hold.
bool IsXMLText(std::string_view text);

/// Whether the text can name an element or attribute.
bool IsXMLName(std::string_view text);

/// The length in bytes of the UTF-8 character that the text begins with, if XML can hold it; 0 when
/// it cannot or the bytes are no UTF-8.
std::size_t XMLCharacterLength(std::string_view text);
