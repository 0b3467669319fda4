#include <cctype>
#include <cstdio>
#include <cstring>

#include "safestr/safestr.h"

// One conversion at a time is handed to libc, so that a string can be measured before it is stored.
// The formats handed over are cut from the caller's format, never from the scanned text.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

namespace paramgen {
namespace {

/// One conversion of a format: what stands between its '%' (or "%*") and its end.
struct Conversion {
    const char* body;  ///< width, length, conversion character and, for '[', the scan set
    int bodyLength;    ///< in characters
    char kind;         ///< the conversion character
    bool suppressed;   ///< "%*…": scanned, not stored
};

constexpr int kBodyMax = 280;  // width, length and a scan set that names every byte

bool IsSpace(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

const char* SkipSpace(const char* text) {
    while (IsSpace(*text)) {
        ++text;
    }
    return text;
}

bool StoresText(char kind) {
    return kind == 's' || kind == '[' || kind == 'c';
}

/// The end of the scan set that follows a '[', or null when it is not closed. A ']' that comes
/// first belongs to the set.
const char* EndOfScanSet(const char* set) {
    set += *set == '^' ? 1 : 0;
    const char* close = *set == '\0' ? nullptr : std::strchr(set + 1, ']');
    return close == nullptr ? nullptr : close + 1;
}

/// Reads the conversion that follows a '%'. Returns its end, or null when it is none that this
/// scanner knows.
const char* ParseConversion(const char* format, Conversion* conversion) {
    conversion->suppressed = *format == '*';
    format += conversion->suppressed ? 1 : 0;
    conversion->body = format;
    format += std::strspn(format, "0123456789");
    const std::size_t lengthLetters = std::strspn(format, "hlz");
    format += lengthLetters;
    conversion->kind = *format;
    if (*format == '\0' || std::strchr("diouxXaefgs[c", *format) == nullptr ||
        (lengthLetters != 0 && StoresText(*format))) {
        return nullptr;
    }
    ++format;
    if (conversion->kind == '[') {
        format = EndOfScanSet(format);
    }
    if (format == nullptr || format - conversion->body > kBodyMax) {
        return nullptr;
    }
    conversion->bodyLength = static_cast<int>(format - conversion->body);
    return format;
}

/// How many characters of `text` the conversion takes, leading white space included; -1 when the
/// text does not match.
int Measure(const char* text, const Conversion& conversion) {
    char format[kBodyMax + 8];
    int taken = -1;
    sprintf_s(format, sizeof format, "%%*%.*s%%n", conversion.bodyLength, conversion.body);
    std::sscanf(text, format, &taken);
    return taken;
}

void StoreNumber(const char* text, const Conversion& conversion, void* dest) {
    char format[kBodyMax + 8];
    sprintf_s(format, sizeof format, "%%%.*s", conversion.bodyLength, conversion.body);
    std::sscanf(text, format, dest);
}

/// Stores the characters [begin, end) in `dest`; false when they do not fit.
bool StoreText(const char* begin, const char* end, char kind, char* dest, std::size_t capacity) {
    const std::size_t length = static_cast<std::size_t>(end - begin);
    const std::size_t terminator = kind == 'c' ? 0 : 1;
    if (length + terminator > capacity) {
        return false;
    }
    std::memcpy(dest, begin, length);
    if (terminator != 0) {
        dest[length] = '\0';
    }
    return true;
}

/// Matches one white space, plain character or "%%" of the format, and moves both on. False when
/// the text differs.
bool MatchPlain(const char** format, const char** text) {
    if (IsSpace(**format)) {
        *text = SkipSpace(*text);
        ++*format;
        return true;
    }
    if (**format == '%') {
        *text = SkipSpace(*text);
        ++*format;
    }
    if (**text != **format) {
        return false;
    }
    ++*text;
    ++*format;
    return true;
}

int Scan(const char* text, const char* format, std::va_list* args) {
    int stored = 0;
    while (*format != '\0') {
        if (*format != '%' || format[1] == '%') {
            if (!MatchPlain(&format, &text)) {
                return stored == 0 && *text == '\0' ? -1 : stored;
            }
            continue;
        }
        Conversion conversion;
        format = ParseConversion(format + 1, &conversion);
        if (format == nullptr) {
            return -1;
        }
        void* dest = conversion.suppressed ? nullptr : va_arg(*args, void*);
        std::size_t capacity = 0;
        if (!conversion.suppressed && StoresText(conversion.kind)) {
            capacity = va_arg(*args, std::size_t);
            if (dest == nullptr || capacity == 0) {
                return -1;
            }
            *static_cast<char*>(dest) = '\0';
        }
        const int taken = Measure(text, conversion);
        if (taken < 0 || (!conversion.suppressed && dest == nullptr)) {
            return taken < 0 && (stored != 0 || *SkipSpace(text) != '\0') ? stored : -1;
        }
        if (capacity != 0) {
            const char* begin = conversion.kind == 's' ? SkipSpace(text) : text;
            if (!StoreText(begin, text + taken, conversion.kind, static_cast<char*>(dest),
                           capacity)) {
                return -1;
            }
        } else if (dest != nullptr) {
            StoreNumber(text, conversion, dest);
        }
        stored += conversion.suppressed ? 0 : 1;
        text += taken;
    }
    return stored;
}

}  // namespace

int sscanf_s(const char* text, const char* format, ...) {
    if (text == nullptr || format == nullptr) {
        return -1;
    }
    std::va_list args;
    va_start(args, format);
    const int stored = Scan(text, format, &args);
    va_end(args);
    return stored;
}

}  // namespace paramgen
