/// Bounded memory and text functions: a thin layer over libc in which every destination comes
/// with its capacity. No function writes beyond that capacity, and text never ends up cut.
#pragma once

#include <cstdarg>
#include <cstddef>

namespace paramgen {

/// Fills the first `count` bytes of `dest`, which holds `destMax` bytes, with `value`.
/// Returns 0; non-zero, writing nothing, when `dest` is null, `destMax` is 0 or `count` exceeds it.
int memset_s(void* dest, std::size_t destMax, int value, std::size_t count);

/// Copies `count` bytes from `src` to `dest`, which holds `destMax` bytes; the two do not overlap.
/// Returns 0; non-zero, writing nothing, when a pointer is null, `destMax` is 0 or `count` exceeds
/// it.
int memcpy_s(void* dest, std::size_t destMax, const void* src, std::size_t count);

/// As `memcpy_s`, for regions that may overlap.
int memmove_s(void* dest, std::size_t destMax, const void* src, std::size_t count);

/// Formats into `dest`, which holds `destMax` bytes. Returns the number of characters written
/// (terminator excluded), or -1 when the text does not fit or an argument is bad; `dest`, if there
/// is one, then holds the empty string.
[[gnu::format(printf, 3, 4)]] int sprintf_s(char* dest, std::size_t destMax, const char* format,
                                            ...);

/// As `sprintf_s`; in addition the text may have at most `count` characters.
[[gnu::format(printf, 4, 5)]] int snprintf_s(char* dest, std::size_t destMax, std::size_t count,
                                             const char* format, ...);

/// As `snprintf_s`, with the arguments in `args`.
[[gnu::format(printf, 4, 0)]] int vsnprintf_s(char* dest, std::size_t destMax, std::size_t count,
                                              const char* format, std::va_list args);

/// Scans `text` as libc's sscanf does, but each destination of %s, %[ and %c is followed by one
/// more argument, its capacity as a `std::size_t`. Returns the number of fields stored (a field of
/// suppressed assignment is not stored), or -1 when an argument is bad, the scan comes to something
/// in the format that is no conversion, the text ends before a field was stored, or a string does
/// not fit its destination, which then holds the empty string. Conversions: d i o u x X a e f g s
/// [ c and %%, with widths and, for integers, the lengths hh h l ll z, for floats l.
int sscanf_s(const char* text, const char* format, ...);

}  // namespace paramgen
