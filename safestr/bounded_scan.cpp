#include <cstdio>
#include <cstring>

#include "safestr/safestr.h"
#include "safestr/short_text.h"

// Conversions are passed to libc one at a time, so that a string can be measured before it is
// stored. The formats passed on are parts of the caller's format, never of the scanned text.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

namespace paramgen {
namespace {

constexpr std::size_t kBodyMax = 280;  // width, length and a scan set that names every byte
constexpr std::size_t kFormatSize = kBodyMax + sizeof "%*%n";

/// One conversion of a format, without its '%' or "%*".
struct Conversion {
    const char* body;  ///< width, length, conversion character and, for '[', the scan set
    int bodyLength;    ///< in characters
    char kind;         ///< the conversion character
    bool suppressed;   ///< "%*…": scanned, not stored
};

/// The destination of a conversion.
struct Destination {
    void* address;
    std::size_t capacity;  ///< in characters; 0 for numbers
};

/// Result of one step of a scan.
enum class Outcome { kMatched, kMismatch, kTextEnded, kBad };

const char* SkipSpace(const char* text) {
    while (IsSpace(*text)) {
        ++text;
    }
    return text;
}

bool StoresText(char kind) {
    return kind == 's' || kind == '[' || kind == 'c';
}

/// Returns the length of the length modifier at the start of `format`: hh, h, l, ll, z or none.
std::size_t LengthLetters(const char* format) {
    if (std::strncmp(format, "hh", 2) == 0 || std::strncmp(format, "ll", 2) == 0) {
        return 2;
    }
    return std::strspn(format, "hlz") == 0 ? 0 : 1;
}

/// Returns the end of the scan set that follows a '[', or null when it is not closed. A ']' at its
/// start belongs to the set.
const char* EndOfScanSet(const char* set) {
    set += *set == '^' ? 1 : 0;
    const char* close = *set == '\0' ? nullptr : std::strchr(set + 1, ']');
    return close == nullptr ? nullptr : close + 1;
}

/// Parses the conversion that follows a '%'. Returns its end, or null when it is not supported.
const char* ParseConversion(const char* format, Conversion* conversion) {
    conversion->suppressed = *format == '*';
    format += conversion->suppressed ? 1 : 0;
    conversion->body = format;
    format += std::strspn(format, "0123456789");
    const std::size_t letters = LengthLetters(format);
    const char kind = format[letters];
    conversion->kind = kind;
    if (kind == '\0' || std::strchr("diouxXaefgs[c", kind) == nullptr ||
        (letters != 0 && StoresText(kind))) {
        return nullptr;
    }
    format += letters + 1;
    const char* end = kind == '[' ? EndOfScanSet(format) : format;
    if (end == nullptr || static_cast<std::size_t>(end - conversion->body) > kBodyMax) {
        return nullptr;
    }
    conversion->bodyLength = static_cast<int>(end - conversion->body);
    return end;
}

/// Takes the destination of a conversion from the arguments. Returns false when it is null or has
/// no capacity.
bool TakeDestination(char kind, std::va_list* args, Destination* dest) {
    dest->address = va_arg(*args, void*);
    if (!StoresText(kind)) {
        return dest->address != nullptr;
    }
    dest->capacity = va_arg(*args, std::size_t);
    return dest->address != nullptr && dest->capacity != 0;
}

/// Stores in `taken` how many characters of `text` the conversion takes, with leading white space.
Outcome Measure(const char* text, const Conversion& conversion, int* taken) {
    char format[kFormatSize];
    sprintf_s(format, sizeof format, "%%*%.*s%%n", conversion.bodyLength, conversion.body);
    *taken = -1;
    const int result = std::sscanf(text, format, taken);
    if (*taken >= 0) {
        return Outcome::kMatched;
    }
    return result == EOF ? Outcome::kTextEnded : Outcome::kMismatch;
}

void StoreNumber(const char* text, const Conversion& conversion, void* dest) {
    char format[kFormatSize];
    sprintf_s(format, sizeof format, "%%%.*s", conversion.bodyLength, conversion.body);
    std::sscanf(text, format, dest);
}

/// Stores the characters from `begin` to `end`, and for %s and %[ a terminator. Returns false when
/// they do not fit.
bool StoreText(const char* begin, const char* end, char kind, const Destination& dest) {
    char* address = static_cast<char*>(dest.address);
    const std::size_t length = static_cast<std::size_t>(end - begin);
    const std::size_t terminator = kind == 'c' ? 0 : 1;
    if (length + terminator > dest.capacity) {
        address[0] = '\0';
        return false;
    }
    std::memcpy(address, begin, length);
    if (terminator != 0) {
        address[length] = '\0';
    }
    return true;
}

/// Executes one conversion and moves `text` past the characters that it took.
Outcome Convert(const Conversion& conversion, const char** text, std::va_list* args) {
    Destination dest = {};
    if (!conversion.suppressed && !TakeDestination(conversion.kind, args, &dest)) {
        return Outcome::kBad;
    }
    int taken = 0;
    const Outcome outcome = Measure(*text, conversion, &taken);
    if (outcome != Outcome::kMatched) {
        return outcome;
    }
    const char* begin = conversion.kind == 's' ? SkipSpace(*text) : *text;
    const char* end = *text + taken;
    *text = end;
    if (conversion.suppressed) {
        return Outcome::kMatched;
    }
    if (StoresText(conversion.kind)) {
        return StoreText(begin, end, conversion.kind, dest) ? Outcome::kMatched : Outcome::kBad;
    }
    StoreNumber(begin, conversion, dest.address);
    return Outcome::kMatched;
}

/// Matches one white space, plain character or "%%" of the format, and moves both past it.
Outcome MatchPlain(const char** format, const char** text) {
    if (IsSpace(**format)) {
        *text = SkipSpace(*text);
        ++*format;
        return Outcome::kMatched;
    }
    if (**format == '%') {
        *text = SkipSpace(*text);
        ++*format;
    }
    if (**text != **format) {
        return **text == '\0' ? Outcome::kTextEnded : Outcome::kMismatch;
    }
    ++*text;
    ++*format;
    return Outcome::kMatched;
}

int Scan(const char* text, const char* format, std::va_list* args) {
    int stored = 0;
    Outcome outcome = Outcome::kMatched;
    while (*format != '\0' && outcome == Outcome::kMatched) {
        if (*format != '%' || format[1] == '%') {
            outcome = MatchPlain(&format, &text);
            continue;
        }
        Conversion conversion;
        format = ParseConversion(format + 1, &conversion);
        if (format == nullptr) {
            return -1;
        }
        outcome = Convert(conversion, &text, args);
        stored += outcome == Outcome::kMatched && !conversion.suppressed ? 1 : 0;
    }
    const bool nothing = outcome == Outcome::kTextEnded && stored == 0;
    return outcome == Outcome::kBad || nothing ? -1 : stored;
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
