#include "safestr/plain_format.h"

#include <cstdint>
#include <cstring>

#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// What stands between a '%' and the end of its conversion.
struct Conversion {
    char padding;           ///< '0' or ' '
    unsigned longs;         ///< how often there is an 'l'
    std::size_t width;      ///< the fewest characters it gives
    std::size_t precision;  ///< the most characters that a text gives
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

/// The digits of the longest number, 2 to the 64th in decimal.
constexpr std::size_t kDigitsMax = 20;

/// Takes a number of at most four digits off `format`.
std::size_t TakeNumber(const char** format) {
    std::size_t number = 0;
    for (int i = 0; i < 4 && **format >= '0' && **format <= '9'; ++i) {
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
    Conversion conversion = {};
    conversion.padding = **format == '0' ? '0' : ' ';
    conversion.width = TakeNumber(format);
    conversion.precision = TakePrecision(format, args);
    while (**format == 'l') {
        ++conversion.longs;
        ++*format;
    }
    conversion.kind = *(*format)++;
    return conversion;
}

/// Copies what stands in a format before the next '%' or its end, as much of it as fits. Returns
/// where it ended.
const char* PutLiteral(Output* out, const char* format) {
    // Not through `out`: a character stored there might, for all the compiler knows, change it.
    char* at = out->at;
    const char* const end = out->end;
    while (at != end && *format != '\0' && *format != '%') {
        *at++ = *format++;
    }
    out->at = at;
    return format;
}

/// Puts out at most `precision` characters of a text. False when they do not fit.
bool PutText(Output* out, const char* text, std::size_t precision) {
    const std::size_t length =
        precision == SIZE_MAX ? std::strlen(text) : LengthUpTo(text, precision);
    if (length > static_cast<std::size_t>(out->end - out->at)) {
        return false;
    }
    CopyText(out->at, text, length);
    out->at += length;
    return true;
}

/// Writes the digits of `number` to base `kBase` so that they end before `end`. Returns where they
/// begin.
template <unsigned kBase>
char* WriteDigits(char* end, std::uint64_t number, const char* digits) {
    for (; number > UINT32_MAX; number /= kBase) {
        *--end = digits[number % kBase];
    }
    // A machine of 32 bits divides these much faster.
    std::uint32_t rest = static_cast<std::uint32_t>(number);
    do {
        *--end = digits[rest % kBase];
        rest /= kBase;
    } while (rest != 0);
    return end;
}

constexpr char kDigits[] = "0123456789abcdef";
constexpr char kCapitalDigits[] = "0123456789ABCDEF";

std::uint64_t TakeUnsigned(unsigned longs, Arguments* args) {
    return longs == 0   ? va_arg(args->list, unsigned)
           : longs == 1 ? va_arg(args->list, unsigned long)
                        : va_arg(args->list, unsigned long long);
}

std::int64_t TakeSigned(unsigned longs, Arguments* args) {
    return longs == 0   ? va_arg(args->list, int)
           : longs == 1 ? va_arg(args->list, long)
                        : va_arg(args->list, long long);
}

/// Puts out padding and a number whose digits end before `end`. False when they do not fit.
bool PutPadded(Output* out, const char* begin, const char* end, const Conversion& conversion) {
    const std::size_t length = static_cast<std::size_t>(end - begin);
    const std::size_t padding = conversion.width > length ? conversion.width - length : 0;
    if (padding + length > static_cast<std::size_t>(out->end - out->at)) {
        return false;
    }
    for (std::size_t i = 0; i < padding; ++i) {
        *out->at++ = conversion.padding;
    }
    CopyText(out->at, begin, length);
    out->at += length;
    return true;
}

bool PutUnsigned(Output* out, const Conversion& conversion, std::uint64_t number) {
    char digits[kDigitsMax];
    char* const end = digits + sizeof digits;
    const char* begin =
        conversion.kind == 'u'
            ? WriteDigits<10>(end, number, kDigits)
            : WriteDigits<16>(end, number, conversion.kind == 'x' ? kDigits : kCapitalDigits);
    return PutPadded(out, begin, end, conversion);
}

bool PutSigned(Output* out, const Conversion& conversion, std::int64_t number) {
    const std::uint64_t bits = static_cast<std::uint64_t>(number);
    char digits[1 + kDigitsMax];
    char* const end = digits + sizeof digits;
    char* begin = WriteDigits<10>(end, number < 0 ? 0 - bits : bits, kDigits);
    if (number < 0) {
        *--begin = '-';
    }
    return PutPadded(out, begin, end, conversion);
}

/// Whether a conversion has nothing but what its kind is known with here.
bool IsPlain(const Conversion& conversion) {
    return conversion.kind == 's' ? conversion.width == 0 && conversion.longs == 0
                                  : conversion.precision == SIZE_MAX;
}

/// Carries out one conversion. Returns 0, `kDoesNotFit` or `kNotPlain`.
int Convert(Output* out, const Conversion& conversion, Arguments* args) {
    if (!IsPlain(conversion)) {
        return kNotPlain;
    }
    bool fits = false;
    if (conversion.kind == 's') {
        const char* text = va_arg(args->list, const char*);
        if (text == nullptr) {
            return kNotPlain;
        }
        fits = PutText(out, text, conversion.precision);
    } else if (conversion.kind == 'd') {
        const std::int64_t number = TakeSigned(conversion.longs, args);
        if (number < 0 && conversion.padding == '0') {
            return kNotPlain;  // the sign would have to come first
        }
        fits = PutSigned(out, conversion, number);
    } else if (conversion.kind == 'u' || conversion.kind == 'x' || conversion.kind == 'X') {
        fits = PutUnsigned(out, conversion, TakeUnsigned(conversion.longs, args));
    } else {
        return kNotPlain;
    }
    return fits ? 0 : kDoesNotFit;
}

int Format(Output* out, const char* format, Arguments* args) {
    for (;;) {
        format = PutLiteral(out, format);
        if (*format == '\0') {
            return 0;
        }
        if (*format != '%') {
            return kDoesNotFit;
        }
        ++format;
        const Conversion conversion = TakeConversion(&format, args);
        const int result = Convert(out, conversion, args);
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
