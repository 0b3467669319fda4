#include "safestr/plain_format.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

// The formats' checks at compile time would refuse those that are for libc.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int Format(char* dest, std::size_t size, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = FormatPlain(dest, size, format, args);
    va_end(args);
    return length;
}

/// Has libc format the same, and compares: with room to spare, with just enough, and with one byte
/// less, where nothing beyond the capacity may be touched.
template <typename... Args>
void ExpectAsLibc(const char* format, Args... args) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    const int length = std::snprintf(nullptr, 0, format, args...);
    std::string expected(static_cast<std::size_t>(length) + 1, '#');
    std::snprintf(expected.data(), expected.size(), format, args...);
#pragma GCC diagnostic pop
    for (const std::size_t size : {expected.size() + 50, expected.size()}) {
        std::vector<char> dest(size + 1, '#');
        EXPECT_EQ(Format(dest.data(), size, format, args...), length) << format;
        EXPECT_EQ(std::string(dest.data(), expected.size()), expected) << format;
        EXPECT_EQ(dest[size], '#') << format;
    }
    if (length > 0) {
        std::vector<char> dest(expected.size(), '#');
        EXPECT_EQ(Format(dest.data(), expected.size() - 1, format, args...), kDoesNotFit) << format;
        EXPECT_EQ(dest.back(), '#') << format;
    }
}

TEST(FormatPlain, Literals) {
    ExpectAsLibc("");
    ExpectAsLibc("text");
    ExpectAsLibc("\033[m[a]: b\n");
}

TEST(FormatPlain, SignedNumbers) {
    for (const int number : {0, 1, -1, 9, 10, -10, 42, 123456789, INT_MAX, INT_MIN}) {
        ExpectAsLibc("%d", number);
        ExpectAsLibc("[%3d]", number);
        ExpectAsLibc("[%12d]", number);
    }
    for (const long long number : {0LL, -1LL, 4294967295LL, 4294967296LL, 99999999999LL,
                                   10000000000000000LL, LLONG_MAX, LLONG_MIN}) {
        ExpectAsLibc("%lld", number);
        ExpectAsLibc("[%25lld]", number);
    }
    ExpectAsLibc("%ld", LONG_MIN);
    ExpectAsLibc("%ld", LONG_MAX);
}

TEST(FormatPlain, ZerosBeforeNumbersThatAreNotNegative) {
    for (const int number : {0, 7, 59, 123}) {
        ExpectAsLibc("%02d", number);
        ExpectAsLibc("%05d", number);
        ExpectAsLibc("%03lld", static_cast<long long>(number));
        ExpectAsLibc("%0d", number);
    }
}

TEST(FormatPlain, UnsignedNumbers) {
    for (const unsigned number : {0U, 1U, 9U, 10U, 4000000000U, UINT_MAX}) {
        ExpectAsLibc("%u", number);
        ExpectAsLibc("%x", number);
        ExpectAsLibc("%X", number);
        ExpectAsLibc("%08X", number);
        ExpectAsLibc("%08x", number);
        ExpectAsLibc("[%11u]", number);
        ExpectAsLibc("%011u", number);
    }
    for (const unsigned long long number :
         {0ULL, 1ULL << 32U, 12345678901234567890ULL, ULLONG_MAX}) {
        ExpectAsLibc("%llu", number);
        ExpectAsLibc("%llx", number);
        ExpectAsLibc("%020llX", number);
    }
    ExpectAsLibc("%lu", ULONG_MAX);
    ExpectAsLibc("%lx", ULONG_MAX);
}

TEST(FormatPlain, Texts) {
    for (const char* text :
         {"", "a", "1234567", "12345678", "123456789", "a text of some length"}) {
        ExpectAsLibc("%s", text);
        ExpectAsLibc("%s:%s", text, text);
        for (const int precision : {-1, 0, 1, 7, 8, 9, 1000}) {
            ExpectAsLibc("<%.*s>", precision, text);
        }
        ExpectAsLibc("<%.3s>", text);
        ExpectAsLibc("<%.s>", text);
    }
}

TEST(FormatPlain, PrecisionBoundsWhatIsReadOfAText) {
    const char text[] = {'a', 'b', 'c'};  // without terminator
    char dest[8];
    EXPECT_EQ(Format(dest, sizeof dest, "%.*s", 3, text), 3);
    EXPECT_STREQ(dest, "abc");
}

TEST(FormatPlain, MixedArgumentsComeInTheirOrder) {
    ExpectAsLibc("%s%d%llu%s%x%ld", "a", -1, 1ULL << 40U, "b", 255U, -5L);
}

TEST(FormatPlain, AnythingElseIsForLibc) {
    char dest[64];
    const char* nothing = nullptr;
    EXPECT_EQ(Format(dest, sizeof dest, "%f", 1.5), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "text %g", 1.5), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%p", dest), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%c", 'c'), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%%"), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%i", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%-5d", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%+d", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "% d", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%#x", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%.3d", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%.*u", 3, 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%*d", 3, 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%04d", -5), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%5s", "a"), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%ls", L"a"), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%hd", 1), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%zu", sizeof dest), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%s", nothing), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%"), kNotPlain);
    EXPECT_EQ(Format(dest, sizeof dest, "%10000d", 1), kNotPlain);
}

TEST(FormatPlain, OneByteHoldsTheEmptyTextOnly) {
    char dest[2] = {'#', '#'};
    EXPECT_EQ(Format(dest, 1, ""), 0);
    EXPECT_EQ(dest[0], '\0');
    EXPECT_EQ(Format(dest, 1, "a"), kDoesNotFit);
    EXPECT_EQ(Format(dest, 1, "%d", 1), kDoesNotFit);
    EXPECT_EQ(Format(dest, 1, "%s", "a"), kDoesNotFit);
    EXPECT_EQ(dest[1], '#');
}

}  // namespace
}  // namespace paramgen::testing
