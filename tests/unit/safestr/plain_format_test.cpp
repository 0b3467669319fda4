#include "safestr/plain_format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

// Some formats are left to libc on purpose; the compiler's checks would refuse them.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int Format(char* dest, std::size_t size, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = FormatPlain(dest, size, format, std::strlen(format), args);
    va_end(args);
    return length;
}

/// Compares with libc's result, for every capacity from one byte to more than enough. Bytes beyond
/// the capacity must not change.
template <typename... Args>
void ExpectAsLibc(const char* format, Args... args) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    const int length = std::snprintf(nullptr, 0, format, args...);
    std::string expected(static_cast<std::size_t>(length) + 1, '#');
    std::snprintf(expected.data(), expected.size(), format, args...);
#pragma GCC diagnostic pop
    for (std::size_t size = 1; size < expected.size() + 10; ++size) {
        std::vector<char> dest(size + 1, '#');
        const int result = Format(dest.data(), size, format, args...);
        EXPECT_EQ(dest[size], '#') << format << " in " << size;
        if (size < expected.size()) {
            EXPECT_EQ(result, kDoesNotFit) << format << " in " << size;
        } else {
            EXPECT_EQ(result, length) << format << " in " << size;
            EXPECT_EQ(std::string(dest.data(), expected.size()), expected) << format;
        }
    }
}

/// A text at the end of an allocation, so that the sanitizer sees reading beyond it. It begins
/// `offset` bytes behind the start of the allocation.
class TextInBlock {
public:
    TextInBlock(const std::string& text, std::size_t offset)
        : bytes_(offset + text.size() + 1), offset_(offset) {
        std::copy(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
    }

    const char* c_str() const { return bytes_.data() + offset_; }

private:
    std::vector<char> bytes_;
    std::size_t offset_;
};

/// A text without a '%' of that many characters, all different.
std::string Literal(std::size_t length) {
    std::string text(length, '\0');
    std::iota(text.begin(), text.end(), 'A');
    return text;
}

TEST(FormatPlain, Literals) {
    ExpectAsLibc("");
    ExpectAsLibc("text");
    ExpectAsLibc("\033[m[a]: b\n");
}

TEST(FormatPlain, LiteralsOfEveryLengthAtEveryPlace) {
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t offset = 0; offset < 8; ++offset) {
            ExpectAsLibc(TextInBlock(Literal(length), offset).c_str());
        }
    }
}

TEST(FormatPlain, LiteralsAroundConversions) {
    for (std::size_t before = 0; before <= 17; ++before) {
        for (std::size_t behind = 0; behind <= 17; ++behind) {
            const std::string end = Literal(behind);
            const std::string format = Literal(before) + "%d" + end + "%u" + end;
            ExpectAsLibc(TextInBlock(format, before % 8).c_str(), -7, 42U);
        }
    }
}

TEST(FormatPlain, LiteralsGoAnywhereInTheDestination) {
    for (std::size_t offset = 0; offset < 8; ++offset) {
        for (std::size_t length = 0; length <= 24; ++length) {
            const std::string text = Literal(length);
            std::vector<char> dest(offset + length + 1, '#');
            EXPECT_EQ(Format(dest.data() + offset, length + 1, text.c_str()),
                      static_cast<int>(length));
            EXPECT_EQ(std::string(dest.begin(), dest.end() - 1), std::string(offset, '#') + text);
        }
    }
}

TEST(FormatPlain, NumbersAroundPowers) {
    unsigned long long power = 1;
    for (int digits = 1; digits <= 20; ++digits, power *= 10) {
        for (const unsigned long long number : {power - 1, power, power + 1}) {
            ExpectAsLibc("[%d]", static_cast<int>(number));
            ExpectAsLibc("[%d]", -static_cast<int>(number));
            ExpectAsLibc("[%u]", static_cast<unsigned>(number));
            ExpectAsLibc("[%lld]", static_cast<long long>(number));
            ExpectAsLibc("[%llu]", number);
            ExpectAsLibc("[%7u]", static_cast<unsigned>(number));
        }
    }
    for (int bits = 0; bits < 64; ++bits) {
        for (const unsigned long long number : {(1ULL << bits) - 1, 1ULL << bits}) {
            ExpectAsLibc("%llx", number);
            ExpectAsLibc("%X", static_cast<unsigned>(number));
            ExpectAsLibc("%010x", static_cast<unsigned>(number));
        }
    }
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
        ExpectAsLibc("%000004d", number);
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

TEST(FormatPlain, TextsOfEveryLength) {
    for (std::size_t length = 0; length <= 40; ++length) {
        const TextInBlock text(Literal(length), length % 8);
        ExpectAsLibc("%s", text.c_str());
        ExpectAsLibc("text [%s], another [%s]", text.c_str(), text.c_str());
        for (const int precision : {0, 1, 8, 39, 40}) {
            ExpectAsLibc("%.*s]", precision, text.c_str());
        }
    }
}

TEST(FormatPlain, ShortFormatsLeaveWhatIsBehindTheTerminator) {
    std::vector<char> dest(12, '#');
    EXPECT_EQ(Format(dest.data(), dest.size(), "%s", "text"), 4);
    EXPECT_EQ(std::string(dest.begin(), dest.end()), std::string("text\0#######", 12));
    EXPECT_EQ(Format(dest.data(), dest.size(), "%d:%u,", 10, 2), 5);
    EXPECT_EQ(std::string(dest.begin(), dest.end()), std::string("10:2,\0######", 12));
}

TEST(FormatPlain, NothingIsReadBehindAFormatThatEndsInAConversion) {
    char dest[64];
    for (const char* end : {"%", "%l", "%ll", "%0", "%5", "%12", "%.", "%.3", "%.*", "%5.3l"}) {
        for (std::size_t length = 0; length <= 17; ++length) {
            const TextInBlock format(Literal(length) + end, length % 8);
            EXPECT_EQ(Format(dest, sizeof dest, format.c_str(), 1), kNotPlain) << format.c_str();
        }
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
    EXPECT_EQ(Format(dest, sizeof dest, "%f", 1e300), kNotPlain);
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

// Where fractions are not supported, all of them are left to libc, and the tests see nothing else.
constexpr bool kHasFractions = sizeof(void*) == 8;

std::string Fraction(double number) {
    char text[64];
    const int length = Format(text, sizeof text, "%f", number);
    return length == kNotPlain ? "left to libc" : text;
}

TEST(FormatPlain, FractionsAreRoundedToSixPlaces) {
    if (!kHasFractions) {
        GTEST_SKIP();
    }
    EXPECT_EQ(Fraction(0.0), "0.000000");
    EXPECT_EQ(Fraction(-0.0), "-0.000000");
    EXPECT_EQ(Fraction(30.0), "30.000000");
    EXPECT_EQ(Fraction(-2.5), "-2.500000");
    EXPECT_EQ(Fraction(static_cast<double>(29.97F)), "29.969999");
    EXPECT_EQ(Fraction(0.9999996), "1.000000");
    EXPECT_EQ(Fraction(9.9999994), "9.999999");
    EXPECT_EQ(Fraction(4294967295.9999995), "4294967296.000000");
    // Between two: the even digit.
    EXPECT_EQ(Fraction(0.0078125), "0.007812");
    EXPECT_EQ(Fraction(0.0234375), "0.023438");
    EXPECT_EQ(Fraction(-17.0078125), "-17.007812");
}

TEST(FormatPlain, LargeAndSmallFractionsAreLeftToLibc) {
    for (const double number : {4294967296.0, -4294967296.0, 1e300, 0.000488, 1.0 + 0x1p-12, 1e-300,
                                HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(Fraction(number), "left to libc") << number;
    }
    char text[64];
    EXPECT_EQ(Format(text, sizeof text, "%.2f", 1.0), kNotPlain);
    EXPECT_EQ(Format(text, sizeof text, "%9f", 1.0), kNotPlain);
}

TEST(FormatPlain, FractionsAreThoseOfLibc) {
    if (!kHasFractions) {
        GTEST_SKIP();
    }
    std::mt19937_64 random(1);
    for (int round = 0; round < 200'000; ++round) {
        const double scale = std::ldexp(1.0, static_cast<int>(random() % 48) - 14);
        double number = static_cast<double>(static_cast<std::int64_t>(random())) * 0x1p-63 * scale;
        if (round % 2 == 0) {
            number = static_cast<double>(static_cast<float>(number));
        } else if (round % 5 == 0) {
            number = std::round(number * 128) / 128;  // ends in a five, often at the seventh place
        }
        const std::string written = Fraction(number);
        char expected[64];
        std::snprintf(expected, sizeof expected, "%f", number);
        ASSERT_TRUE(written == expected || written == "left to libc") << number << ' ' << written;
    }
    ExpectAsLibc("%f", 29.97);
    ExpectAsLibc("[%d] %f, %s\n", 7, -0.5, "x");
    ExpectAsLibc("%f%f", 123456.789, 0.25);
}

}  // namespace
}  // namespace paramgen::testing
