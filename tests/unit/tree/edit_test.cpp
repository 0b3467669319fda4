#include "tree/edit.h"

#include <gtest/gtest.h>

namespace paramgen::tree {
namespace {

using Bytes = std::optional<std::string>;

Bytes With(const std::string& bytes, const std::string& key, const std::string& value) {
    return WithKey(IniFile(bytes), key, value);
}

std::string Without(const std::string& bytes, const std::string& key) {
    return WithoutKey(IniFile(bytes), key);
}

TEST(Edit, OnlyTheValueChanges) {
    EXPECT_EQ(With("[a]\nb = 1 ; c\n", "a:b", "22"), "[a]\nb = 22 ; c\n");
    EXPECT_EQ(With("[A]\n\tB=1\t# c\r\n", "a:b", "22"), "[A]\n\tB=22\t# c\r\n");
    EXPECT_EQ(With("[a]\nb = 'x y' ; c\n", "a:b", "z"), "[a]\nb = z ; c\n");
    EXPECT_EQ(With("[a]\nb = \"x\" ; c\n", "a:b", " z"), "[a]\nb = \" z\" ; c\n");
    EXPECT_EQ(With("[a]\nb = 1", "a:b", "2"), "[a]\nb = 2");
    EXPECT_EQ(With("[a]\nb = \"\" # c\n", "a:b", "2"), "[a]\nb = 2 # c\n");
}

TEST(Edit, AnEmptyValueGetsOne) {
    EXPECT_EQ(With("[a]\nb =\nc = 1\n", "a:b", "2"), "[a]\nb = 2\nc = 1\n");
    EXPECT_EQ(With("[a]\nb=\n", "a:b", "2"), "[a]\nb=2\n");
    EXPECT_EQ(With("[a]\nb = 2 ; c\n", "a:b", ""), "[a]\nb =  ; c\n");
}

TEST(Edit, WhatFollowsAQuoteDoesNotBecomeTheValue) {
    EXPECT_EQ(With("[a]\nb = 'x' rest\n", "a:b", "y"), "[a]\nb = \"y\" rest\n");
    EXPECT_EQ(With("[a]\nb = 'x\n", "a:b", "y"), "[a]\nb = y\n");
}

TEST(Edit, TheSameValueChangesNothing) {
    const std::string bytes = "[a]\nb = '1'\n";
    EXPECT_EQ(With(bytes, "a:b", "1"), bytes);
}

TEST(Edit, OfDuplicatesTheOneThatCountsIsChanged) {
    EXPECT_EQ(With("[a]\nb = 1\nb = 2\n", "a:b", "3"), "[a]\nb = 1\nb = 3\n");
    EXPECT_EQ(With("[a]\nb = 1\n[c]\n[A]\nB = 2\n", "a:b", "3"), "[a]\nb = 1\n[c]\n[A]\nB = 3\n");
}

TEST(Edit, AMissingKeyGoesToTheEndOfItsSection) {
    EXPECT_EQ(With("[a]\nb = 1\n\n[c]\nd = 1\n", "a:x", "2"), "[a]\nb = 1\nx = 2\n\n[c]\nd = 1\n");
    EXPECT_EQ(With("[a]\r\n  b=1\r\n[c]\r\n", "a:x", "2"), "[a]\r\n  b=1\r\n  x=2\r\n[c]\r\n");
    EXPECT_EQ(With("[a]\nb = 1\n[c]\n[a]\nd = 1\n", "a:x", "2"),
              "[a]\nb = 1\n[c]\n[a]\nd = 1\nx = 2\n");
    EXPECT_EQ(With("[a]\nb = 1", "a:x", "2"), "[a]\nb = 1\nx = 2\n");
    EXPECT_EQ(With("[a]", "a:x", "2"), "[a]\nx = 2\n");
}

TEST(Edit, AMissingSectionGoesToTheEndOfTheFile) {
    EXPECT_EQ(With("[a]\nb = 1\n", "c.0:x", "2"), "[a]\nb = 1\n\n[c.0]\nx = 2\n");
    EXPECT_EQ(With("", "c.0:x", "2"), "[c.0]\nx = 2\n");
}

TEST(Edit, ALastLineWithoutAnEndGetsThatOfTheLineBefore) {
    EXPECT_EQ(With("[a]\r\nb = 1", "a:x", "2"), "[a]\r\nb = 1\r\nx = 2\r\n");
    EXPECT_EQ(With("[a]\r\nb = 1", "c:x", "2"), "[a]\r\nb = 1\r\n\r\n[c]\r\nx = 2\r\n");
    EXPECT_EQ(With("; only this\r\n", "c:x", "2"), "; only this\r\n\r\n[c]\r\nx = 2\r\n");
}

TEST(Edit, ALastLineThatIsPassedOverStaysSo) {
    const std::string bytes = "[a]\nb = 1\nc = 2\\";
    const Bytes changed = With(bytes, "d:x", "3");
    ASSERT_TRUE(changed.has_value());
    const IniFile file(*changed);
    EXPECT_EQ(file.Find("a:c"), nullptr);
    EXPECT_NE(file.Find("d:x"), nullptr);
}

TEST(Edit, AKeyThatASectionHidesGetsALineThatCounts) {
    const std::string bytes = "[a]\nb = 1\n[a:b]\nc = 1\n";
    const Bytes changed = With(bytes, "a:b", "2");
    ASSERT_TRUE(changed.has_value());
    const IniFile file(*changed);
    const Line* line = file.Find("a:b");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(file.TextOf(line->value), "2");
    EXPECT_TRUE(changed->starts_with(bytes));
}

TEST(Edit, WhatNoLineCanSayIsNotWritten) {
    EXPECT_EQ(With("[a]\nb = 1\n", "a:b", "x;y"), std::nullopt);
    EXPECT_EQ(With("[a]\nb = 1\n", "a:b", "x\ny"), std::nullopt);
    EXPECT_EQ(With("[a]\nb = 1\n", "a:c", "x;y"), std::nullopt);
}

TEST(Edit, EveryLineOfAKeyIsTakenOut) {
    EXPECT_EQ(Without("[a]\nb = 1\nc = 2\nB = 3\n", "a:b"), "[a]\nc = 2\n");
    EXPECT_EQ(Without("[a]\r\nb = 1\r\n", "a:b"), "[a]\r\n");
    EXPECT_EQ(Without("[a]\nb = 1", "a:b"), "[a]\n");
    EXPECT_EQ(Without("[a]\nb = 1\n", "a:c"), "[a]\nb = 1\n");
}

TEST(Edit, AKeyIsRenamedInAllOfItsLines) {
    EXPECT_EQ(WithRenamedKey(IniFile("[a]\nb = 1 ; c\nx = b\n[A]\r\n\tB=2\r\n"), "a:b", "longer"),
              "[a]\nlonger = 1 ; c\nx = b\n[A]\r\n\tlonger=2\r\n");
    EXPECT_EQ(WithRenamedKey(IniFile("[a]\nb = 1\n[c]\nb = 1"), "c:b", "d"),
              "[a]\nb = 1\n[c]\nd = 1");
}

TEST(Edit, ASectionIsTakenOutWithItsKeysAndTheEmptyLinesBehindThem) {
    EXPECT_EQ(WithoutSection(IniFile("[a]\nx = 1\n\n; of b\n[B]\ny = 1 ; c\n\nz = 2\n\r\n\n"
                                     "; of c\n[c]\n\n[b]\nw=3"),
                             "b"),
              "[a]\nx = 1\n\n; of b\n; of c\n[c]\n\n");
    EXPECT_EQ(WithoutSection(IniFile("[a]\nx = 1\n"), "b"), "[a]\nx = 1\n");
}

}  // namespace
}  // namespace paramgen::tree
