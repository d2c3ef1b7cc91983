#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace wb
{
/// The SHA-256 of some bytes as 64 hexadecimal digits, so that anybody can compare an entry of the
/// history with "sha256sum FILE".
std::string Checksum(std::string_view bytes);

/// The same of bytes that come piece by piece.
class ChecksumMaker
{
public:
    void Add(std::string_view bytes);
    /// Of all that was added; call it once.
    std::string Finish();

private:
    static constexpr std::size_t kBlock = 64;

    // The fractional parts of the square roots of the first eight primes.
    std::array<std::uint32_t, 8> m_state{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, kBlock> m_block{}; // begun and not yet full
    std::uint64_t m_size = 0;
};
} // namespace wb
