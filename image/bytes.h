/// Numbers in an image's bytes, and bytes as text.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "compile/compilation.h"
#include "layout/value.h"

namespace paramgen::image {

using compile::Image;

/// The number that begins at `offset`. It lies within the image.
template <typename Number>
Number NumberAt(const Image& image, std::uint32_t offset) {
    Number number = 0;
    std::memcpy(&number, &image[offset], sizeof number);
    return number;
}

/// The bytes of a value.
inline std::span<const std::byte> BytesOf(const Image& image, const layout::Value& value) {
    return std::span(image).subspan(value.offset, value.size);
}

/// Bytes as characters.
inline std::string Characters(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// "0a1b": two digits a byte.
std::string Hexadecimal(std::span<const std::byte> bytes);

/// Whether all of them are zero.
bool IsZero(std::span<const std::byte> bytes);

}  // namespace paramgen::image
