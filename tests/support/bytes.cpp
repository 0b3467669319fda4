#include "support/bytes.h"

namespace paramgen::testing {

std::string LittleEndian(std::int64_t value, std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>((static_cast<std::uint64_t>(value) >> (8 * i)) & 0xFFU);
    }
    return bytes;
}

std::string Padded(const std::string& text, std::size_t size) {
    std::string bytes = text;
    bytes.resize(size, '\0');
    return bytes;
}

}  // namespace paramgen::testing
