#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "safestr/safestr.h"

namespace paramgen::testing {
namespace {

/// A buffer of eight characters; the scan is told a smaller capacity.
struct Text {
    char bytes[8] = {'#', '#', '#', '#', '#', '#', '#', '#'};
    std::size_t size = 4;  ///< the capacity that the scan is told
    std::string All() const { return {bytes, sizeof bytes}; }
};

TEST(SscanfS, EachIntegerConversion) {
    int d = 0;
    int i = 0;
    unsigned u = 0;
    unsigned o = 0;
    unsigned x = 0;
    unsigned upper = 0;
    EXPECT_EQ(sscanf_s("-12 0x1f 42 17 fe BEEF", "%d %i %u %o %x %X", &d, &i, &u, &o, &x, &upper),
              6);
    EXPECT_EQ(d, -12);
    EXPECT_EQ(i, 31);
    EXPECT_EQ(u, 42U);
    EXPECT_EQ(o, 15U);
    EXPECT_EQ(x, 0xFEU);
    EXPECT_EQ(upper, 0xBEEFU);
}

TEST(SscanfS, EachLengthStoresItsWidth) {
    signed char hh[2] = {0, 7};
    short h[2] = {0, 7};
    long l = 0;
    long long ll = 0;
    std::size_t z = 0;
    EXPECT_EQ(sscanf_s("-1 -2 -3 -4 5", "%hhd%hd%ld%lld%zu", hh, h, &l, &ll, &z), 5);
    EXPECT_EQ(hh[0], -1);
    EXPECT_EQ(hh[1], 7);
    EXPECT_EQ(h[0], -2);
    EXPECT_EQ(h[1], 7);
    EXPECT_EQ(l, -3);
    EXPECT_EQ(ll, -4);
    EXPECT_EQ(z, 5U);
}

TEST(SscanfS, EachFloatConversion) {
    float a = 0;
    float e = 0;
    float f = 0;
    double g = 0;
    EXPECT_EQ(sscanf_s("0x1p3 25e-1 .5 -7.25", "%a%e%f%lg", &a, &e, &f, &g), 4);
    EXPECT_EQ(a, 8.0F);
    EXPECT_EQ(e, 2.5F);
    EXPECT_EQ(f, 0.5F);
    EXPECT_EQ(g, -7.25);
}

TEST(SscanfS, WidthEndsANumber) {
    int first = 0;
    int second = 0;
    EXPECT_EQ(sscanf_s("12345", "%2d%10d", &first, &second), 2);
    EXPECT_EQ(first, 12);
    EXPECT_EQ(second, 345);
}

TEST(SscanfS, StringSkipsBlanksInFrontAndEndsAtTheNext) {
    Text text;
    EXPECT_EQ(sscanf_s(" \t abc def", "%s", text.bytes, text.size), 1);
    EXPECT_EQ(text.All(), std::string("abc\0####", 8));
}

TEST(SscanfS, LongestStringFitsAndOneMoreLeavesNothing) {
    Text text;
    EXPECT_EQ(sscanf_s("abc", "%s", text.bytes, text.size), 1);
    EXPECT_STREQ(text.bytes, "abc");
    EXPECT_EQ(sscanf_s("abcd", "%s", text.bytes, text.size), -1);
    EXPECT_EQ(text.bytes[0], '\0');
    EXPECT_EQ(text.All().substr(4), "####");
}

TEST(SscanfS, TooLongStringFailsThoughFieldsWereStored) {
    Text text;
    int number = 0;
    EXPECT_EQ(sscanf_s("7 abcd", "%d %s", &number, text.bytes, text.size), -1);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(text.bytes[0], '\0');
}

TEST(SscanfS, WidthCutsAStringToItsCapacity) {
    Text text;
    int rest = 0;
    EXPECT_EQ(sscanf_s("abc456", "%3s%d", text.bytes, text.size, &rest), 2);
    EXPECT_STREQ(text.bytes, "abc");
    EXPECT_EQ(rest, 456);
}

TEST(SscanfS, CharactersHaveNoTerminatorAndSkipNoBlank) {
    Text text;
    EXPECT_EQ(sscanf_s(" b", "%c", text.bytes, text.size), 1);
    EXPECT_EQ(text.All(), " #######");
    EXPECT_EQ(sscanf_s("a cd", "%4c", text.bytes, text.size), 1);
    EXPECT_EQ(text.All(), "a cd####");
    EXPECT_EQ(sscanf_s("abcde", "%5c", text.bytes, text.size), -1);
    EXPECT_EQ(text.All(), std::string("\0 cd####", 8));
}

TEST(SscanfS, ScanSetTakesItsCharactersAndSkipsNoBlank) {
    Text text;
    EXPECT_EQ(sscanf_s("cabx", "%[a-c]", text.bytes, text.size), 1);
    EXPECT_STREQ(text.bytes, "cab");
    EXPECT_EQ(sscanf_s(" ab", "%[a-c]", text.bytes, text.size), 0);
    EXPECT_EQ(sscanf_s("abca", "%[a-c]", text.bytes, text.size), -1);
    EXPECT_EQ(text.bytes[0], '\0');
}

TEST(SscanfS, InvertedScanSetStopsAtItsCharacters) {
    Text text;
    Text value;
    EXPECT_EQ(sscanf_s("k y=v w;c", "%[^=]=%[^;]", text.bytes, text.size, value.bytes, value.size),
              2);
    EXPECT_STREQ(text.bytes, "k y");
    EXPECT_STREQ(value.bytes, "v w");
}

TEST(SscanfS, BracketFirstInAScanSetBelongsToIt) {
    Text text;
    Text rest;
    EXPECT_EQ(sscanf_s("]a]b", "%[]a]%s", text.bytes, text.size, rest.bytes, rest.size), 2);
    EXPECT_STREQ(text.bytes, "]a]");
    EXPECT_STREQ(rest.bytes, "b");
    EXPECT_EQ(sscanf_s("xy]z", "%[^]]%s", text.bytes, text.size, rest.bytes, rest.size), 2);
    EXPECT_STREQ(text.bytes, "xy");
    EXPECT_STREQ(rest.bytes, "]z");
}

TEST(SscanfS, ScanSetNeedsOneCharacter) {
    Text text;
    EXPECT_EQ(sscanf_s("=v", "%[^=]", text.bytes, text.size), 0);
    EXPECT_EQ(text.All(), "########");
}

TEST(SscanfS, SuppressedFieldsAreScannedButNotStored) {
    Text text;
    int number = 0;
    EXPECT_EQ(sscanf_s("12 abcdefghij 34 y", "%*d %*s%d%s", &number, text.bytes, text.size), 2);
    EXPECT_EQ(number, 34);
    EXPECT_STREQ(text.bytes, "y");
    EXPECT_EQ(sscanf_s("aab7", "%*[a]%*c%d", &number), 1);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(sscanf_s("12", "%*d"), 0);
}

TEST(SscanfS, PlainCharactersHaveToBeThere) {
    int number = 0;
    EXPECT_EQ(sscanf_s("no 5", "no %d", &number), 1);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(sscanf_s("ni 6", "no %d", &number), 0);
    EXPECT_EQ(sscanf_s("6 x", "%d y", &number), 1);
    EXPECT_EQ(sscanf_s("7", "%d y", &number), 1);
    EXPECT_EQ(number, 7);
}

TEST(SscanfS, BlankInTheFormatSkipsAnyWhiteSpaceOrNone) {
    int number = 0;
    EXPECT_EQ(sscanf_s("a \t\n=8", "a =%d", &number), 1);
    EXPECT_EQ(number, 8);
    EXPECT_EQ(sscanf_s("a=9", "a =%d", &number), 1);
    EXPECT_EQ(number, 9);
}

TEST(SscanfS, PercentSign) {
    int number = 0;
    EXPECT_EQ(sscanf_s("  %5", "%%%d", &number), 1);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(sscanf_s("5", "%%%d", &number), 0);
}

TEST(SscanfS, NothingToScan) {
    int number = 3;
    EXPECT_EQ(sscanf_s("", "%d", &number), -1);
    EXPECT_EQ(sscanf_s(" \n", "%d", &number), -1);
    EXPECT_EQ(sscanf_s("", "a"), -1);
    EXPECT_EQ(sscanf_s("", "%%"), -1);
    EXPECT_EQ(sscanf_s("", " "), 0);
    EXPECT_EQ(sscanf_s("", ""), 0);
    EXPECT_EQ(sscanf_s("text", ""), 0);
    EXPECT_EQ(number, 3);
}

TEST(SscanfS, TextThatEndsAfterAFieldCountsThatField) {
    int first = 0;
    int second = 3;
    EXPECT_EQ(sscanf_s("1 ", "%d %d", &first, &second), 1);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 3);
}

TEST(SscanfS, RefusesMissingTextAndFormat) {
    EXPECT_EQ(sscanf_s(nullptr, "%d"), -1);
    EXPECT_EQ(sscanf_s("1", nullptr), -1);
}

TEST(SscanfS, RefusesMissingDestinations) {
    Text text;
    int* const noNumber = nullptr;
    char* const noText = nullptr;
    EXPECT_EQ(sscanf_s("1", "%d", noNumber), -1);
    EXPECT_EQ(sscanf_s("x", "%d", noNumber), -1);
    EXPECT_EQ(sscanf_s("a", "%s", noText, text.size), -1);
    EXPECT_EQ(sscanf_s("a", "%s", text.bytes, std::size_t{0}), -1);
    EXPECT_EQ(text.All(), "########");
}

class BadFormat : public ::testing::TestWithParam<std::string> {};

TEST_P(BadFormat, IsRefused) {
    Text text;
    EXPECT_EQ(sscanf_s("1", GetParam().c_str(), text.bytes, text.size), -1);
    EXPECT_EQ(text.All(), "########");
}

INSTANTIATE_TEST_SUITE_P(Each, BadFormat,
                         ::testing::Values("%", "%*", "%5", "%l", "%y", "%n", "%p", "%ls", "%hc",
                                           "%z[a]", "%hld", "%[", "%[^", "%[]", "%[^]", "%[abc",
                                           "%[" + std::string(300, 'a') + "]"));

TEST(SscanfS, LongestConversionIsScanned) {
    Text text;
    const std::string set = "%[" + std::string(278, 'a') + "]";
    EXPECT_EQ(sscanf_s("aa", set.c_str(), text.bytes, text.size), 1);
    EXPECT_STREQ(text.bytes, "aa");
    const std::string longer = "%[" + std::string(279, 'a') + "]";
    EXPECT_EQ(sscanf_s("aa", longer.c_str(), text.bytes, text.size), -1);
}

TEST(SscanfS, FieldsBeforeABadConversionAreStored) {
    int number = 0;
    EXPECT_EQ(sscanf_s("4 5", "%d %y", &number), -1);
    EXPECT_EQ(number, 4);
}

// When nothing is too long, the results are the same as libc's.

class LikeLibc : public ::testing::TestWithParam<const char*> {};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

TEST_P(LikeLibc, ScansANumberAndAString) {
    for (const char* format :
         {"%d %s", "%d%s", " %dx%s", "%3d,%s", "%i%%%s", "%*d%d%s", "%d%2s", "%x:%[a-z]", "%d%[^]]",
          "%*[0-9]%d%s", "%*s%d%s", "a%d%s", "%*3c%d%s", "%%%d%s", "%d%3c"}) {
        int expectedNumber = -9;
        int number = -9;
        char expectedText[32] = "none";
        char text[32] = "none";
        EXPECT_EQ(sscanf_s(GetParam(), format, &number, text, sizeof text),
                  std::sscanf(GetParam(), format, &expectedNumber, expectedText))
            << format;
        EXPECT_EQ(number, expectedNumber) << format;
        EXPECT_STREQ(text, expectedText) << format;
    }
}

#pragma GCC diagnostic pop

INSTANTIATE_TEST_SUITE_P(Each, LikeLibc,
                         ::testing::Values("", " ", "   ", "1", " 12", "1 a", "12x34", "123456",
                                           "1,abc", "7%q", "a1b", "-", "-x", "0x", "0x1fz:qr", "1]",
                                           "1 ]x", "99999999999 z", "abc", "abc 4 d", "%5 x", "%",
                                           "12 34 56", "\n1\tz\n", "1xyz", "\xff 1"));

}  // namespace
}  // namespace paramgen::testing
