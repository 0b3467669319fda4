#include "log/console_log.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string>

#include "log/output.h"
#include "support/captured_output.h"

namespace paramgen::testing {
namespace {

// Called through a pointer, so that the compiler does not check formats that are null or empty on
// purpose.
void (*volatile g_print)(std::uint32_t, const char*, const char*, std::uint32_t, const char*,
                         ...) = ConsoleLogPrint;

/// Prints a record of each level. Returns the levels that were printed, as digits.
std::string LevelsPrinted() {
    return CaptureStdout([] {
        for (std::uint32_t level = 0; level <= 7; ++level) {
            // The message is the level's digit.
            ConsoleLogPrint(level, "M", "F", 1, "%u\n", level);
        }
    });
}

std::string DigitsOf(const std::string& output) {
    return std::regex_replace(output, std::regex("[^\n]*:([0-7])\n"), "$1");
}

std::string PrintAt(std::uint32_t level) {
    return CaptureStdout([&] { ConsoleLogPrint(level, "PARAM", "Func", 42, "text\n"); });
}

/// Restores the initial settings of the log after each test.
class ConsoleLog : public ::testing::Test {
protected:
    void TearDown() override { ConsoleLogSetup(1, 1, kConsoleInfo); }
};

TEST_F(ConsoleLog, InitiallyLevelFourWithTime) {
    EXPECT_EQ(DigitsOf(LevelsPrinted()), "01234");
    EXPECT_TRUE(std::regex_match(
        PrintAt(4), std::regex("\033\\[m\\[([01][0-9]|2[0-3]):[0-5][0-9]:[0-6][0-9]:[0-9]{3} "
                               "\033\\[1;32mINFO\033\\[m-PARAM\\]:Func\\[42\\]:text\n")));
}

TEST_F(ConsoleLog, EveryLevelWithoutTimeByteForByte) {
    ConsoleLogSetup(1, 0, 5);
    EXPECT_EQ(PrintAt(0), "\033[m[\033[1;35mFATAL\033[m-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(1), "\033[m[-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(2), "\033[m[\033[1;31mERROR\033[m-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(3), "\033[m[\033[1;33mWARN\033[m-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(4), "\033[m[\033[1;32mINFO\033[m-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(5), "\033[m[DEBUG-PARAM]:Func[42]:text\n");
}

TEST_F(ConsoleLog, LevelOneWithTimeShowsNothingBetweenTimeAndDash) {
    EXPECT_TRUE(std::regex_match(
        PrintAt(1),
        std::regex("\033\\[m\\[[0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3} -PARAM\\]:Func\\[42\\]:"
                   "text\n")));
}

TEST_F(ConsoleLog, EachLevelLetsTheLevelsUpToItPass) {
    const std::string all = "012345";
    for (std::uint32_t level = 0; level <= 5; ++level) {
        ConsoleLogSetup(1, 0, level);
        EXPECT_EQ(DigitsOf(LevelsPrinted()), all.substr(0, level + 1));
    }
}

TEST_F(ConsoleLog, LevelsAreComparedUnsigned) {
    ConsoleLogSetup(1, 0, 5);
    EXPECT_EQ(PrintAt(0xFFFFFFFFU), "");
    EXPECT_EQ(PrintAt(0x80000000U), "");
}

TEST_F(ConsoleLog, SwitchedOffNothingIsWritten) {
    ConsoleLogSetup(0, 0, 5);
    EXPECT_EQ(LevelsPrinted(), "");
}

TEST_F(ConsoleLog, AnyNonZeroFlagMeansOn) {
    ConsoleLogSetup(0, 0, 5);
    ConsoleLogSetup(0x80000000U, 2, 5);
    EXPECT_TRUE(std::regex_match(
        PrintAt(5),
        std::regex("\033\\[m\\[[0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3} DEBUG-PARAM\\]:Func\\[42\\]:"
                   "text\n")));
}

TEST_F(ConsoleLog, InvalidLevelPrintsALineAndChangesNothing) {
    ConsoleLogSetup(1, 0, 3);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogSetup(0, 1, 6); }), "level is invalid\n");
    EXPECT_EQ(PrintAt(3), "\033[m[\033[1;33mWARN\033[m-PARAM]:Func[42]:text\n");
    EXPECT_EQ(PrintAt(4), "");
    EXPECT_EQ(CaptureStdout([] { ConsoleLogSetup(0, 1, 0xFFFFFFFFU); }), "level is invalid\n");
    EXPECT_EQ(DigitsOf(LevelsPrinted()), "0123");
}

TEST_F(ConsoleLog, ValidSetupPrintsNothing) {
    EXPECT_EQ(CaptureStdout([] { ConsoleLogSetup(1, 0, 5); }), "");
}

TEST_F(ConsoleLog, NullArgumentsCountAsEmpty) {
    ConsoleLogSetup(1, 0, 5);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(5, nullptr, "Func", 1, "m\n"); }),
              "\033[m[DEBUG-]:Func[1]:m\n");
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(5, "PARAM", nullptr, 2, "m\n"); }),
              "\033[m[DEBUG-PARAM]:[2]:m\n");
    EXPECT_EQ(CaptureStdout([] { g_print(5, "PARAM", "Func", 3, nullptr); }),
              "\033[m[DEBUG-PARAM]:Func[3]:");
    EXPECT_EQ(CaptureStdout([] { g_print(5, nullptr, nullptr, 4, nullptr); }),
              "\033[m[DEBUG-]:[4]:");
}

TEST_F(ConsoleLog, NothingIsAddedToTheMessage) {
    ConsoleLogSetup(1, 0, 5);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(5, "PARAM", "F", 1, "no end"); }),
              "\033[m[DEBUG-PARAM]:F[1]:no end");
    EXPECT_EQ(CaptureStdout([] { g_print(5, "PARAM", "F", 1, ""); }), "\033[m[DEBUG-PARAM]:F[1]:");
}

TEST_F(ConsoleLog, LineIsUnsignedAndMessageTakesItsArguments) {
    ConsoleLogSetup(1, 0, 5);
    EXPECT_EQ(CaptureStdout([] {
                  ConsoleLogPrint(5, "%s", "%d", 0xFFFFFFFFU, "[%s] failed[0x%08X]\n", "gsensor",
                                  0xA1418046U);
              }),
              "\033[m[DEBUG-%s]:%d[4294967295]:[gsensor] failed[0xA1418046]\n");
}

TEST_F(ConsoleLog, LinesOfEveryLength) {
    ConsoleLogSetup(1, 0, 5);
    const std::map<std::uint32_t, std::string> lines = {{0, "0"},
                                                        {9, "9"},
                                                        {10, "10"},
                                                        {99, "99"},
                                                        {100, "100"},
                                                        {12345, "12345"},
                                                        {999999999, "999999999"},
                                                        {1000000000, "1000000000"}};
    for (const auto& line : lines) {
        EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, "P", "F", line.first, "m\n"); }),
                  "\033[m[DEBUG-P]:F[" + line.second + "]:m\n");
    }
}

TEST_F(ConsoleLog, LongNamesAreWrittenWhole) {
    ConsoleLogSetup(1, 0, 5);
    for (const std::size_t length : {1U, 199U, 200U, 201U, 398U, 399U, 400U, 401U, 402U, 470U, 480U,
                                     490U, 500U, 510U, 511U, 512U, 513U, 5000U}) {
        const std::string name(length, 'x');
        EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(0, "P", name.c_str(), 1, "%d m\n", 2); }),
                  "\033[m[\033[1;35mFATAL\033[m-P]:" + name + "[1]:2 m\n");
        EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, name.c_str(), "F", 1, "%d m\n", 2); }),
                  "\033[m[DEBUG-" + name + "]:F[1]:2 m\n");
        EXPECT_EQ(CaptureStdout(
                      [&] { ConsoleLogPrint(5, name.c_str(), name.c_str(), 0xFFFFFFFFU, "m\n"); }),
                  "\033[m[DEBUG-" + name + "]:" + name + "[4294967295]:m\n");
    }
}

TEST_F(ConsoleLog, TheLongestPrefixWithTime) {
    ConsoleLogSetup(1, 1, 5);
    for (const std::size_t length : {399U, 400U, 401U, 440U, 450U, 460U, 470U, 480U, 5000U}) {
        const std::string name(length, 'x');
        const std::string record =
            CaptureStdout([&] { ConsoleLogPrint(0, "", name.c_str(), 0xFFFFFFFFU, "m\n"); });
        ASSERT_GT(record.size(), 17U);
        EXPECT_TRUE(std::regex_match(
            record.substr(0, 17), std::regex("\033\\[m\\[[0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3} ")));
        EXPECT_EQ(record.substr(17), "\033[1;35mFATAL\033[m-]:" + name + "[4294967295]:m\n");
    }
}

TEST_F(ConsoleLog, RecordsOfEveryLength) {
    ConsoleLogSetup(1, 0, 5);
    for (std::size_t length = 440; length < 530; ++length) {
        const std::string text(length, 'x');
        EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, "P", "F", 1, "%s\n", text.c_str()); }),
                  "\033[m[DEBUG-P]:F[1]:" + text + "\n");
    }
}

TEST_F(ConsoleLog, RecordsKeepTheirOrderHoweverTheyAreWritten) {
    ConsoleLogSetup(1, 0, 5);
    const std::string name(500, 'x');
    EXPECT_EQ(CaptureStdout([&] {
                  ConsoleLogPrint(5, "P", "F", 1, "plain %d\n", 1);
                  ConsoleLogPrint(5, "P", "F", 2, "for libc %.1f\n", 2.5);
                  ConsoleLogPrint(5, "P", name.c_str(), 3, "long name\n");
                  ConsoleLogSetup(1, 0, 6);
                  ConsoleLogPrint(5, "P", "F", 4, "%s\n", name.c_str());
                  ConsoleLogPrint(5, "P", "F", 5, "plain\n");
              }),
              "\033[m[DEBUG-P]:F[1]:plain 1\n\033[m[DEBUG-P]:F[2]:for libc 2.5\n\033[m[DEBUG-P]:" +
                  name + "[3]:long name\nlevel is invalid\n\033[m[DEBUG-P]:F[4]:" + name +
                  "\n\033[m[DEBUG-P]:F[5]:plain\n");
}

TEST_F(ConsoleLog, RecordsWithFractionsAreHeldLikeOthers) {
    ConsoleLogSetup(1, 0, 5);
    std::string early = "not read";
    const std::string all = CaptureStdout([&] {
        const HeldOutput held(true);
        ConsoleLogPrint(5, "P", "F", 1, "plain %d\n", 1);
        early = CaptureStdout([] { ConsoleLogPrint(5, "P", "F", 2, "rate %.2f\n", 29.97); });
        ConsoleLogPrint(5, "P", "F", 3, "plain\n");
    });
    EXPECT_EQ(early, "");
    EXPECT_EQ(all,
              "\033[m[DEBUG-P]:F[1]:plain 1\n\033[m[DEBUG-P]:F[2]:rate "
              "29.97\n\033[m[DEBUG-P]:F[3]:plain\n");
}

TEST_F(ConsoleLog, LongMessagesAreWrittenWhole) {
    ConsoleLogSetup(1, 0, 5);
    const std::string text(5000, 'x');
    EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, "P", "F", 1, "%s", text.c_str()); }),
              "\033[m[DEBUG-P]:F[1]:" + text);
    EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, "P", "F", 1, "%.1f%s", 2.5, text.c_str()); }),
              "\033[m[DEBUG-P]:F[1]:2.5" + text);
}

TEST_F(ConsoleLog, MessagesWithFractionsOfEveryLength) {
    ConsoleLogSetup(1, 0, 5);
    for (int digits = 450; digits < 530; ++digits) {
        EXPECT_EQ(CaptureStdout([&] { ConsoleLogPrint(5, "P", "F", 1, "%.*f\n", digits, 0.5); }),
                  "\033[m[DEBUG-P]:F[1]:0.5" +
                      std::string(static_cast<std::size_t>(digits) - 1, '0') + "\n");
    }
}

TEST_F(ConsoleLog, SimpleRecordThatDoesNotFitIsLeftToTheCaller) {
    ConsoleLogSetup(1, 0, 5);
    static constexpr SimpleFormat kText("%s\n");
    const std::string fits(400, 'x');
    const std::string tooLong(kRecordRoom, 'x');
    bool isWritten = false;
    const auto print = [&](const std::string& text) {
        const SimpleFormat::Argument argument(text.c_str());
        isWritten = ConsoleLogPrintSimple(kConsoleDebug, "M", "F[1]:", kText, &argument);
    };
    EXPECT_NE(CaptureStdout([&] { print(fits); }).find("F[1]:" + fits + "\n"), std::string::npos);
    EXPECT_TRUE(isWritten);
    EXPECT_EQ(CaptureStdout([&] { print(tooLong); }), "");
    EXPECT_FALSE(isWritten);
}

}  // namespace
}  // namespace paramgen::testing
