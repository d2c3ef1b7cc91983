#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// How the text classes see bytes as characters: a well-formed UTF-8 sequence is one character, any
/// other byte is one character by itself, so that no text is ever refused or lost.
namespace Utf8
{

/// One character of a text: its bytes and its code point; an ill-formed byte has no code point.
struct Character
{
    static constexpr std::int32_t kIllFormed = -1;
    std::size_t bytes;
    std::int32_t codePoint;
};

inline bool IsAscii(std::string_view text)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t index = 0;
    for (; index + sizeof(std::uint64_t) <= text.size(); index += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + index, sizeof(word));
        if ((word & kHighBits) != 0) {
            return false;
        }
    }
    for (; index < text.size(); ++index) {
        if (static_cast<unsigned char>(text[index]) >= 0x80U) {
            return false;
        }
    }
    return true;
}

/// The character at `offset`, which lies inside the text.
inline Character At(std::string_view text, std::size_t offset)
{
    const auto byte = [&](std::size_t index) {
        return static_cast<unsigned char>(text[offset + index]);
    };
    const std::size_t left = text.size() - offset;
    const std::int32_t lead = byte(0);
    const auto isTrail = [&](std::size_t index) {
        return index < left && (byte(index) & 0xc0U) == 0x80U;
    };
    const auto trail = [&](std::size_t index) {
        return static_cast<std::int32_t>(byte(index) & 0x3fU);
    };
    if (lead < 0x80) {
        return {1, lead};
    }
    if (lead >= 0xc2 && lead < 0xe0 && isTrail(1)) {
        return {2, ((lead & 0x1f) << 6) | trail(1)};
    }
    if (lead >= 0xe0 && lead < 0xf0 && isTrail(1) && isTrail(2)) {
        const std::int32_t codePoint = ((lead & 0x0f) << 12) | (trail(1) << 6) | trail(2);
        // Longer forms of shorter characters and halves of surrogate pairs are not UTF-8.
        if (codePoint >= 0x800 && (codePoint < 0xd800 || codePoint > 0xdfff)) {
            return {3, codePoint};
        }
    }
    if (lead >= 0xf0 && lead < 0xf5 && isTrail(1) && isTrail(2) && isTrail(3)) {
        const std::int32_t codePoint =
            ((lead & 0x07) << 18) | (trail(1) << 12) | (trail(2) << 6) | trail(3);
        if (codePoint >= 0x10000 && codePoint <= 0x10ffff) {
            return {4, codePoint};
        }
    }
    return {1, Character::kIllFormed};
}

} // namespace Utf8
