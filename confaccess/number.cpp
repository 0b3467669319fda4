#include "confaccess/number.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "safestr/short_text.h"

namespace paramgen {
namespace {

constexpr std::int64_t kIntegerMax = std::numeric_limits<std::int32_t>::max();
constexpr int kNoDigit = 99;  // larger than every base

int DigitOf(char c) {
    // Characters below the range wrap around to large numbers.
    const unsigned figure = static_cast<unsigned char>(c) - unsigned{'0'};
    if (figure < 10) {
        return static_cast<int>(figure);
    }
    const unsigned letter = (static_cast<unsigned char>(c) | 0x20U) - unsigned{'a'};
    return letter < 6 ? static_cast<int>(letter) + 10 : kNoDigit;
}

/// Returns the base of a number in prefixed notation, and moves `text` past a "0x".
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

#ifdef __GLIBC__

/// Returns whether the target's libc reports ERANGE for `text`, an overflowing hexadecimal number
/// behind its "0x". It only considers the exponent and the number of digits before the point.
bool IsReportedOverflow(const char* text) {
    constexpr std::int64_t kReportedAbove = 1106;
    std::int64_t exponent = 0;
    while (*text == '0') {
        ++text;
    }
    for (; DigitOf(*text) < 16; ++text) {
        exponent += 4;
    }
    if (*text == '.') {
        const bool isBelowOne = exponent == 0;
        for (++text; isBelowOne && *text == '0'; ++text) {
            exponent -= 4;
        }
        while (DigitOf(*text) < 16) {
            ++text;
        }
    }
    if (*text == 'p' || *text == 'P') {
        exponent += ParseInteger(text + 1, 10);
    }
    return exponent > kReportedAbove;
}

/// Sets `errno` to what the target's libc leaves after converting the number at the beginning of
/// `text`, which is `value`; `before` is `errno` before the conversion. The two libcs differ for
/// hexadecimal numbers: the target's reports neither rounding of small ones nor overflow of numbers
/// just above the range.
void SetErrnoAsOnTheTarget(const char* text, double value, int before) {
    while (IsSpace(*text)) {
        ++text;
    }
    if (*text == '-' || *text == '+') {
        ++text;
    }
    const bool isHexadecimal = text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (isHexadecimal && value != 0 && !(std::isinf(value) && IsReportedOverflow(text + 2))) {
        errno = before;
    }
}

#else

void SetErrnoAsOnTheTarget(const char* /*text*/, double /*value*/, int /*before*/) {}

#endif

}  // namespace

std::int32_t ParseInteger(const char* text, int base) {
    while (IsSpace(*text)) {
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
    const int before = errno;
    char* end = nullptr;
    const double value = std::strtod(text, &end);
    SetErrnoAsOnTheTarget(text, value, before);
    if (end == text) {
        errno = EINVAL;
        return 0.0;
    }
    return std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

}  // namespace paramgen
