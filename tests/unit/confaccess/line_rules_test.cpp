#include "confaccess/line_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::testing {
namespace {

/// The first line of a text. The text must outlive it.
TextLine FirstLine(const std::string& text) {
    LineReader reader(text);
    TextLine line = {};
    EXPECT_TRUE(reader.Next(&line));
    return line;
}

bool TooShort(const std::string& text) {
    return IsTooShort(FirstLine(text));
}

bool TooLong(const std::string& text) {
    return IsTooLong(FirstLine(text));
}

bool AsksForNext(const std::string& text) {
    return AsksForNextLine(FirstLine(text));
}

TEST(LineRules, ALineOfOneCharacterIsTooShort) {
    EXPECT_TRUE(TooShort("\n"));
    EXPECT_TRUE(TooShort("\nrest"));
    EXPECT_TRUE(TooShort("x"));
    EXPECT_TRUE(TooShort(std::string("\0abc\n", 5)));
    EXPECT_TRUE(TooShort(std::string("x\0bc\n", 5)));
    EXPECT_FALSE(TooShort("x\n"));
    EXPECT_FALSE(TooShort("xy"));
    EXPECT_FALSE(TooShort("\r\n"));
    EXPECT_FALSE(TooShort(std::string("xy\0c\n", 5)));
}

TEST(LineRules, ALineOf1023CharactersIsTooLong) {
    EXPECT_FALSE(TooLong(std::string(1022, 'x') + "\n"));
    EXPECT_TRUE(TooLong(std::string(1023, 'x') + "\n"));
    EXPECT_TRUE(TooLong(std::string(5000, 'x') + "\n"));
    EXPECT_FALSE(TooLong(std::string(1022, 'x')));
    EXPECT_TRUE(TooLong(std::string(1023, 'x'))) << "what follows it is not known yet";
    EXPECT_TRUE(TooLong(std::string(1024, 'x')));
    EXPECT_FALSE(TooLong("\n"));
    EXPECT_FALSE(TooLong("x"));
}

TEST(LineRules, ALineWithANulCountsAsTooLongUnlessItIsTheLast) {
    EXPECT_TRUE(TooLong(std::string("ab\0c\nd\n", 7)));
    EXPECT_TRUE(TooLong(std::string("ab\0c\n", 5)));
    EXPECT_FALSE(TooLong(std::string("ab\0c", 4)));
}

TEST(LineRules, ALineThatEndsInABackslashAsksForTheNext) {
    EXPECT_TRUE(AsksForNext("a = b\\"));
    EXPECT_TRUE(AsksForNext("a = b\\\n")) << "its reader sees whether a newline follows";
    EXPECT_TRUE(AsksForNext("; a comment\\"));
    EXPECT_TRUE(AsksForNext(std::string("ab\\\0c", 5)));
    EXPECT_FALSE(AsksForNext("a = b\\ "));
    EXPECT_FALSE(AsksForNext("a = \\b"));
    EXPECT_FALSE(AsksForNext("a = b\\\r\n"));
}

}  // namespace
}  // namespace paramgen::testing
