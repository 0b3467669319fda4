/// Helpers that build expected bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace paramgen::testing {

/// `value` as `size` little-endian bytes.
std::string LittleEndian(std::int64_t value, std::size_t size);

/// `text`, zero-filled to `size` bytes.
std::string Padded(const std::string& text, std::size_t size);

}  // namespace paramgen::testing
