#include "confaccess/number.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace paramgen {
namespace {

constexpr std::int64_t kIntegerMax = std::numeric_limits<std::int32_t>::max();
constexpr int kNoDigit = 99;  // above every base

int DigitOf(char c) {
    // Characters before the first of a range wrap around to large numbers.
    const unsigned figure = static_cast<unsigned char>(c) - unsigned{'0'};
    if (figure < 10) {
        return static_cast<int>(figure);
    }
    const unsigned letter = (static_cast<unsigned char>(c) | 0x20U) - unsigned{'a'};
    return letter < 6 ? static_cast<int>(letter) + 10 : kNoDigit;
}

/// The base that a text in prefixed notation asks for; moves `text` past a "0x".
int TakePrefix(const char** text) {
    const char* at = *text;
    if (at[0] != '0') {
        return 10;
    }
    if ((at[1] == 'x' || at[1] == 'X') && DigitOf(at[2]) < 16) {
        *text = at + 2;
        return 16;
    }
    return 8;
}

}  // namespace

std::int32_t ParseInteger(const char* text, int base) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r')) {
        ++text;
    }
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') {
        ++text;
    }
    if (base == 0) {
        base = TakePrefix(&text);
    }
    int digit = DigitOf(*text);
    if (digit >= base) {
        errno = EINVAL;
        return 0;
    }
    const std::int64_t limit = negative ? kIntegerMax + 1 : kIntegerMax;
    std::int64_t magnitude = 0;
    for (; digit < base; digit = DigitOf(*++text)) {
        magnitude = magnitude * base + digit;
        if (magnitude > limit) {
            errno = ERANGE;
            magnitude = limit;
            break;
        }
    }
    return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
}

double ParseDouble(const char* text) {
    char* end = nullptr;
    const double value = std::strtod(text, &end);
    if (end == text) {
        errno = EINVAL;
        return 0.0;
    }
    return std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

}  // namespace paramgen
