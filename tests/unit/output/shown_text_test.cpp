#include "output/shown_text.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::output {
namespace {

TEST(Shown, EscapesWhatIsMoreThanText) {
    EXPECT_EQ(Shown("plain text"), "plain text");
    EXPECT_EQ(Shown("caf\xC3\xA9"), "caf\xC3\xA9");
    EXPECT_EQ(Shown("caf\xE9"), "caf<e9>");
    EXPECT_EQ(Shown("\x1B[2J"), "<U+001B>[2J");
    EXPECT_EQ(Shown(std::string("a\0b", 3)), "a<U+0000>b");
    EXPECT_EQ(Shown("\xE2\x80\xAE"
                    "abc"),
              "<U+202E>abc");
    EXPECT_EQ(Shown("\xC2\x9B"), "<U+009B>");
    EXPECT_EQ(Shown("a\tb\n"), "a<U+0009>b<U+000A>");
}

TEST(Shown, EscapesEveryByteOfInvalidUtf8) {
    EXPECT_EQ(Shown("\xC0\x80"), "<c0><80>");          // overlong
    EXPECT_EQ(Shown("\xED\xA0\x80"), "<ed><a0><80>");  // a surrogate
    EXPECT_EQ(Shown("\xF4\x90\x80\x80"), "<f4><90><80><80>");
    EXPECT_EQ(Shown("\xE2\x82"), "<e2><82>");
    EXPECT_EQ(Shown("\xFF\xFE"), "<ff><fe>");
}

TEST(ShowLine, TabsReachStopsOfEight) {
    const ShownLine line = ShowLine("\tab\tcd", 4, 6);
    EXPECT_EQ(line.text, "        ab      cd");
    EXPECT_EQ(line.begin, 16U);
    EXPECT_EQ(line.end, 18U);
}

TEST(ShowLine, WideAndCombiningCharactersHaveTheirWidth) {
    // Two wide characters; then an e with an accent that combines.
    const ShownLine line = ShowLine("\xE4\xB8\xAD\xE6\x96\x87 e\xCC\x81 = x", 13, 14);
    EXPECT_EQ(line.begin, 9U);
    EXPECT_EQ(line.end, 10U);
}

TEST(ShowLine, EscapesMoveWhatIsBehindThem) {
    const ShownLine line = ShowLine(
        "\xE9 = \x1B"
        "x",
        4, 6);
    EXPECT_EQ(line.text, "<e9> = <U+001B>x");
    EXPECT_EQ(line.begin, 7U);
    EXPECT_EQ(line.end, 16U);
}

TEST(ShowLine, TheEndOfALineHasAColumn) {
    EXPECT_EQ(ShowLine("abc", 3, 3).begin, 3U);
    EXPECT_EQ(ShowLine("", 0, 0).begin, 0U);
}

TEST(CountCharacters, CountsCodePoints) {
    EXPECT_EQ(CountCharacters("caf\xC3\xA9"), 4U);
    EXPECT_EQ(CountCharacters("\xF0\x9F\x98\x80\xFF"), 2U);
}

TEST(ValidUtf8, ReplacesInvalidBytes) {
    EXPECT_EQ(ValidUtf8("a\xE9z"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(ValidUtf8("\xC3\xA9"), "\xC3\xA9");
}

}  // namespace
}  // namespace paramgen::output
