#include "XMLText.h"

#include "DocumentReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace
{

constexpr std::uint64_t kEachByte = 0x0101010101010101U;

// Whether all eight bytes are printable ASCII (or DEL, which XML takes).
bool IsPlain(std::uint64_t word)
{
    return (((word - 0x20 * kEachByte) | word) & (0x80 * kEachByte)) == 0;
}

bool IsPlainText(std::string_view text)
{
    while (text.size() >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data(), sizeof(word));
        if (!IsPlain(word)) {
            return false;
        }
        text.remove_prefix(sizeof(word));
    }
    std::uint64_t rest = 0x20 * kEachByte;
    std::memcpy(&rest, text.data(), text.size());
    return IsPlain(rest);
}

struct Form
{
    unsigned char mask;       // of the first byte
    unsigned char pattern;    // what those bits must be
    std::size_t length;       // in bytes
    std::uint32_t firstValue; // smaller ones are written shorter
};
constexpr std::array kForms{Form{0x80, 0x00, 1, 0}, Form{0xe0, 0xc0, 2, 0x80},
                            Form{0xf0, 0xe0, 3, 0x800}, Form{0xf8, 0xf0, 4, 0x10000}};

bool IsXMLCharacter(std::uint32_t value)
{
    return value >= 0x20 ? value < 0xd800 || (value > 0xdfff && value < 0xfffe) ||
                               (value > 0xffff && value <= 0x10ffff)
                         : value == '\t' || value == '\n' || value == '\r';
}

bool IsAsciiNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

bool IsAsciiNameCharacter(char c)
{
    return IsAsciiNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

} // namespace

std::size_t XMLCharacterLength(std::string_view text)
{
    if (text.empty()) {
        return 0;
    }
    const auto first = static_cast<unsigned char>(text.front());
    const auto* form = std::find_if(kForms.begin(), kForms.end(), [first](const Form& candidate) {
        return (first & candidate.mask) == candidate.pattern;
    });
    if (form == kForms.end() || form->length > text.size()) {
        return 0;
    }
    std::uint32_t value = first & static_cast<unsigned char>(~form->mask);
    for (std::size_t index = 1; index < form->length; ++index) {
        const auto next = static_cast<unsigned char>(text[index]);
        if ((next & 0xc0U) != 0x80) {
            return 0;
        }
        value = value << 6U | (next & 0x3fU);
    }
    return value >= form->firstValue && IsXMLCharacter(value) ? form->length : 0;
}

bool IsXMLText(std::string_view text)
{
    if (IsPlainText(text)) {
        return true;
    }
    while (!text.empty()) {
        const std::size_t length = XMLCharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

bool IsXMLName(std::string_view text)
{
    if (text.empty() || (IsAscii(text.front()) && !IsAsciiNameStart(text.front()))) {
        return false;
    }
    if (!std::all_of(text.begin(), text.end(),
                     [](char c) { return !IsAscii(c) || IsAsciiNameCharacter(c); })) {
        return false;
    }
    // Which letters beyond ASCII may stand in a name is settled by what reads the text again.
    return std::all_of(text.begin(), text.end(), IsAscii) || IsReadableName(text);
}
