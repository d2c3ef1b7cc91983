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

// Whether one of the eight bytes is `byte`.
bool Holds(std::uint64_t word, unsigned char byte)
{
    const std::uint64_t difference = word ^ (byte * kEachByte);
    return ((difference - kEachByte) & ~difference & (0x80 * kEachByte)) != 0;
}

bool IsLiteral(std::uint64_t word)
{
    return IsPlain(word) && !Holds(word, '&') && !Holds(word, '<');
}

std::uint64_t WordAt(const char* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof(word));
    return word;
}

// Whether every eight bytes of the text pass the test. A short text is filled up with blanks; the
// last bytes of a longer one are tested together with some before them.
template <class Test>
bool AllPass(std::string_view text, Test test)
{
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    if (text.size() < kWord) {
        std::uint64_t word = 0x20 * kEachByte;
        for (const char c : text) {
            word = word << 8U | static_cast<unsigned char>(c);
        }
        return test(word);
    }
    for (std::size_t at = 0; at + kWord < text.size(); at += kWord) {
        if (!test(WordAt(text.data() + at))) {
            return false;
        }
    }
    return test(WordAt(text.data() + text.size() - kWord));
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

struct NameByte
{
    bool canBegin = false;
    bool canFollow = false;
};
constexpr std::array<NameByte, 256> kNameBytes = [] {
    std::array<NameByte, 256> bytes{};
    for (std::size_t byte = 0; byte < 0x80; ++byte) {
        const char c = static_cast<char>(byte);
        const bool canBegin =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
        bytes[byte] = {canBegin, canBegin || (c >= '0' && c <= '9') || c == '-' || c == '.'};
    }
    return bytes;
}();

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
    if (AllPass(text, IsPlain)) {
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

bool IsLiteralText(std::string_view text)
{
    return AllPass(text, IsLiteral);
}

std::size_t AsciiNameLength(std::string_view text)
{
    if (text.empty() || !kNameBytes[static_cast<unsigned char>(text.front())].canBegin) {
        return 0;
    }
    std::size_t length = 1;
    while (length < text.size() && kNameBytes[static_cast<unsigned char>(text[length])].canFollow) {
        ++length;
    }
    return length;
}

bool AppendXMLCharacter(std::uint32_t character, std::string& text)
{
    if (!IsXMLCharacter(character)) {
        return false;
    }
    const auto byte = [](std::uint32_t value) {
        return static_cast<char>(value);
    };
    if (character < 0x80) {
        text += byte(character);
    } else if (character < 0x800) {
        text += {byte(0xc0 | character >> 6U), byte(0x80 | (character & 0x3f))};
    } else if (character < 0x10000) {
        text += {byte(0xe0 | character >> 12U), byte(0x80 | (character >> 6U & 0x3f)),
                 byte(0x80 | (character & 0x3f))};
    } else {
        text += {byte(0xf0 | character >> 18U), byte(0x80 | (character >> 12U & 0x3f)),
                 byte(0x80 | (character >> 6U & 0x3f)), byte(0x80 | (character & 0x3f))};
    }
    return true;
}

bool IsXMLName(std::string_view text)
{
    const bool isAscii = std::all_of(text.begin(), text.end(), IsAscii);
    if (isAscii) {
        return !text.empty() && AsciiNameLength(text) == text.size();
    }
    // Which letters beyond ASCII may stand in a name is settled by what reads the text again; what
    // else is in it must not end the name.
    return std::all_of(text.begin(), text.end(),
                       [](char c) {
                           return !IsAscii(c) ||
                                  kNameBytes[static_cast<unsigned char>(c)].canFollow;
                       }) &&
           IsReadableName(text);
}
