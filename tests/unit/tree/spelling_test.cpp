#include "tree/spelling.h"

#include <gtest/gtest.h>

#include "confaccess/ini_line.h"

namespace paramgen::tree {
namespace {

TEST(Spelling, PlainWhereThatWillDo) {
    EXPECT_EQ(Spelled("12"), "12");
    EXPECT_EQ(Spelled(""), "");
    EXPECT_EQ(Spelled("RoadView X4"), "RoadView X4");
    EXPECT_EQ(Spelled("a=b"), "a=b");
    EXPECT_EQ(Spelled("it's"), "it's");
    EXPECT_EQ(Spelled("\""), "\"");
    EXPECT_EQ(Spelled("''x"), "''x");
    EXPECT_EQ(Spelled("a\\"), "a\\");
}

TEST(Spelling, InQuotesWhereItHasToBe) {
    EXPECT_EQ(Spelled(" a"), "\" a\"");
    EXPECT_EQ(Spelled("a\t"), "\"a\t\"");
    EXPECT_EQ(Spelled("#1"), "\"#1\"");
    EXPECT_EQ(Spelled("a # \"b\""), "'a # \"b\"'");
    EXPECT_EQ(Spelled("'a'"), "\"'a'\"");
    EXPECT_EQ(Spelled("\"\""), "'\"\"'");
}

TEST(Spelling, WhatNoLineCanSay) {
    EXPECT_EQ(Spelled("a;b"), std::nullopt);
    EXPECT_EQ(Spelled("a\nb"), std::nullopt);
    EXPECT_EQ(Spelled(std::string_view("a\0b", 3)), std::nullopt);
    EXPECT_EQ(Spelled(" \"'"), std::nullopt);
    EXPECT_EQ(Spelled(std::string(801, 'x')), std::nullopt);
}

TEST(Spelling, IsReadBack) {
    const std::string characters = " \t#'\"=[]\\a;\r";
    for (std::size_t number = 0; number < 12 * 12 * 12 * 12; ++number) {
        std::string text;
        for (std::size_t rest = number; rest != 0; rest /= 12) {
            text += characters[rest % 12];
        }
        const std::optional<std::string> written = Spelled(text);
        if (written) {
            const std::string line = "key = " + *written;
            EXPECT_EQ(ParseIniLine(line).value, text);
        }
    }
}

}  // namespace
}  // namespace paramgen::tree
