/// Numbers in configuration texts, converted as on the target: a 32-bit `long`, and the same
/// `errno` on every host.
#pragma once

#include <cstdint>

namespace paramgen {

/// Converts the number at the beginning of `text` (after white space and a sign) as strtol does.
/// `base` is 10, or 0 for prefixed notation: 0x is hexadecimal, a leading 0 octal. What follows the
/// number is ignored. Saturates at 2147483647 and -2147483648, setting `errno` to ERANGE; a text
/// without any digit gives 0 and EINVAL; otherwise `errno` is left alone.
std::int32_t ParseInteger(const char* text, int base);

/// Converts the floating-point number at the beginning of `text`, decimal or hexadecimal, as strtod
/// does; "inf" and "nan" count. Every NaN is the positive quiet one. A text without a number gives
/// 0 and sets `errno` to EINVAL; overflow and underflow set ERANGE; otherwise `errno` is left
/// alone.
double ParseDouble(const char* text);

}  // namespace paramgen
