/// A formatter for the conversions that nearly all records and keys use. It is faster than libc.
#pragma once

#include <cstdarg>
#include <cstddef>

namespace paramgen {

/// Results of `FormatPlain` that are not a length.
constexpr int kDoesNotFit = -1;
constexpr int kNotPlain = -2;

/// Formats into `dest`, which has room for `destMax` bytes (at least 1), as vsnprintf does.
/// `format` has `formatLength` characters. Supports %d, %u, %x and %X (with l or ll) and %s, zero
/// padding, a width and, for texts, a precision; on machines of 64 bits %f as well, for numbers of
/// an ordinary size. Returns the number of characters written, terminator excluded; `kDoesNotFit`;
/// or `kNotPlain` when the format uses anything else or a text is null: the caller then has to use
/// libc. After these two, and behind the terminator, the content of `dest` is unspecified.
[[gnu::format(printf, 3, 0)]] int FormatPlain(char* dest, std::size_t destMax, const char* format,
                                              std::size_t formatLength, std::va_list args);

}  // namespace paramgen
