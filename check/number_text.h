/// The text of a number, for findings about it. How it is stored is decided by the program's own
/// parsers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paramgen::check {

/// A text that should be a decimal number.
struct NumberText {
    bool isNumber = false;       ///< it begins with one
    bool isHexadecimal = false;  ///< it begins with 0x and a digit: decimal, that is 0
    bool isInRange = true;       ///< it fits 32 bits
    std::int64_t value = 0;      ///< at a limit of 32 bits when it does not fit
    std::size_t end = 0;         ///< where the number ends in the text
};
NumberText ReadNumber(std::string_view text);

/// A text that should be a number with a fraction.
struct FloatText {
    bool isNumber = false;
    bool isExact = true;  ///< a float can hold something near it: neither infinite nor rounded to 0
    std::size_t end = 0;
};
FloatText ReadFloat(std::string_view text);

/// Whether a text is a boolean for the program, by its first letter.
bool IsBoolean(std::string_view text);

}  // namespace paramgen::check
