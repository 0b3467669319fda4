#include "image/bytes.h"

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
    // The first byte is zero, and each of the others like the one before.
    return bytes.empty() ||
           (bytes.front() == std::byte{0} &&
            std::memcmp(&bytes.front(), &bytes.front() + 1, bytes.size() - 1) == 0);
}

}  // namespace paramgen::image
