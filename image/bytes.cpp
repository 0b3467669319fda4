#include "image/bytes.h"

#include <algorithm>

namespace paramgen::image {

std::string Hexadecimal(std::span<const std::byte> bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::byte byte : bytes) {
        const auto number = std::to_integer<unsigned>(byte);
        text += kDigits[number >> 4U];
        text += kDigits[number & 15U];
    }
    return text;
}

bool IsZero(std::span<const std::byte> bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](std::byte b) { return b == std::byte{0}; });
}

}  // namespace paramgen::image
