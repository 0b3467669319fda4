#include "tree/edits.h"

#include <gtest/gtest.h>

namespace paramgen::tree {
namespace {

std::string With(const std::string& bytes, const std::vector<KeyChange>& changes) {
    return WithChanges(IniFile(bytes), changes);
}

TEST(Edits, AllChangesAreMadeAndNothingElse) {
    EXPECT_EQ(With("; top\n[a]\nb = 1 ; c\nd=2\r\n\n[e]\nf = 'x y'\n",
                   {{"a:b", "22"}, {"a:d", "3"}, {"e:f", "z"}}),
              "; top\n[a]\nb = 22 ; c\nd=3\r\n\n[e]\nf = z\n");
}

TEST(Edits, NoChangesLeaveTheBytes) {
    EXPECT_EQ(With("[a]\nb = '1'\n\\", {}), "[a]\nb = '1'\n\\");
    EXPECT_EQ(With("[a]\nb = 1\n", {{"a:x", std::nullopt}}), "[a]\nb = 1\n");
}

TEST(Edits, NewKeysGoToTheEndOfTheirSectionsInTheirOrder) {
    EXPECT_EQ(With("[a]\n  b=1\n\n[c]\nd = 1\n", {{"c:z", "9"}, {"a:x", "2"}, {"a:y", "3"}}),
              "[a]\n  b=1\n  x=2\n  y=3\n\n[c]\nd = 1\nz = 9\n");
}

TEST(Edits, NewSectionsGoToTheEndOfTheFile) {
    EXPECT_EQ(With("[a]\nb = 1\n", {{"c:x", "2"}, {"c:y", "3"}, {"a:z", "4"}}),
              "[a]\nb = 1\nz = 4\n\n[c]\nx = 2\ny = 3\n");
}

TEST(Edits, AKeyIsTakenOutWithAllItsLines) {
    EXPECT_EQ(With("[a]\nb = 1\nc = 2\nB = 3\n", {{"a:b", std::nullopt}, {"a:c", "5"}}),
              "[a]\nc = 5\n");
}

TEST(Edits, OfSeveralChangesOfAKeyTheLastCounts) {
    EXPECT_EQ(With("[a]\nb = 1\n", {{"a:b", "2"}, {"A:B", "3"}}), "[a]\nb = 3\n");
}

TEST(Edits, WhatNoLineCanSayStaysAsItWas) {
    EXPECT_EQ(With("[a]\nb = 1\nc = 2\n", {{"a:b", "x;y"}, {"a:c", "3"}, {"a:d", "x\ny"}}),
              "[a]\nb = 1\nc = 3\n");
}

TEST(Edits, ALastLineWithoutANewlineIsContinued) {
    EXPECT_EQ(With("[a]\nb = 1", {{"a:x", "2"}, {"a:y", "3"}}), "[a]\nb = 1\nx = 2\ny = 3\n");
    EXPECT_EQ(With("[a]", {{"a:x", "2"}}), "[a]\nx = 2\n");
}

TEST(Edits, AKeyThatASectionHidesGetsALineThatCounts) {
    const IniFile file(With("[a]\nb = 1\n[a:b]\nc = 1\n", {{"a:b", "2"}, {"a:b:c", "7"}}));
    ASSERT_NE(file.Find("a:b"), nullptr);
    EXPECT_EQ(file.TextOf(file.Find("a:b")->value), "2");
    EXPECT_EQ(file.TextOf(file.Find("a:b:c")->value), "7");
}

}  // namespace
}  // namespace paramgen::tree
