#include "log/library_log.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <regex>
#include <string>

#include "support/captured_output.h"
#include "support/records.h"
#include "support/save_path.h"

namespace paramgen::testing {
namespace {

// Called through a pointer, so that the compiler does not check formats that are null or empty on
// purpose.
std::int32_t (*volatile g_print)(const char*, std::int32_t, const char*, std::int32_t, const char*,
                                 ...) = ZV_LOG_PrintfInfo;
std::int32_t (*volatile g_printShort)(const char*, std::int32_t, const char*, ...) = ZV_LOG_Printf;

struct Printed {
    std::int32_t status;
    std::string output;
};

Printed Print(std::int32_t level, const std::string& message, const std::string& module = "TAG",
              const std::string& function = "Func") {
    Printed printed = {1, ""};
    printed.output = CaptureStdout([&] {
        printed.status =
            ZV_LOG_PrintfInfo(module.c_str(), level, function.c_str(), 7, "%s", message.c_str());
    });
    return printed;
}

Printed PrintShort(std::int32_t level) {
    Printed printed = {1, ""};
    printed.output =
        CaptureStdout([&] { printed.status = ZV_LOG_Printf("TAG", level, "text %d\n", 5); });
    return printed;
}

using LibraryLog = SavePathTest;

// Length of the prefix "[hh:mm:ss:mmmm][ERR][MODULE] Func:7 " without the module.
constexpr std::size_t kPrefixWithoutModule = 15 + 5 + 2 + 8;
constexpr std::size_t kRecordMax = 510;  // of prefix and message together

// Must run first, before another test sets the threshold.
TEST_F(LibraryLog, InitiallyErrAndFatalPass) {
    for (const std::int32_t level : {-2147483647 - 1, -1, 0, 1, 2}) {
        const Printed printed = Print(level, "m");
        EXPECT_EQ(printed.status, 0) << level;
        EXPECT_EQ(printed.output, "") << level;
    }
    EXPECT_EQ(MaskVolatile(Print(3, "m").output), "[time][ERR][TAG] Func:7 m");
    EXPECT_EQ(MaskVolatile(Print(4, "m").output), "[time][FATAL][TAG] Func:7 m");
    EXPECT_EQ(MaskVolatile(Print(5, "m").output), "[time][UKNOW][TAG] Func:7 m");
}

TEST_F(LibraryLog, RecordByteForByte) {
    const Printed printed = Print(kLibraryErr, "message\n");
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(MaskVolatile(printed.output), "[time][ERR][TAG] Func:7 message\n");
}

TEST_F(LibraryLog, TimeHasFourDigitsOfMilliseconds) {
    EXPECT_TRUE(std::regex_match(
        Print(kLibraryErr, "m").output,
        std::regex("\\[([01][0-9]|2[0-3]):[0-5][0-9]:[0-6][0-9]:0[0-9]{3}\\]\\[ERR\\]\\[TAG\\] "
                   "Func:7 m")));
}

TEST_F(LibraryLog, EachLevelHasItsName) {
    ZV_LOG_SetThreshold(-5);
    EXPECT_EQ(MaskVolatile(Print(0, "").output), "[time][DEBUG][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(1, "").output), "[time][INFO][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(2, "").output), "[time][WARN][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(3, "").output), "[time][ERR][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(4, "").output), "[time][FATAL][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(7, "").output), "[time][UKNOW][TAG] Func:7 ");
    EXPECT_EQ(MaskVolatile(Print(-1, "").output), "[time][UKNOW][TAG] Func:7 ");
    EXPECT_EQ(Print(-6, "").output, "");
}

TEST_F(LibraryLog, ThresholdAppliesToBothForms) {
    ZV_LOG_SetThreshold(kLibraryFatal);
    EXPECT_EQ(Print(3, "m").output, "");
    EXPECT_EQ(PrintShort(3).output, "");
    EXPECT_NE(Print(4, "m").output, "");
    EXPECT_NE(PrintShort(4).output, "");
}

TEST_F(LibraryLog, NullArgumentsAreRefusedSilently) {
    const std::string output = CaptureStdout([] {
        EXPECT_EQ(ZV_LOG_PrintfInfo(nullptr, 3, "F", 1, "m"), -1);
        EXPECT_EQ(ZV_LOG_PrintfInfo("T", 3, nullptr, 1, "m"), -1);
        EXPECT_EQ(g_print("T", 3, "F", 1, nullptr), -1);
    });
    EXPECT_EQ(output, "");
}

TEST_F(LibraryLog, ThresholdComesBeforeNullArguments) {
    EXPECT_EQ(g_print(nullptr, 2, nullptr, 1, nullptr), 0);
    EXPECT_EQ(g_printShort(nullptr, 2, nullptr), 0);
}

TEST_F(LibraryLog, LineIsSignedAndTagsMayBeEmpty) {
    const std::string output = CaptureStdout([] { EXPECT_EQ(g_print("", 3, "", -4, ""), 0); });
    EXPECT_EQ(MaskVolatile(output), "[time][ERR][] :-4 ");
}

TEST_F(LibraryLog, LongestRecordIsWrittenAndOneMoreIsDropped) {
    const std::size_t room = kRecordMax - kPrefixWithoutModule - 3;
    const Printed longest = Print(3, std::string(room, 'm'));
    EXPECT_EQ(longest.status, 0);
    EXPECT_EQ(longest.output.size(), 510U);
    EXPECT_EQ(MaskVolatile(longest.output), "[time][ERR][TAG] Func:7 " + std::string(room, 'm'));
    const Printed longer = Print(3, std::string(room + 1, 'm'));
    EXPECT_EQ(longer.status, -1);
    EXPECT_EQ(longer.output, "");
}

TEST_F(LibraryLog, LongestPrefixTakesTheEmptyMessageOnly) {
    const std::string module(kRecordMax - kPrefixWithoutModule - 1, 't');
    EXPECT_EQ(Print(3, "m", module).status, 0);
    const std::string longest = module + 't';
    const Printed empty = Print(3, "", longest);
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.output.size(), 510U);
    EXPECT_EQ(Print(3, "m", longest).status, -1);
    EXPECT_EQ(Print(3, "m", longest).output, "");
}

TEST_F(LibraryLog, PrefixOfAllCharactersLeavesNoRoomForAnyMessage) {
    const Printed printed = Print(3, "", std::string(511 - kPrefixWithoutModule, 't'));
    EXPECT_EQ(printed.status, -1);
    EXPECT_EQ(printed.output, "");
}

TEST_F(LibraryLog, PrefixThatDoesNotFitIsReported) {
    const Printed byModule = Print(3, "", std::string(512 - kPrefixWithoutModule, 't'));
    EXPECT_EQ(byModule.status, -1);
    EXPECT_EQ(byModule.output, "[ZV_LOG_PrintfInfo]434: snprintf_s failed\n");
    const Printed byFunction = Print(3, "m", "T", std::string(600, 'f'));
    EXPECT_EQ(byFunction.status, -1);
    EXPECT_EQ(byFunction.output, "[ZV_LOG_PrintfInfo]434: snprintf_s failed\n");
}

TEST_F(LibraryLog, ShortFormByteForByte) {
    const Printed printed = PrintShort(3);
    EXPECT_EQ(printed.status, 0);
    EXPECT_TRUE(std::regex_match(
        printed.output,
        std::regex("\\[([01][0-9]|2[0-3]):[0-5][0-9]:[0-6][0-9]:[0-9]{3}\\]\\[TAG\\] text 5\n")));
}

TEST_F(LibraryLog, ShortFormStaysBelowTheThreshold) {
    const Printed printed = PrintShort(2);
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(printed.output, "");
}

TEST_F(LibraryLog, ShortFormRefusesNullArgumentsSilently) {
    const std::string output = CaptureStdout([] {
        EXPECT_EQ(ZV_LOG_Printf(nullptr, 3, "m"), -1);
        EXPECT_EQ(g_printShort("T", 3, nullptr), -1);
    });
    EXPECT_EQ(output, "");
}

TEST_F(LibraryLog, ShortFormIsNotLimitedToARecord) {
    const std::string text(2000, 'x');
    const std::string output =
        CaptureStdout([&] { EXPECT_EQ(ZV_LOG_Printf("T", 3, "%s", text.c_str()), 0); });
    EXPECT_EQ(MaskVolatile(output), "[time][T] " + text);
}

TEST_F(LibraryLog, RecordGoesToTheSaveFileAndToStandardOutput) {
    ASSERT_EQ(Open(1000), 0);
    const Printed printed = Print(3, "100%s\n");
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(MaskVolatile(printed.output), "[time][ERR][TAG] Func:7 100%s\n");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), printed.output);
}

TEST_F(LibraryLog, WhatIsNotPrintedIsNotSaved) {
    ASSERT_EQ(Open(1000), 0);
    Print(2, "below the threshold");
    Print(3, std::string(600, 'm'));
    Print(3, "", std::string(600, 't'));
    PrintShort(3);
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "");
}

TEST_F(LibraryLog, FailingSavePathCostsNoRecord) {
    ASSERT_EQ(Open(1000), 0);
    std::filesystem::remove_all(directory_.path());
    const Printed printed = Print(3, "m\n");
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(MaskVolatile(printed.output), "[LOG_WriteLog]292: (" + File1().string() +
                                                ") is delete \n"
                                                "[LOG_ReOpen]265: open file failed\n"
                                                "[LOG_WriteLog]294: reopen filed\n"
                                                "[time][ERR][TAG] Func:7 m\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(MaskVolatile(Print(3, "next\n").output), "[time][ERR][TAG] Func:7 next\n");
}

}  // namespace
}  // namespace paramgen::testing
