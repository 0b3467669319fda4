// The bounded memory and text functions, compared with libc's. The first byte of an input chooses
// the function, the next two are its capacity and its count. Destinations are allocated with
// exactly their capacity, so that the sanitizer sees a byte written beyond.

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"
#include "safestr/plain_format.h"
#include "safestr/safestr.h"

// Formats come from a table or from the input.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"

namespace paramgen::testing {
namespace {

constexpr char kUntouched = '\x5A';

/// A destination of exactly `size` bytes.
class Block {
public:
    explicit Block(std::size_t size) : size_(size), bytes_(new char[size]) {
        std::memset(bytes_.get(), kUntouched, size);
    }
    char* get() const { return bytes_.get(); }
    std::size_t size() const { return size_; }

private:
    std::size_t size_;
    std::unique_ptr<char[]> bytes_;
};

void CheckMemory(unsigned function, unsigned capacity, unsigned count, const std::string& text) {
    const Block dest(capacity);
    std::string expected(dest.get(), capacity);
    const std::size_t taken = count < text.size() ? count : text.size();
    int result = 0;
    if (function == 0) {
        result = memset_s(dest.get(), capacity, 'm', count);
        if (count <= capacity && capacity != 0) {
            expected.replace(0, count, count, 'm');
        }
        Require((result == 0) == (count <= capacity && capacity != 0), "memset_s fits or fails");
    } else {
        result = function == 1 ? memcpy_s(dest.get(), capacity, text.data(), taken)
                               : memmove_s(dest.get(), capacity, text.data(), taken);
        if (taken <= capacity) {
            expected.replace(0, taken, text, 0, taken);
        }
        Require((result == 0) == (taken <= capacity && capacity != 0), "a copy fits or fails");
    }
    Require(std::memcmp(dest.get(), expected.data(), capacity) == 0, "just those bytes");
}

/// Formats with one of the formats of keys, records and paths.
template <typename Formatter>
int Format(unsigned which, const char* text, unsigned number, const Formatter& formatter) {
    const int value = static_cast<int>(number) - 0x8000;
    switch (which % 8) {
        case 0:
            return formatter("%s", text);
        case 1:
            return formatter("%s:%s", text, "key");
        case 2:
            return formatter("vcap.pipe.%d.chn.%d", value, -value);
        case 3:
            return formatter("%s%c%s", text, '/', text);
        case 4:
            return formatter("[%02d:%02d:%02d:%04lld][%s][%s] %s:%d ", value, 0, 59, 999LL, "ERR",
                             "TAG", text, value);
        case 5:
            return formatter("module:module%d%%", value);
        case 6:
            return formatter("%f %08X [%.*s]", value / 7.0, number, static_cast<int>(number % 32),
                             text);
        default:
            return formatter("fixed");
    }
}

void CheckFormat(unsigned function, unsigned capacity, unsigned count, Input input) {
    const unsigned which = input.Byte();
    const unsigned number = input.Word();
    const std::string text = input.TextUpTo('\0');
    char whole[8192];
    const int length = Format(which, text.c_str(), number, [&](const char* format, auto... args) {
        return std::snprintf(whole, sizeof whole, format, args...);
    });
    if (static_cast<std::size_t>(length) >= sizeof whole) {
        return;
    }
    const Block dest(capacity);
    const int result = Format(which, text.c_str(), number, [&](const char* format, auto... args) {
        return function == 3 ? sprintf_s(dest.get(), capacity, format, args...)
                             : snprintf_s(dest.get(), capacity, count, format, args...);
    });
    const std::size_t most = function == 3 ? capacity : count;
    const bool fits =
        static_cast<unsigned>(length) < capacity && static_cast<std::size_t>(length) <= most;
    Require(result == (fits ? length : -1), "a text fits or fails");
    Require(capacity == 0 || std::strcmp(dest.get(), fits ? whole : "") == 0,
            "a text is whole or empty");
}

/// The conversions of a format for `FormatPlain`, in order.
struct PlainFormat {
    bool isSound = true;  ///< defined for libc, too, with at most four arguments
    std::size_t shortestPrecision = SIZE_MAX;  ///< smallest precision of its "%s"
    std::vector<char> kinds;
};

PlainFormat ReadPlainFormat(const std::string& format) {
    PlainFormat plain;
    std::size_t at = 0;
    while ((at = format.find('%', at)) != std::string::npos) {
        const std::size_t begin = at + 1;
        at = format.find_first_not_of("-+ #0", begin);
        const std::size_t width = std::min(at, format.size());
        at = std::min(format.find_first_not_of("0123456789", width), format.size());
        plain.isSound = plain.isSound && at - width < 4;
        std::size_t precision = SIZE_MAX;
        if (at < format.size() && format[at] == '.') {
            precision = std::strtoul(format.c_str() + at + 1, nullptr, 10);
            const std::size_t digits = at + 1;
            at = std::min(format.find_first_not_of("0123456789", digits), format.size());
            plain.isSound = plain.isSound && at - digits < 4;
        }
        const std::size_t longs = at;
        at = std::min(format.find_first_not_of('l', at), format.size());
        const char kind = at < format.size() ? format[at++] : '\0';
        plain.isSound = plain.isSound && kind != '\0' && std::strchr("duxXs", kind) != nullptr &&
                        at - 1 - longs <= (kind == 's' ? 0U : 2U);
        plain.kinds.push_back(kind);
        plain.shortestPrecision =
            kind == 's' ? std::min(plain.shortestPrecision, precision) : plain.shortestPrecision;
    }
    plain.isSound = plain.isSound && plain.kinds.size() <= 4;
    return plain;
}

[[gnu::format(printf, 3, 4)]] int CallFormatPlain(char* dest, std::size_t capacity,
                                                  const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = FormatPlain(dest, capacity, format, std::strlen(format), args);
    va_end(args);
    return length;
}

/// Checks a format, numbers and a text that all come from the input.
void CheckPlainFormat(unsigned capacity, Input input) {
    const std::string format = input.TextUpTo('\0').c_str();
    const std::string text = input.TextUpTo('\0');
    const PlainFormat plain = ReadPlainFormat(format);
    if (!plain.isSound || capacity == 0) {
        return;
    }
    // A text that every precision cuts short needs no terminator.
    const bool isEndless = plain.shortestPrecision <= text.size() && !text.empty();
    const Block source(text.size() + (isEndless ? 0 : 1));
    std::memcpy(source.get(), text.c_str(), source.size());
    std::array<std::uintptr_t, 4> values = {};
    std::array<std::uintptr_t, 4> libcValues = {};  // with a terminator, which ASan requires
    for (std::size_t i = 0; i < plain.kinds.size(); ++i) {
        const std::uintptr_t number =
            std::uintptr_t{input.Word()} << 48 | std::uintptr_t{input.Word()} << 24 | input.Word();
        const bool isText = plain.kinds[i] == 's';
        values[i] = isText ? reinterpret_cast<std::uintptr_t>(source.get()) : number;
        libcValues[i] = isText ? reinterpret_cast<std::uintptr_t>(text.c_str()) : number;
    }
    if (isEndless && std::count(plain.kinds.begin(), plain.kinds.end(), 's') > 1) {
        return;  // only the smallest precision is known, not that of each text
    }
    static char whole[8192];
    const int length = std::snprintf(whole, sizeof whole, format.c_str(), libcValues[0],
                                     libcValues[1], libcValues[2], libcValues[3]);
    const Block formatBlock(format.size() + 1);  // so that reading beyond its end is seen
    std::memcpy(formatBlock.get(), format.c_str(), format.size() + 1);
    const Block dest(capacity);
    const int result = CallFormatPlain(dest.get(), capacity, formatBlock.get(), values[0],
                                       values[1], values[2], values[3]);
    const bool fits = length >= 0 && static_cast<unsigned>(length) < capacity;
    if (result >= 0) {
        Require(fits && result == length && std::strcmp(dest.get(), whole) == 0, "what libc says");
    } else if (result == kDoesNotFit) {
        Require(!fits, "what does not fit does not fit libc");
    }
}

constexpr std::size_t kSlots = 16;

/// The arguments of a scan. A slot holds an address or a capacity.
struct ScanArguments {
    std::array<std::uintptr_t, kSlots> slots = {};
    std::size_t used = 0;
    std::array<std::unique_ptr<Block>, kSlots> blocks;
    std::vector<const Block*> texts;  ///< blocks of %s and %[, by field; null for other fields
    bool isSound = true;              ///< the format is defined for libc

    void Add(std::size_t size, char kind) {
        const bool isText = kind == 's' || kind == '[' || kind == 'c';
        if (used + 2 > kSlots) {
            isSound = false;
            return;
        }
        blocks[used] = std::make_unique<Block>(size);
        slots[used] = reinterpret_cast<std::uintptr_t>(blocks[used]->get());
        texts.push_back(isText && kind != 'c' ? blocks[used].get() : nullptr);
        ++used;
        if (isText) {
            slots[used++] = size;
        }
    }
};

std::size_t IntegerSize(const std::string& length) {
    if (length == "hh") {
        return sizeof(char);
    }
    if (length == "h") {
        return sizeof(short);
    }
    return length.empty() ? sizeof(int) : sizeof(long long);
}

/// Makes an argument for every conversion of a format, up to the first invalid one.
ScanArguments MakeArguments(const std::string& format, std::size_t capacity) {
    ScanArguments arguments;
    std::size_t at = 0;
    while ((at = format.find('%', at)) != std::string::npos && arguments.isSound) {
        ++at;
        if (format[at] == '%') {
            ++at;
            continue;
        }
        const bool isStored = format[at] != '*';
        at += isStored ? 0 : 1;
        const std::size_t width = at;
        at = std::min(format.find_first_not_of("0123456789", at), format.size());
        arguments.isSound = at - width < 7;
        const std::size_t letters = at;
        at = std::min(format.find_first_not_of("hlz", at), format.size());
        const std::string length = format.substr(letters, at - letters);
        const char kind = at < format.size() ? format[at++] : '\0';
        const bool isText = kind == 's' || kind == '[' || kind == 'c';
        const bool isFloat = kind == 'a' || kind == 'e' || kind == 'f' || kind == 'g';
        const bool isInteger = kind != '\0' && std::strchr("diouxX", kind) != nullptr;
        const bool isLength = length.empty() || length == "h" || length == "hh" || length == "l" ||
                              length == "ll" || length == "z";
        if (!(isText || isFloat || isInteger) || !isLength || (isText && !length.empty())) {
            return arguments;  // the scan ends here
        }
        if (isFloat && !length.empty() && length != "l") {
            arguments.isSound = false;
        }
        if (kind == '[') {
            at += format[at] == '^' ? 1 : 0;
            const std::size_t close = at < format.size() ? format.find(']', at + 1) : at;
            if (close >= format.size()) {
                return arguments;
            }
            at = close + 1;
        }
        if (isStored) {
            const std::size_t floatSize = length.empty() ? sizeof(float) : sizeof(double);
            arguments.Add(isText ? capacity : (isFloat ? floatSize : IntegerSize(length)), kind);
        }
    }
    return arguments;
}

void CheckScan(unsigned capacity, Input input) {
    const std::string format = input.TextUpTo('\0').c_str();
    const std::string text = input.TextUpTo('\0').c_str();
    const ScanArguments arguments = MakeArguments(format, capacity);
    if (!arguments.isSound) {
        return;
    }
    const auto& s = arguments.slots;
    const int stored = sscanf_s(text.c_str(), format.c_str(), s[0], s[1], s[2], s[3], s[4], s[5],
                                s[6], s[7], s[8], s[9], s[10], s[11], s[12], s[13], s[14], s[15]);
    Require(stored >= -1 && stored <= static_cast<int>(kSlots), "a number of fields");
    for (std::size_t field = 0; field < arguments.texts.size(); ++field) {
        const Block* block = arguments.texts[field];
        Require(block == nullptr || static_cast<int>(field) >= stored ||
                    std::memchr(block->get(), '\0', capacity) != nullptr,
                "a text has an end");
    }
}

/// Checks a format with one conversion of text against libc: it must store the same, or report that
/// the text does not fit.
void CheckTextScan(unsigned capacity, Input input) {
    static const char* const kFormats[] = {
        "%s",        "%[^]]", "[%[^]]", "%[^=] =", "%7s", " %[a-z]", "%*d %s", "%[^=] = \"%*[^\"]",
        "%*[^=]=%s", "%%%s",  "%[]x]",  "x%5[^;#]"};
    const char* format = kFormats[input.Byte() % std::size(kFormats)];
    const std::string text = input.TextUpTo('\0').c_str();
    std::string expected(text.size() + 1, kUntouched);
    const int expectedCount = std::sscanf(text.c_str(), format, expected.data());
    const Block dest(capacity);
    const int stored = sscanf_s(text.c_str(), format, dest.get(), std::size_t{capacity});
    if (capacity == 0) {
        Require(stored <= 0, "nothing fits in nothing");
        return;
    }
    const bool fits = std::strlen(expected.c_str()) < capacity;
    if (expectedCount == 1 && fits) {
        Require(stored == 1 && std::strcmp(dest.get(), expected.c_str()) == 0, "what libc stores");
    } else if (expectedCount == 1) {
        Require(stored == -1 && dest.get()[0] == '\0', "a text too long is refused");
    } else {
        Require(stored == expectedCount && dest.get()[0] == kUntouched, "nothing is stored");
    }
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen::testing;
    Input input(data, size);
    const unsigned function = input.Byte() % 8;
    const unsigned capacity = input.Byte();
    const unsigned count = input.Byte();
    if (function <= 2) {
        CheckMemory(function, capacity, count, std::string(input.Rest()));
    } else if (function <= 4) {
        CheckFormat(function, capacity, count, input);
    } else if (function == 5) {
        CheckTextScan(capacity, input);
    } else if (function == 7) {
        CheckPlainFormat(capacity, input);
    } else {
        CheckScan(capacity, input);
    }
    return 0;
}
