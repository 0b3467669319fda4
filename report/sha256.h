/// SHA-256, for the name of an image and for the content security policy of a page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace paramgen::report {

using Digest = std::array<std::uint8_t, 32>;

/// The SHA-256 digest of `bytes`.
Digest Sha256(std::string_view bytes);

/// A digest as 64 hexadecimal digits, and in base 64 with padding.
std::string Hexadecimal(const Digest& digest);
std::string Base64(const Digest& digest);

}  // namespace paramgen::report
