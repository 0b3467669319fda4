#include "safestr/plain_format.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "safestr/digits.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// A parsed conversion.
struct Conversion {
    std::size_t width;      ///< minimal number of characters
    std::size_t precision;  ///< maximal number of characters of a text
    unsigned longs;         ///< number of 'l' modifiers
    char padding;           ///< '0' or ' '
    char kind;
};

/// Wraps `va_list`, which is an array on some machines, so that it can be passed by reference.
struct Arguments {
    std::va_list list;
};

/// The output buffer. `at` never passes `end`, the last byte, which is kept for the terminator.
struct Output {
    char* at;
    char* end;
};

std::size_t RoomIn(const Output& out) {
    return static_cast<std::size_t>(out.end - out.at);
}

/// Reads a number of at most four digits, not counting leading zeros, and moves `format` past it.
std::size_t TakeNumber(const char** format) {
    std::size_t number = 0;
    while (number < 1000 && **format >= '0' && **format <= '9') {
        number = number * 10 + static_cast<std::size_t>(*(*format)++ - '0');
    }
    return number;
}

std::size_t TakePrecision(const char** format, Arguments* args) {
    if (**format != '.') {
        return SIZE_MAX;
    }
    ++*format;
    if (**format != '*') {
        return TakeNumber(format);
    }
    ++*format;
    const int precision = va_arg(args->list, int);
    return precision < 0 ? SIZE_MAX : static_cast<std::size_t>(precision);
}

/// Parses the conversion behind a '%' and moves `format` past it.
Conversion TakeConversion(const char** format, Arguments* args) {
    const char padding = **format == '0' ? '0' : ' ';
    const std::size_t width = TakeNumber(format);
    const std::size_t precision = TakePrecision(format, args);
    unsigned longs = 0;
    for (; **format == 'l'; ++*format) {
        ++longs;
    }
    const char kind = *(*format)++;
    return {
        .width = width, .precision = precision, .longs = longs, .padding = padding, .kind = kind};
}

/// Takes an integer argument: an `int`, or wider with `longs`. Signed ones are sign-extended.
std::uint64_t TakeBits(bool isSigned, unsigned longs, Arguments* args) {
    if (longs > 1) {
        return va_arg(args->list, unsigned long long);
    }
    if (longs == 1) {
        const long number = va_arg(args->list, long);
        return isSigned ? static_cast<std::uint64_t>(number) : static_cast<unsigned long>(number);
    }
    const int number = va_arg(args->list, int);
    return isSigned ? static_cast<std::uint64_t>(number) : static_cast<unsigned>(number);
}

// The functions below return 0, `kDoesNotFit` or `kNotPlain`.

int PutText(Output* out, std::string_view text) {
    if (CopyText(out->at, RoomIn(*out), text.data(), text.size()) != 0) {
        return kDoesNotFit;
    }
    out->at += text.size();
    return 0;
}

int PutString(Output* out, const char* text, std::size_t precision) {
    if (text == nullptr) {
        return kNotPlain;
    }
    return PutText(out,
                   {text, precision == SIZE_MAX ? std::strlen(text) : LengthUpTo(text, precision)});
}

/// Writes a number, right-aligned within its width.
int PutNumber(Output* out, const Conversion& conversion, std::uint64_t bits) {
    const bool isNegative = conversion.kind == 'd' && static_cast<std::int64_t>(bits) < 0;
    if (isNegative && conversion.padding == '0') {
        return kNotPlain;  // the sign would have to come first
    }
    const std::uint64_t number = isNegative ? 0 - bits : bits;
    const std::size_t length = CountDigits(number, conversion.kind) + (isNegative ? 1 : 0);
    const std::size_t width = std::max(length, conversion.width);
    if (width > RoomIn(*out)) {
        return kDoesNotFit;
    }
    char* const padding = out->at;
    out->at += width;
    char* begin = WriteDigits(out->at, conversion.kind, number);
    if (isNegative) {
        *--begin = '-';
    }
    while (begin != padding) {
        *--begin = conversion.padding;
    }
    return 0;
}

/// Whether %f is supported. On a machine of 32 bits, where size counts more, libc does it.
constexpr bool kWritesFractions = sizeof(Word) >= 8;

/// Writes a number with six decimal places, rounded to the nearest, or to an even digit between
/// two. Leaves large numbers, small ones, and what is no number to libc.
int PutFraction(Output* out, double number) {
    constexpr std::uint64_t kScale = 1'000'000;
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    const double magnitude = std::fabs(number);
    if (!(magnitude < 0x1p32)) {
        return kNotPlain;
    }
    auto whole = static_cast<std::uint64_t>(magnitude);
    const double fraction = magnitude - static_cast<double>(whole);
    if (fraction != 0 && fraction < 0x1p-11) {
        return kNotPlain;  // it may have bits beyond the 64 that follow
    }
    // Multiplied in two halves, the integer part of the product is the decimal places.
    const auto bits = static_cast<std::uint64_t>(fraction * 0x1p64);
    const std::uint64_t low = (bits & UINT32_MAX) * kScale;
    const std::uint64_t high = (bits >> 32) * kScale + (low >> 32);
    const std::uint64_t rest = high << 32 | (low & UINT32_MAX);
    std::uint64_t places = high >> 32;
    places += rest > kHalf || (rest == kHalf && places % 2 == 1) ? 1 : 0;
    whole += places / kScale;

    int result = std::signbit(number) ? PutText(out, "-") : 0;
    const Conversion digits = {
        .width = 0, .precision = SIZE_MAX, .longs = 0, .padding = '0', .kind = 'u'};
    result = result != 0 ? result : PutNumber(out, digits, whole);
    result = result != 0 ? result : PutText(out, ".");
    Conversion six = digits;
    six.width = 6;
    return result != 0 ? result : PutNumber(out, six, places % kScale);
}

/// Writes any supported conversion.
int Convert(Output* out, const Conversion& conversion, Arguments* args) {
    const char kind = conversion.kind;
    if (kind == 's') {
        return conversion.width == 0 && conversion.longs == 0
                   ? PutString(out, va_arg(args->list, const char*), conversion.precision)
                   : kNotPlain;
    }
    if (kWritesFractions && kind == 'f') {
        const bool isPlain =
            conversion.width == 0 && conversion.precision == SIZE_MAX && conversion.longs == 0;
        return isPlain ? PutFraction(out, va_arg(args->list, double)) : kNotPlain;
    }
    const bool isNumber = kind == 'd' || kind == 'u' || kind == 'x' || kind == 'X';
    return isNumber && conversion.precision == SIZE_MAX
               ? PutNumber(out, conversion, TakeBits(kind == 'd', conversion.longs, args))
               : kNotPlain;
}

/// Writes %d and %u without width. A single digit, the most frequent case, is written directly.
int ConvertDecimal(Output* out, bool isSigned, Arguments* args) {
    const std::uint64_t bits = TakeBits(isSigned, 0, args);
    if (bits < 10 && out->at != out->end) {
        *out->at++ = static_cast<char>('0' + bits);
        return 0;
    }
    return PutNumber(
        out, {.width = 0, .precision = SIZE_MAX, .longs = 0, .padding = ' ', .kind = 'd'}, bits);
}

/// Writes the conversion that begins at `*format`.
int ConvertNext(Output* out, const char** format, Arguments* args) {
    const char kind = **format;
    if (kind == 'd' || kind == 'u') {
        ++*format;
        return ConvertDecimal(out, kind == 'd', args);
    }
    const Conversion conversion = TakeConversion(format, args);
    return Convert(out, conversion, args);
}

/// Copies the format's text up to the next '%' or its end, as far as there is room. Returns the end
/// of what was copied.
const char* PutLiteral(Output* out, const char* format, const char* end) {
    constexpr std::ptrdiff_t kWord = sizeof(Word);
    constexpr bool kInWords = kWord >= 8;  // four characters at a time gain less than it takes
    char* to = out->at;
    end = format + std::min(static_cast<std::size_t>(end - format), RoomIn(*out));
    for (; kInWords && end - format >= kWord; format += kWord, to += kWord) {
        const Word word = LoadWord(format);
        StoreWord(to, word);  // from a '%' on, what is stored is overwritten or behind the text
        const Word marks = MarkFirst(word, '%');
        if (marks != 0) {
            out->at = to + BytesBefore(marks);
            return format + BytesBefore(marks);
        }
    }
    while (format != end && *format != '%') {
        *to++ = *format++;
    }
    out->at = to;
    return format;
}

int Format(Output* out, const char* format, const char* end, Arguments* args) {
    for (;;) {
        format = PutLiteral(out, format, end);
        if (*format != '%') {
            return format == end ? 0 : kDoesNotFit;
        }
        ++format;
        const int result = ConvertNext(out, &format, args);
        if (result != 0) {
            return result;
        }
    }
}

}  // namespace

int FormatPlain(char* dest, std::size_t destMax, const char* format, std::size_t formatLength,
                std::va_list args) {
    Output out = {.at = dest, .end = dest + destMax - 1};
    Arguments copy;
    va_copy(copy.list, args);
    const int result = Format(&out, format, format + formatLength, &copy);
    va_end(copy.list);
    *out.at = '\0';
    return result == 0 ? static_cast<int>(out.at - dest) : result;
}

}  // namespace paramgen
