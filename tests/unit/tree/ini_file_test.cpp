#include "tree/ini_file.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::tree {
namespace {

std::string Text(const IniFile& file, Span part) {
    return std::string(file.TextOf(part));
}

TEST(IniFile, TellsWhereSectionsKeysAndValuesStand) {
    const IniFile file("# comment\n\n [ Disp.0 ] ; panel\n  Luma = 50 # neutral\n");
    ASSERT_EQ(file.lines().size(), 2U);
    const Line& section = file.lines()[0];
    EXPECT_EQ(section.kind, LineKind::kSection);
    EXPECT_EQ(section.number, 3U);
    EXPECT_EQ(section.text.begin, 11U);
    EXPECT_EQ(section.name.begin, 14U);
    EXPECT_EQ(Text(file, section.name), "Disp.0");
    EXPECT_EQ(Text(file, {section.comment, section.text.end}), "; panel");
    const Line& value = file.lines()[1];
    EXPECT_EQ(value.kind, LineKind::kValue);
    EXPECT_EQ(value.number, 4U);
    EXPECT_EQ(Text(file, value.name), "Luma");
    EXPECT_EQ(Text(file, value.value), "50");
    EXPECT_EQ(Text(file, {value.comment, value.text.end}), "# neutral");
    EXPECT_EQ(value.section, 0U);
    EXPECT_EQ(file.KeyOf(value), "disp.0:luma");
    EXPECT_TRUE(file.IsAccepted());
}

TEST(IniFile, FindsTheLineThatCounts) {
    const IniFile file("[a]\nkey=1\n[b]\nkey=2\n[A]\nKEY=3\n");
    const Line* line = file.Find("a:Key");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->number, 6U);
    ASSERT_NE(line->former, kNoLine);
    EXPECT_EQ(file.lines()[line->former].number, 2U);
    EXPECT_EQ(file.Find("a:other"), nullptr);
    EXPECT_EQ(file.KeyCount(), 4U);  // a, a:key, b, b:key
}

TEST(IniFile, ASectionHidesTheKeyOfItsName) {
    const IniFile file("[a]\nb=1\n[a:b]\n");
    const Line* line = file.Find("a:b");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->kind, LineKind::kSection);
    EXPECT_EQ(file.lines()[line->former].number, 2U);
}

TEST(IniFile, NamesAreComparedWithTheirSectionsAsOnePiece) {
    const IniFile file("[a]\nb:c = 1\n[a:B]\nC = 2\n");
    EXPECT_EQ(file.KeyCount(), 3U) << "two sections and one key";
    ASSERT_NE(file.Find("A:b:c"), nullptr);
    EXPECT_EQ(file.TextOf(file.Find("A:b:c")->value), "2");
    EXPECT_TRUE(file.lines()[1].isReplaced);
    EXPECT_EQ(file.lines()[3].former, 1U);
}

TEST(IniFile, LongNames) {
    const std::string section(900, 's');
    const std::string key(900, 'k');
    const std::string end(255, 'k');  // with the colon it fills what short names have
    const IniFile file("[" + section + "]\n" + key + " = 1\n" + key + "x = 2\n[]\n[" +
                       std::string(1, 'e') + "]\n" + end + " = 3\n" + end.substr(1) + " = 4\n");
    ASSERT_NE(file.Find(section + ":" + key), nullptr);
    EXPECT_EQ(file.TextOf(file.Find(section + ":" + key)->value), "1");
    EXPECT_EQ(file.TextOf(file.Find(section + ":" + key + "X")->value), "2");
    EXPECT_EQ(file.TextOf(file.Find("e:" + end)->value), "3");
    EXPECT_EQ(file.TextOf(file.Find("e:" + end.substr(1))->value), "4");
    EXPECT_EQ(file.Find("e:" + end + "k"), nullptr);
}

TEST(IniFile, ManyKeys) {
    std::string text = "[s]\n";
    for (int i = 0; i < 10'000; ++i) {
        text += "key" + std::to_string(i) + " = " + std::to_string(i) + "\n";
    }
    const IniFile file(text);
    EXPECT_EQ(file.KeyCount(), 10'001U);
    for (const int i : {0, 31, 32, 33, 4095, 9999}) {
        ASSERT_NE(file.Find("S:KEY" + std::to_string(i)), nullptr) << i;
        EXPECT_EQ(file.TextOf(file.Find("s:key" + std::to_string(i))->value), std::to_string(i));
    }
    EXPECT_EQ(file.Find("s:key10000"), nullptr);
}

TEST(IniFile, BareBracketsLeaveTheSection) {
    const IniFile file("[a]\n[]\nk=1\n[ ]\nk=2\n");
    EXPECT_TRUE(file.lines()[1].isBare);
    ASSERT_NE(file.Find("a:k"), nullptr);
    EXPECT_EQ(file.Find("a:k")->number, 3U);
    ASSERT_NE(file.Find(":k"), nullptr);
    EXPECT_EQ(file.Find(":k")->number, 5U);
}

TEST(IniFile, KeysBeforeTheFirstSectionHaveNone) {
    const IniFile file("k=1\n");
    EXPECT_EQ(file.lines()[0].section, kNoLine);
    EXPECT_EQ(file.SectionOf(file.lines()[0]), "");
    EXPECT_NE(file.Find(":k"), nullptr);
}

TEST(IniFile, QuotesDoNotBelongToTheValue) {
    const IniFile file("[s]\na=\"x # y\" # c\nb='' # c\nc='open\nd=\"v\"tail\n");
    EXPECT_EQ(Text(file, file.Find("s:a")->value), "x # y");
    EXPECT_EQ(Text(file, {file.Find("s:a")->comment, file.Find("s:a")->text.end}), "# c");
    EXPECT_EQ(Text(file, file.Find("s:b")->value), "");
    EXPECT_EQ(Text(file, {file.Find("s:b")->comment, file.Find("s:b")->text.end}), "# c");
    EXPECT_EQ(Text(file, file.Find("s:c")->value), "open");
    EXPECT_EQ(Text(file, file.Find("s:d")->value), "v");
    EXPECT_EQ(file.Find("s:d")->comment, file.Find("s:d")->text.end);
}

TEST(IniFile, RefusesWhatTheProgramRefuses) {
    const struct {
        std::string bytes;
        LineKind kind;
    } kBad[] = {
        {"[a]\nnonsense\n", LineKind::kSyntaxError},
        {"[a]\n=1\n", LineKind::kSyntaxError},
        {"[a]\n# " + std::string(1021, 'x') + "\nk=1\n", LineKind::kTooLong},
        {"[a]\n# " + std::string(3000, 'x') + "\nk=1\n", LineKind::kTooLong},
        {std::string("[a]\nk=\0 1\n", 10), LineKind::kNul},
    };
    for (const auto& bad : kBad) {
        const IniFile file(bad.bytes);
        EXPECT_FALSE(file.IsAccepted());
        ASSERT_GE(file.lines().size(), 2U);
        EXPECT_EQ(file.lines()[1].kind, bad.kind) << bad.bytes;
        EXPECT_EQ(file.lines()[1].number, 2U);
        EXPECT_EQ(file.Find("a:k"), nullptr);
        EXPECT_EQ(file.KeyCount(), 0U);
    }
}

TEST(IniFile, GoesOnBehindALineThatIsTooLong) {
    const IniFile file("k=" + std::string(5000, 'x') + "\nbad\n");
    ASSERT_EQ(file.lines().size(), 2U);
    EXPECT_EQ(file.lines()[0].text.Size(), 5002U);
    EXPECT_EQ(file.lines()[1].number, 2U);
    EXPECT_EQ(file.lines()[1].kind, LineKind::kSyntaxError);
}

TEST(IniFile, TakesLinesOfUpTo1022Characters) {
    EXPECT_TRUE(IniFile("k=" + std::string(1020, 'x') + "\n").IsAccepted());
    EXPECT_FALSE(IniFile("k=" + std::string(1021, 'x') + "\n").IsAccepted());
    EXPECT_TRUE(IniFile("k=" + std::string(1020, 'x')).IsAccepted());
    EXPECT_FALSE(IniFile("k=" + std::string(1021, 'x')).IsAccepted());
}

TEST(IniFile, LastLinesThatAreIgnored) {
    const IniFile one("k=1\nx");
    EXPECT_TRUE(one.IsAccepted());
    EXPECT_EQ(one.lines()[1].kind, LineKind::kIgnored);
    const IniFile two("k=1\nj=2\\");
    EXPECT_TRUE(two.IsAccepted());
    EXPECT_EQ(two.lines()[1].kind, LineKind::kIgnored);
    EXPECT_EQ(two.Find(":j"), nullptr);
    EXPECT_NE(IniFile("k=1\nj=2\\\n").Find(":j"), nullptr);
}

TEST(IniFile, NulsThatDoNotHarm) {
    const IniFile first(std::string("k=1\n\0j=2\n", 9));
    EXPECT_TRUE(first.IsAccepted());
    EXPECT_EQ(first.lines()[1].kind, LineKind::kCutAtNul);
    const IniFile last(std::string("k=1\nj=2\0 3", 10));
    EXPECT_TRUE(last.IsAccepted());
    EXPECT_TRUE(last.lines()[1].hasNul);
    EXPECT_EQ(Text(last, last.Find(":j")->value), "2");
}

TEST(IniFile, KeepsCommentsThatHaveADirective) {
    const IniFile file("# plain\n  ; paramtool: ignore octal (x)\n# paramtool: too\n");
    ASSERT_EQ(file.lines().size(), 2U);
    EXPECT_EQ(file.lines()[0].kind, LineKind::kComment);
    EXPECT_EQ(file.lines()[0].number, 2U);
    EXPECT_EQ(file.lines()[0].comment - file.lines()[0].text.begin, 2U);
    EXPECT_EQ(file.lines()[1].number, 3U);
}

TEST(IniFile, CarriageReturnsAreWhiteSpace) {
    const IniFile file("[a]\r\nk=1\r\n\r\n");
    EXPECT_TRUE(file.IsAccepted());
    EXPECT_EQ(Text(file, file.Find("a:k")->value), "1");
}

}  // namespace
}  // namespace paramgen::tree
