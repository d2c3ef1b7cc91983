#include "JsonText.h"

#include "WBNumbers.h"

#include <cmath>

void AppendJsonText(std::string& json, std::string_view text)
{
    constexpr std::string_view kHex = "0123456789abcdef";
    json += '"';
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            json += '\\';
            json += character;
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kHex[byte >> 4U];
            json += kHex[byte & 0xFU];
        } else {
            json += character;
        }
    }
    json += '"';
}

void AppendJsonNumber(std::string& json, double value)
{
    // JSON has no word for a number that is none, nor for one beyond all others.
    json += std::isfinite(value) ? wb::WriteShortest(value) : "null";
}
