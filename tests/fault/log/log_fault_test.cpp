#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include "fault/failing_calls.h"
#include "log/console_log.h"
#include "log/library_log.h"
#include "log/save_file.h"
#include "support/captured_output.h"
#include "support/save_path.h"

namespace paramgen::testing {
namespace {

class LogFault : public SavePathTest {
protected:
    /// Saves the record "one" while the `number`th call from now on fails.
    static std::string SaveFailing(Call call, int number = 1) {
        return CaptureStdout([&] {
            Fail(call, number);
            LOG_SaveLog("one", 3);
            Fail(call, 0);
        });
    }

    std::string OpenFailing(Call call, std::uint32_t expected) const {
        return CaptureStdout([&] {
            Fail(call);
            EXPECT_EQ(static_cast<std::uint32_t>(Open(10)), expected);
            EXPECT_FALSE(ZV_LOG_IsSaveOpen());
        });
    }
};

// Levels.

TEST_F(LogFault, LevelNameThatCannotBeCopied) {
    std::int32_t status = 0;
    const std::string output = CaptureStdout([&] {
        Fail(Call::kMemcpyS);
        status = ZV_LOG_PrintfInfo("TAG", kLibraryErr, "Func", 7, "m");
    });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(output,
              "[LOG_FillLevelInfo]406: memcpy_s failed\n\n"
              "[ZV_LOG_PrintfInfo]425: log filllevelinfo failed\n\n");
}

// Opening.

TEST_F(LogFault, FirstFileThatCannotBeOpened) {
    EXPECT_EQ(OpenFailing(Call::kFopen, 0xA11F8042U), "");
}

TEST_F(LogFault, FirstFileThatCannotBeMeasured) {
    EXPECT_EQ(OpenFailing(Call::kFtell, 0xA11F8001U), "ftell failed\n");
    EXPECT_EQ(OpenFailing(Call::kFseek, 0xA11F8001U), "ftell failed\n");
}

// Starting a file afresh.

TEST_F(LogFault, StartingAnEmptyFileFailsAtEachStep) {
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFclose),
              "[LOG_ReOpen]262: close file failed\n[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFopen),
              "[LOG_ReOpen]265: open file failed\n[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFflush),
              "[LOG_ReOpen]271: fflush filed\n[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    std::filesystem::resize_file(File1(), 0);
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFwrite),
              "[LOG_ReOpen]268: fwrite filed\n[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(LogFault, StartingADeletedFileFailsAtEachStep) {
    const std::string deleted = "[LOG_WriteLog]292: (" + File1().string() + ") is delete \n";
    const auto openDeleted = [&] {
        ASSERT_EQ(Open(10), 0);
        std::filesystem::remove(File1());
    };
    openDeleted();
    EXPECT_EQ(SaveFailing(Call::kFclose),
              deleted + "[LOG_ReOpen]262: close file failed\n[LOG_WriteLog]294: reopen filed\n");
    openDeleted();
    EXPECT_EQ(SaveFailing(Call::kFopen),
              deleted + "[LOG_ReOpen]265: open file failed\n[LOG_WriteLog]294: reopen filed\n");
    openDeleted();
    EXPECT_EQ(SaveFailing(Call::kFwrite),
              deleted + "[LOG_ReOpen]268: fwrite filed\n[LOG_WriteLog]294: reopen filed\n");
    openDeleted();
    EXPECT_EQ(SaveFailing(Call::kFflush),
              deleted + "[LOG_ReOpen]271: fflush filed\n[LOG_WriteLog]294: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(LogFault, TurnThatFailsClosesTheSavePathWithoutAnotherMessage) {
    Write1("1111111111");
    Write2("2222222222");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFflush), "[LOG_ReOpen]271: fflush filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Text1(), "1111111111");
}

// Appending.

TEST_F(LogFault, RecordThatCannotBeWritten) {
    Write1("old");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFwrite), "[LOG_WriteLog]316: fwrite filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(LogFault, SecondFileThatCannotBeOpened) {
    Write1("1111111111");
    ASSERT_EQ(Open(10), 0);
    std::string output;
    EXPECT_EQ(CaptureStderr([&] { output = SaveFailing(Call::kFopen); }),
              "open file failed:\n: Too many open files\n");
    EXPECT_EQ(output, "");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(LogFault, SecondFileThatCannotBeMeasured) {
    Write1("1111111111");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFtell), "ftell failed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kFseek), "ftell failed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

// Closing.

TEST_F(LogFault, FirstFileThatCannotBeClosedStillClosesTheSavePath) {
    Write1("12345");
    ASSERT_EQ(Open(5), 0);
    Save("other");
    const std::string output = CaptureStdout([] {
        Fail(Call::kFclose);
        ZV_LOG_CloseSave();
    });
    EXPECT_EQ(output, "");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("more"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "12345more");
    EXPECT_EQ(Text2(), "other");
}

TEST_F(LogFault, SecondFileThatCannotBeClosedStillClosesTheSavePath) {
    Write1("12345");
    ASSERT_EQ(Open(5), 0);
    Save("other");
    Fail(Call::kFclose, 2);
    ZV_LOG_CloseSave();
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(7), 0);
    EXPECT_EQ(Save("mo"), "");
    EXPECT_EQ(Save("re"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "12345mo");
    EXPECT_EQ(Text2(), "otherre");
}

// The lock.

TEST_F(LogFault, LockThatFailsIsReportedAndTheRecordSaved) {
    Write1("old");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(SaveFailing(Call::kMutexLock), "volog lock fail\n");
    EXPECT_EQ(SaveFailing(Call::kMutexUnlock), "volog unlock fail\n");
    EXPECT_TRUE(ZV_LOG_IsSaveOpen());
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "oldoneone");
}

TEST_F(LogFault, FailedRecordClosesUnderALockOfItsOwn) {
    Write1("old");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(CaptureStdout([] {
                  Fail(Call::kFwrite);
                  Fail(Call::kMutexLock, 2);
                  Fail(Call::kMutexUnlock, 2);
                  LOG_SaveLog("one", 3);
              }),
              "[LOG_WriteLog]316: fwrite filed\nvolog lock fail\nvolog unlock fail\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

// The time of day.

class LogTime : public ::testing::Test {
protected:
    void SetUp() override { SetZone("XYZ-3:30"); }  // three and a half hours ahead
    void TearDown() override {
        ReleaseClock();
        SetZone("UTC0");
        ConsoleLogSetup(1, 1, kConsoleInfo);
    }

    static void SetZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
};

TEST_F(LogTime, ConsoleRecordHasLocalTimeAndThreeDigits) {
    HoldClock(1, 7999);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(4, "PARAM", "Func", 42, "m\n"); }),
              "\033[m[03:30:01:007 \033[1;32mINFO\033[m-PARAM]:Func[42]:m\n");
    HoldClock(20 * 3600 + 29 * 60 + 59, 999999);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(0, "PARAM", "Func", 42, "m\n"); }),
              "\033[m[23:59:59:999 \033[1;35mFATAL\033[m-PARAM]:Func[42]:m\n");
    HoldClock(20 * 3600 + 30 * 60, 0);
    EXPECT_EQ(CaptureStdout([] { ConsoleLogPrint(1, "PARAM", "Func", 42, "m\n"); }),
              "\033[m[00:00:00:000 -PARAM]:Func[42]:m\n");
}

TEST_F(LogTime, LibraryRecordHasLocalTimeAndFourDigits) {
    HoldClock(1, 7999);
    EXPECT_EQ(CaptureStdout([] { ZV_LOG_PrintfInfo("TAG", 3, "Func", 7, "m\n"); }),
              "[03:30:01:0007][ERR][TAG] Func:7 m\n");
    HoldClock(1, 999999);
    EXPECT_EQ(CaptureStdout([] { ZV_LOG_PrintfInfo("TAG", 4, "Func", 7, "m\n"); }),
              "[03:30:01:0999][FATAL][TAG] Func:7 m\n");
}

TEST_F(LogTime, ShortFormHasLocalTimeAndThreeDigits) {
    HoldClock(1, 7999);
    EXPECT_EQ(CaptureStdout([] { ZV_LOG_Printf("TAG", 3, "m\n"); }), "[03:30:01:007][TAG] m\n");
}

}  // namespace
}  // namespace paramgen::testing
