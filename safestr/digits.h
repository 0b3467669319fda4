/// Digits of numbers, as the printf conversions %d, %u, %x and %X write them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace paramgen {

/// The base of the conversion `kind`.
constexpr unsigned BaseOf(char kind) {
    return kind == 'x' || kind == 'X' ? 16 : 10;
}

/// Returns the number of digits of `number`.
inline std::size_t CountDigits(std::uint64_t number, char kind) {
    const unsigned base = BaseOf(kind);
    std::size_t count = 1;
    for (; number > UINT32_MAX; number /= base) {
        ++count;
    }
    // A machine of 32 bits divides these much faster.
    for (std::uint32_t rest = static_cast<std::uint32_t>(number); rest >= base; rest /= base) {
        ++count;
    }
    return count;
}

/// Writes the digits of `number` backwards from `end`. The caller has made sure that there is room
/// for `CountDigits` characters. Returns the first digit.
inline char* WriteDigits(char* end, char kind, std::uint64_t number) {
    const unsigned base = BaseOf(kind);
    const auto digitOf = [kind](std::uint32_t value) {
        // Bit 5 makes a letter lower case, and is set in all decimal digits.
        return static_cast<char>("0123456789ABCDEF"[value] | (kind & 0x20));
    };
    for (; number > UINT32_MAX; number /= base) {
        *--end = digitOf(static_cast<std::uint32_t>(number % base));
    }
    std::uint32_t rest = static_cast<std::uint32_t>(number);
    do {
        *--end = digitOf(rest % base);
        rest /= base;
    } while (rest != 0);
    return end;
}

}  // namespace paramgen
