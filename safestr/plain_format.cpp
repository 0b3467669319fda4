#include "safestr/plain_format.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "safestr/digits.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// What stands between a '%' and the end of its conversion.
struct Conversion {
    std::size_t width;      ///< the fewest characters it gives
    std::size_t precision;  ///< the most characters that a text gives
    unsigned longs;         ///< how often there is an 'l'
    char padding;           ///< '0' or ' '
    char kind;
};

/// The arguments, in a form that can be handed on by reference whatever `va_list` is.
struct Arguments {
    std::va_list list;
};

/// The text so far. `at` never passes `end`, where the terminator fits.
struct Output {
    char* at;
    char* end;
};

std::size_t RoomIn(const Output& out) {
    return static_cast<std::size_t>(out.end - out.at);
}

/// Takes a number off `format`, of at most four digits besides leading zeros.
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

/// Takes what follows a '%' off `format`.
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

/// Takes the bits of an integer, an `int` unless there are `longs`.
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

// What follows returns 0, `kDoesNotFit` or `kNotPlain`.

int PutText(Output* out, std::string_view text) {
    if (CopyText(out->at, RoomIn(*out), text.data(), text.size()) != 0) {
        return kDoesNotFit;
    }
    out->at += text.size();
    return 0;
}

int PutString(Output* out, const char* text, std::size_t precision) {
    return text == nullptr ? kNotPlain : PutText(out, {text, LengthUpTo(text, precision)});
}

/// Puts out the number whose bits are given, its digits where they belong.
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

/// Carries out any conversion that is known here.
int Convert(Output* out, const Conversion& conversion, Arguments* args) {
    const char kind = conversion.kind;
    if (kind == 's') {
        return conversion.width == 0 && conversion.longs == 0
                   ? PutString(out, va_arg(args->list, const char*), conversion.precision)
                   : kNotPlain;
    }
    const bool isNumber = kind == 'd' || kind == 'u' || kind == 'x' || kind == 'X';
    return isNumber && conversion.precision == SIZE_MAX
               ? PutNumber(out, conversion, TakeBits(kind == 'd', conversion.longs, args))
               : kNotPlain;
}

/// Carries out %d and %u. Most numbers have one digit.
int ConvertDecimal(Output* out, bool isSigned, Arguments* args) {
    const std::uint64_t bits = TakeBits(isSigned, 0, args);
    if (bits < 10 && out->at != out->end) {
        *out->at++ = static_cast<char>('0' + bits);
        return 0;
    }
    return PutNumber(
        out, {.width = 0, .precision = SIZE_MAX, .longs = 0, .padding = ' ', .kind = 'd'}, bits);
}

/// Carries out the conversion that stands at `*format`.
int ConvertNext(Output* out, const char** format, Arguments* args) {
    const char kind = **format;
    if (kind == 'd' || kind == 'u') {
        ++*format;
        return ConvertDecimal(out, kind == 'd', args);
    }
    const Conversion conversion = TakeConversion(format, args);
    return Convert(out, conversion, args);
}

/// Copies what stands in a format before the next '%' or the format's end, as much of it as there
/// is room for. Returns where that ends.
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

int Format(Output* out, const char* format, Arguments* args) {
    const char* const end = format + std::strlen(format);
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

int FormatPlain(char* dest, std::size_t destMax, const char* format, std::va_list args) {
    Output out = {.at = dest, .end = dest + destMax - 1};
    Arguments copy;
    va_copy(copy.list, args);
    const int result = Format(&out, format, &copy);
    va_end(copy.list);
    *out.at = '\0';
    return result == 0 ? static_cast<int>(out.at - dest) : result;
}

}  // namespace paramgen
