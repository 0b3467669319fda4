#include "confaccess/line_reader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

struct Line {
    std::string text;
    bool hasNewline;
    bool isLast;
    std::string content;

    Line(std::string all, bool newline, bool last)
        : text(std::move(all)),
          hasNewline(newline),
          isLast(last),
          content(text.substr(0, text.find(';'))) {}

    bool operator==(const Line&) const = default;
};

void PrintTo(const Line& line, std::ostream* stream) {
    *stream << '<' << line.text << '>' << (line.hasNewline ? " newline" : "")
            << (line.isLast ? " last" : "") << " <" << line.content << '>';
}

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

class Lines : public ::testing::Test {
protected:
    static std::vector<Line> Read(const std::string& bytes) {
        // On the heap without a terminator, so that the sanitizer sees reading too far.
        const std::vector<char> text(bytes.begin(), bytes.end());
        LineReader reader({text.data(), text.size()});
        std::vector<Line> lines;
        TextLine line;
        while (reader.Next(&line)) {
            lines.emplace_back(std::string(line.text), line.hasNewline, line.isLast);
            lines.back().content = line.content;
        }
        EXPECT_FALSE(reader.Next(&line));
        return lines;
    }

    /// The same by fgets.
    std::vector<Line> Get(const std::string& bytes) const {
        const std::unique_ptr<std::FILE, Closer> file(
            std::fopen(directory_.Write("file", bytes).c_str(), "r"));
        std::vector<Line> lines;
        char piece[LineReader::kPieceMax + 1];
        while (std::fgets(piece, sizeof piece, file.get()) != nullptr) {
            std::string text = piece;
            const bool hasNewline = !text.empty() && text.back() == '\n';
            if (hasNewline) {
                text.pop_back();
            }
            lines.emplace_back(text, hasNewline, std::feof(file.get()) != 0);
        }
        return lines;
    }

    TempDir directory_;
};

TEST_F(Lines, AnEmptyTextHasNone) {
    EXPECT_EQ(Read(""), std::vector<Line>());
}

TEST_F(Lines, ComeWithoutTheirNewlines) {
    EXPECT_EQ(Read("one\n\nthree\n"),
              (std::vector<Line>{{"one", true, false}, {"", true, false}, {"three", true, false}}));
}

TEST_F(Lines, TheLastMayLackItsNewline) {
    EXPECT_EQ(Read("one\ntwo"), (std::vector<Line>{{"one", true, false}, {"two", false, true}}));
}

TEST_F(Lines, EndAtANul) {
    const std::string bytes("a\0b\n\0\nc\0", 8);
    EXPECT_EQ(Read(bytes),
              (std::vector<Line>{{"a", false, false}, {"", false, false}, {"c", false, true}}));
}

TEST_F(Lines, ComeInPiecesWhenTheyAreTooLong) {
    const std::string a(1022, 'a');
    const std::string b(1023, 'b');
    EXPECT_EQ(Read(a + "\n" + b + "\n" + b + "bb"), (std::vector<Line>{{a, true, false},
                                                                       {b, false, false},
                                                                       {"", true, false},
                                                                       {b, false, false},
                                                                       {"bb", false, true}}));
    EXPECT_EQ(Read(b), (std::vector<Line>{{b, false, false}}));
    EXPECT_EQ(Read(a), (std::vector<Line>{{a, false, true}}));
}

TEST_F(Lines, HaveContentUpToTheFirstSemicolon) {
    const std::string bytes = "a;b;\n;\nc ; d";
    const std::vector<Line> lines = Read(bytes);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "a;b;");
    EXPECT_EQ(lines[0].content, "a");
    EXPECT_EQ(lines[1].content, "");
    EXPECT_EQ(lines[2].content, "c ");
    // A NUL ends both, wherever it is.
    EXPECT_EQ(Read(std::string("a;b\0c\n", 6))[0].content, "a");
    EXPECT_EQ(Read(std::string("a\0b;c\n", 6))[0].content, "a");
}

TEST_F(Lines, HaveEveryLength) {
    std::string bytes;
    std::vector<Line> expected;
    for (std::size_t length = 0; length < 1000; ++length) {
        bytes += std::string(length, 'x') + "\n";
        expected.emplace_back(std::string(length, 'x'), true, false);
    }
    EXPECT_EQ(Read(bytes), expected);
}

TEST_F(Lines, AreThoseOfFgets) {
    std::mt19937 random(20261121);
    for (int number = 0; number < 300; ++number) {
        std::string bytes;
        const std::size_t size = random() % 40'000;
        const std::size_t newlines = 1 + random() % 1500;
        const std::size_t nuls = 1 + random() % 20'000;
        while (bytes.size() < size) {
            bytes += random() % newlines == 0 ? '\n'
                     : random() % nuls == 0   ? '\0'
                     : random() % 100 == 0    ? ';'
                                              : 'x';
        }
        ASSERT_EQ(Read(bytes), Get(bytes)) << number;
    }
}

}  // namespace
}  // namespace paramgen::testing
