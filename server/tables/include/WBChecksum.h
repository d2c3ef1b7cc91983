#pragma once

#include <string>
#include <string_view>

namespace wb
{
/// The SHA-256 of some bytes as 64 hexadecimal digits, so that anybody can compare an entry of the
/// history with "sha256sum FILE".
std::string Checksum(std::string_view bytes);
} // namespace wb
