#include <gtest/gtest.h>

#include <cstdarg>
#include <cwchar>
#include <string>

#include "safestr/safestr.h"

namespace paramgen::testing {
namespace {

// Called through a pointer, so that the compiler does not check formats that are bad on purpose.
int (*volatile g_sprintf)(char*, std::size_t, const char*, ...) = sprintf_s;
int (*volatile g_snprintf)(char*, std::size_t, std::size_t, const char*, ...) = snprintf_s;

int CallVsnprintf(char* dest, std::size_t destMax, std::size_t count, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

int CallVsnprintf(char* dest, std::size_t destMax, std::size_t count, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(dest, destMax, count, format, args);
    va_end(args);
    return length;
}

/// A buffer of eight characters, none of which is a NUL at first.
struct Text {
    char bytes[8] = {'#', '#', '#', '#', '#', '#', '#', '#'};
    std::string All() const { return {bytes, sizeof bytes}; }
};

TEST(SprintfS, FormatsAndReturnsTheLength) {
    Text text;
    EXPECT_EQ(sprintf_s(text.bytes, 8, "%d-%s", 12, "ab"), 5);
    EXPECT_EQ(text.All(), std::string("12-ab\0##", 8));
}

TEST(SprintfS, LongestTextFitsAndOneMoreLeavesNothing) {
    Text text;
    EXPECT_EQ(sprintf_s(text.bytes, 8, "%s", "1234567"), 7);
    EXPECT_STREQ(text.bytes, "1234567");
    EXPECT_EQ(sprintf_s(text.bytes, 8, "%s", "12345678"), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(SprintfS, NeverWritesBeyondTheCapacity) {
    Text text;
    EXPECT_EQ(sprintf_s(text.bytes, 4, "%s", "123456"), -1);
    EXPECT_EQ(text.bytes[0], '\0');
    EXPECT_EQ(text.All().substr(4), "####");
}

TEST(SprintfS, OneByteHoldsTheEmptyTextOnly) {
    Text text;
    EXPECT_EQ(sprintf_s(text.bytes, 1, "%s", ""), 0);
    EXPECT_EQ(text.All(), std::string("\0#######", 8));
    EXPECT_EQ(sprintf_s(text.bytes, 1, "%s", "a"), -1);
    EXPECT_EQ(text.All(), std::string("\0#######", 8));
}

TEST(SprintfS, RefusesBadArguments) {
    Text text;
    EXPECT_EQ(sprintf_s(nullptr, 8, "%d", 1), -1);
    EXPECT_EQ(sprintf_s(text.bytes, 0, "%d", 1), -1);
    EXPECT_EQ(text.All(), "########");
    EXPECT_EQ(g_sprintf(text.bytes, 8, nullptr), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(SprintfS, TextThatLibcCannotFormatLeavesNothing) {
    Text text;
    EXPECT_EQ(g_sprintf(text.bytes, 8, "ab%lc", static_cast<std::wint_t>(0xD800)), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(SnprintfS, CountLimitsTheTextBelowTheCapacity) {
    Text text;
    EXPECT_EQ(snprintf_s(text.bytes, 8, 3, "%s", "123"), 3);
    EXPECT_EQ(text.All().substr(0, 4), std::string("123\0", 4));
    EXPECT_EQ(snprintf_s(text.bytes, 8, 3, "%s", "1234"), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(SnprintfS, CapacityLimitsTheTextBelowTheCount) {
    Text text;
    EXPECT_EQ(snprintf_s(text.bytes, 4, 8, "%s", "123"), 3);
    EXPECT_STREQ(text.bytes, "123");
    EXPECT_EQ(snprintf_s(text.bytes, 4, 8, "%s", "1234"), -1);
    EXPECT_EQ(text.bytes[0], '\0');
    EXPECT_EQ(text.All().substr(4), "####");
}

TEST(SnprintfS, CountOfCapacityLessOneTakesTheLongestText) {
    Text text;
    EXPECT_EQ(snprintf_s(text.bytes, 8, 7, "%s", "1234567"), 7);
    EXPECT_STREQ(text.bytes, "1234567");
    EXPECT_EQ(snprintf_s(text.bytes, 8, 7, "%s", "12345678"), -1);
}

TEST(SnprintfS, CountZeroHoldsTheEmptyTextOnly) {
    Text text;
    EXPECT_EQ(snprintf_s(text.bytes, 8, 0, "%s", ""), 0);
    EXPECT_EQ(snprintf_s(text.bytes, 8, 0, "%s", "a"), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(SnprintfS, RefusesBadArguments) {
    Text text;
    EXPECT_EQ(snprintf_s(nullptr, 8, 7, "%d", 1), -1);
    EXPECT_EQ(snprintf_s(text.bytes, 0, 7, "%d", 1), -1);
    EXPECT_EQ(text.All(), "########");
    EXPECT_EQ(g_snprintf(text.bytes, 8, 7, nullptr), -1);
    EXPECT_STREQ(text.bytes, "");
}

TEST(VsnprintfS, FormatsWithinCapacityAndCount) {
    Text text;
    EXPECT_EQ(CallVsnprintf(text.bytes, 8, 8, "%d%s", 12, "34567"), 7);
    EXPECT_STREQ(text.bytes, "1234567");
    EXPECT_EQ(CallVsnprintf(text.bytes, 8, 8, "%d%s", 12, "345678"), -1);
    EXPECT_STREQ(text.bytes, "");
    EXPECT_EQ(CallVsnprintf(text.bytes, 8, 2, "%d", 123), -1);
    EXPECT_STREQ(text.bytes, "");
    EXPECT_EQ(CallVsnprintf(text.bytes, 8, 2, "%d", 12), 2);
    EXPECT_STREQ(text.bytes, "12");
}

TEST(VsnprintfS, RefusesBadArguments) {
    Text text;
    EXPECT_EQ(CallVsnprintf(nullptr, 8, 8, "%d", 1), -1);
    EXPECT_EQ(CallVsnprintf(text.bytes, 0, 8, "%d", 1), -1);
    EXPECT_EQ(text.All(), "########");
}

}  // namespace
}  // namespace paramgen::testing
