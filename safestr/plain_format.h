/// Formatting without libc, for what records and keys are made of.
#pragma once

#include <cstdarg>
#include <cstddef>

namespace paramgen {

/// What `FormatPlain` returns besides a length.
constexpr int kDoesNotFit = -1;
constexpr int kNotPlain = -2;

/// Formats into `dest`, which holds `destMax` (at least 1) bytes, as vsnprintf does. Knows %d %u %x
/// %X (with l or ll) and %s, zero padding, a width and, for texts, a precision. Returns the number
/// of characters written, terminator excluded; `kDoesNotFit`; or `kNotPlain` when there is
/// something else in the format, or a null text: libc then has to format all of it. After the last
/// two `dest` holds no text. Behind the text's terminator `dest` may hold parts of the format,
/// unless that is shorter than eight characters.
[[gnu::format(printf, 3, 0)]] int FormatPlain(char* dest, std::size_t destMax, const char* format,
                                              std::va_list args);

}  // namespace paramgen
