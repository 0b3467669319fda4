#include "confaccess/ini_line.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <iostream>
#include <ostream>
#include <random>
#include <string>

#include "confaccess/line_reader.h"

namespace paramgen::testing {
namespace {

/// A parsed line, by value.
struct Parsed {
    IniLineKind kind;
    bool hasName;
    std::string name;
    std::string value;

    bool operator==(const Parsed&) const = default;
};

void PrintTo(const Parsed& line, std::ostream* stream) {
    const char* const kKinds[] = {"nothing", "section", "value", "syntax error"};
    *stream << kKinds[static_cast<int>(line.kind)];
    if (line.hasName) {
        *stream << " <" << line.name << '>';
    }
    if (line.kind == IniLineKind::kValue) {
        *stream << " = <" << line.value << '>';
    }
}

Parsed Nothing() {
    return {.kind = IniLineKind::kNothing, .hasName = false, .name = "", .value = ""};
}

Parsed SyntaxError() {
    return {.kind = IniLineKind::kSyntaxError, .hasName = false, .name = "", .value = ""};
}

Parsed Unnamed() {
    return {.kind = IniLineKind::kSection, .hasName = false, .name = "", .value = ""};
}

Parsed Section(const std::string& name) {
    return {.kind = IniLineKind::kSection, .hasName = true, .name = name, .value = ""};
}

Parsed Value(const std::string& name, const std::string& value) {
    return {.kind = IniLineKind::kValue, .hasName = true, .name = name, .value = value};
}

Parsed Parse(const std::string& text) {
    TextLine read = {};
    LineReader(text).Next(&read);
    const IniLine line = ParseIniLine(read.content);
    return {.kind = line.kind,
            .hasName = line.name.data() != nullptr,
            .name = std::string(line.name),
            .value = std::string(line.value)};
}

TEST(IniLine, WhiteSpaceAroundALineIsSkipped) {
    EXPECT_EQ(Parse(" \t\v\f\r key = value \t\v\f\r\n"), Value("key", "value"));
    EXPECT_EQ(Parse("  [section]  \n"), Section("section"));
}

TEST(IniLine, EmptyLinesAreNothing) {
    EXPECT_EQ(Parse(""), Nothing());
    EXPECT_EQ(Parse("\n"), Nothing());
    EXPECT_EQ(Parse(" \t\r\n"), Nothing());
}

TEST(IniLine, ASemicolonCutsTheLineWhereverItStands) {
    EXPECT_EQ(Parse("; key = value\n"), Nothing());
    EXPECT_EQ(Parse("  ;\n"), Nothing());
    EXPECT_EQ(Parse("key = val;ue\n"), Value("key", "val"));
    EXPECT_EQ(Parse("key = value ; why\n"), Value("key", "value"));
    EXPECT_EQ(Parse("[section] ; why\n"), Section("section"));
    EXPECT_EQ(Parse("ke;y = value\n"), SyntaxError());
    EXPECT_EQ(Parse("[sec;tion]\n"), SyntaxError());
}

TEST(IniLine, ASemicolonCutsInsideQuotesToo) {
    EXPECT_EQ(Parse("key = \"one;two\"\n"), Value("key", "one"));
    EXPECT_EQ(Parse("key = 'one ;two'\n"), Value("key", "one"));
    EXPECT_EQ(Parse("key = \";\"\n"), Value("key", "\""));
}

TEST(IniLine, AHashAtTheBeginningMakesAComment) {
    EXPECT_EQ(Parse("# key = value\n"), Nothing());
    EXPECT_EQ(Parse("   #[section]\n"), Nothing());
    EXPECT_EQ(Parse("#\n"), Nothing());
}

TEST(IniLine, BracketsMakeASection) {
    EXPECT_EQ(Parse("[section]\n"), Section("section"));
    EXPECT_EQ(Parse("[ Vcap.Pipe 0 ]\n"), Section("Vcap.Pipe 0"));
    EXPECT_EQ(Parse("[a:b]\n"), Section("a:b"));
    EXPECT_EQ(Parse("[a = b]\n"), Section("a = b"));
    EXPECT_EQ(Parse("[[]\n"), Section("["));
    EXPECT_EQ(Parse("[#]\n"), Section("#"));
}

TEST(IniLine, ASectionEndsAtItsFirstBracket) {
    EXPECT_EQ(Parse("[a]b]\n"), Section("a"));
    EXPECT_EQ(Parse("[a ] = ]\n"), Section("a"));
    EXPECT_EQ(Parse("[a]]\n"), Section("a"));
}

TEST(IniLine, NothingBetweenBracketsNamesNoSection) {
    EXPECT_EQ(Parse("[]\n"), Unnamed());
    EXPECT_EQ(Parse("[]]\n"), Unnamed());
    EXPECT_EQ(Parse("[] x]\n"), Unnamed());
}

TEST(IniLine, BlanksBetweenBracketsNameTheEmptySection) {
    EXPECT_EQ(Parse("[ ]\n"), Section(""));
    EXPECT_EQ(Parse("[ \t ]\n"), Section(""));
}

TEST(IniLine, ASectionMustEndInABracket) {
    EXPECT_EQ(Parse("[a] # x\n"), SyntaxError());
    EXPECT_EQ(Parse("[a\n"), SyntaxError());
    EXPECT_EQ(Parse("[\n"), SyntaxError());
    EXPECT_EQ(Parse("]\n"), SyntaxError());
    EXPECT_EQ(Parse("a]\n"), SyntaxError());
    EXPECT_EQ(Parse("[a] = b\n"), Value("[a]", "b"));
}

TEST(IniLine, NamesAreStrippedAndKeepTheirCase) {
    EXPECT_EQ(Parse("  Some KEY \t = Some VALUE\n"), Value("Some KEY", "Some VALUE"));
    EXPECT_EQ(Parse("[SECTION]\n"), Section("SECTION"));
    EXPECT_EQ(Parse("KEY = 'VALUE'\n"), Value("KEY", "VALUE"));
    EXPECT_EQ(Parse("KEY =\n"), Value("KEY", ""));
}

TEST(IniLine, BytesAboveAsciiAreNoBlanks) {
    EXPECT_EQ(Parse("\xc3\x84@[`{Z = \xc3\x84\n"), Value("\xc3\x84@[`{Z", "\xc3\x84"));
    EXPECT_EQ(Parse("\xa0key = \x85\xa0\n"), Value("\xa0key", "\x85\xa0"));
}

TEST(IniLine, QuotedValuesAreKeptAsTheyStand) {
    EXPECT_EQ(Parse("key = '  two  words '\n"), Value("key", "  two  words "));
    EXPECT_EQ(Parse("key=\"  two  words \"\n"), Value("key", "  two  words "));
    EXPECT_EQ(Parse("key =\t' '\n"), Value("key", " "));
    EXPECT_EQ(Parse("key = \"a#b\"\n"), Value("key", "a#b"));
    EXPECT_EQ(Parse("key = '#'\n"), Value("key", "#"));
    EXPECT_EQ(Parse("key = 'a=b'\n"), Value("key", "a=b"));
    EXPECT_EQ(Parse("key = '\"'\n"), Value("key", "\""));
    EXPECT_EQ(Parse("key = \"it's\"\n"), Value("key", "it's"));
}

TEST(IniLine, AMissingClosingQuoteStillMatches) {
    EXPECT_EQ(Parse("key = 'open end\n"), Value("key", "open end"));
    EXPECT_EQ(Parse("key = \"open # end  \n"), Value("key", "open # end"));
    EXPECT_EQ(Parse("key = 'mixed\"\n"), Value("key", "mixed\""));
}

TEST(IniLine, TextAfterAClosingQuoteIsIgnored) {
    EXPECT_EQ(Parse("key = 'one' two\n"), Value("key", "one"));
    EXPECT_EQ(Parse("key = \"one\"two\"\n"), Value("key", "one"));
    EXPECT_EQ(Parse("key = \"one\" # why\n"), Value("key", "one"));
}

TEST(IniLine, AQuoteAloneIsAnOrdinaryCharacter) {
    EXPECT_EQ(Parse("key = '\n"), Value("key", "'"));
    EXPECT_EQ(Parse("key = \"\n"), Value("key", "\""));
    EXPECT_EQ(Parse("key = a'b'\n"), Value("key", "a'b'"));
    EXPECT_EQ(Parse("key = ''text\n"), Value("key", "''text"));
    EXPECT_EQ(Parse("key = \"\"text # why\n"), Value("key", "\"\"text"));
    EXPECT_EQ(Parse("key = '''\n"), Value("key", "'''"));
}

TEST(IniLine, APairOfQuotesAloneIsTheEmptyValue) {
    EXPECT_EQ(Parse("key = \"\"\n"), Value("key", ""));
    EXPECT_EQ(Parse("key = ''\n"), Value("key", ""));
    EXPECT_EQ(Parse("key = '' # why\n"), Value("key", ""));
    EXPECT_EQ(Parse("key = \"\"#'\n"), Value("key", ""));
    EXPECT_EQ(Parse("key = \"'\n"), Value("key", "'"));
}

TEST(IniLine, AnUnquotedValueEndsBeforeAHash) {
    EXPECT_EQ(Parse("key = one # two\n"), Value("key", "one"));
    EXPECT_EQ(Parse("key=one#two\n"), Value("key", "one"));
    EXPECT_EQ(Parse("ke#y = one\n"), Value("ke#y", "one"));
}

TEST(IniLine, NothingAfterTheSignIsTheEmptyValue) {
    EXPECT_EQ(Parse("key =\n"), Value("key", ""));
    EXPECT_EQ(Parse("key=   \n"), Value("key", ""));
    EXPECT_EQ(Parse("key = # why\n"), Value("key", ""));
    EXPECT_EQ(Parse("key =#\n"), Value("key", ""));
    EXPECT_EQ(Parse("key = ; why\n"), Value("key", ""));
}

TEST(IniLine, TheFirstSignEndsTheKey) {
    EXPECT_EQ(Parse("key = a = b\n"), Value("key", "a = b"));
    EXPECT_EQ(Parse("key == b\n"), Value("key", "= b"));
    EXPECT_EQ(Parse("key ==\n"), Value("key", "="));
    EXPECT_EQ(Parse("key = = \n"), Value("key", "="));
    EXPECT_EQ(Parse("key == # b\n"), Value("key", "="));
}

TEST(IniLine, AValueNeedsAKeyAndASign) {
    EXPECT_EQ(Parse("key value\n"), SyntaxError());
    EXPECT_EQ(Parse("= value\n"), SyntaxError());
    EXPECT_EQ(Parse(" = value\n"), SyntaxError());
    EXPECT_EQ(Parse("=\n"), SyntaxError());
    EXPECT_EQ(Parse("'key'\n"), SyntaxError());
    EXPECT_EQ(Parse("key # = value\n"), Value("key #", "value"));
}

TEST(IniLine, ABackslashIsAnOrdinaryCharacter) {
    EXPECT_EQ(Parse("key = value\\\n"), Value("key", "value\\"));
    EXPECT_EQ(Parse("\\\n"), SyntaxError());
    EXPECT_EQ(Parse("[a]\\\n"), SyntaxError());
}

// A second implementation of the same grammar, with libc's scan patterns.

bool IsBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

std::string Strip(std::string text) {
    while (!text.empty() && IsBlank(text.back())) {
        text.pop_back();
    }
    std::size_t begin = 0;
    while (begin < text.size() && IsBlank(text[begin])) {
        ++begin;
    }
    return text.substr(begin);
}

Parsed ReferenceSection(const std::string& line) {
    char section[1025] = "";
    if (std::sscanf(line.c_str(), "[%1024[^]]", section) != 1) {
        return Unnamed();
    }
    return Section(Strip(section));
}

Parsed ReferenceValue(const std::string& line) {
    const char* text = line.c_str();
    char key[1025] = "";
    char value[1025] = "";
    if (std::sscanf(text, "%1024[^=] = '%1024[^']'", key, value) == 2 ||
        std::sscanf(text, "%1024[^=] = \"%1024[^\"]\"", key, value) == 2) {
        return Value(Strip(key), value);
    }
    if (std::sscanf(text, "%1024[^=] = %1024[^;#]", key, value) == 2) {
        const std::string stripped = Strip(value);
        const bool isPair = stripped == "\"\"" || stripped == "''";
        return Value(Strip(key), isPair ? "" : stripped);
    }
    if (std::sscanf(text, "%1024[^=] %1024[=]", key, value) == 2 ||
        std::sscanf(text, "%1024[^=] = %1024[;#]", key, value) == 2) {
        return Value(Strip(key), "");
    }
    return SyntaxError();
}

Parsed ReferenceParse(const std::string& text) {
    const std::string line = Strip(text.substr(0, text.find(';')));
    if (line.empty() || line.front() == '#') {
        return Nothing();
    }
    if (line.front() == '[' && line.back() == ']') {
        return ReferenceSection(line);
    }
    return ReferenceValue(line);
}

/// Random lines in which the special characters of the grammar are frequent.
class LineMaker {
public:
    explicit LineMaker(unsigned start) : random_(start) {}

    std::string Make() {
        static const std::string kAlphabet = "=='''\"\"\";##[[]]    \t\r\vaAbZ:\\.0\xc4\xa0";
        const std::size_t length = random_() % (random_() % 50 == 0 ? 1000 : 16);
        std::string line = random_() % 3 == 0 ? "Key =" : random_() % 4 == 0 ? "[" : "";
        for (std::size_t at = 0; at < length; ++at) {
            line += kAlphabet[random_() % kAlphabet.size()];
        }
        return line + (random_() % 5 == 0 ? "]\n" : "\n");
    }

private:
    std::mt19937 random_;
};

TEST(IniLine, AgreesWithTheScanPatternsOnGeneratedLines) {
    constexpr unsigned kStart = 20240607;
    std::cout << "lines generated from start number " << kStart << '\n';
    LineMaker lines(kStart);
    int counts[4] = {};
    for (int number = 0; number < 100'000; ++number) {
        const std::string line = lines.Make();
        const Parsed expected = ReferenceParse(line);
        ASSERT_EQ(Parse(line), expected) << "line " << number << ": <" << line << '>';
        ++counts[static_cast<int>(expected.kind)];
    }
    for (const int count : counts) {
        EXPECT_GT(count, 2000);  // every kind of line is frequent
    }
}

}  // namespace
}  // namespace paramgen::testing
