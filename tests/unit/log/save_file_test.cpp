#include "log/save_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string>

#include "support/captured_output.h"
#include "support/save_path.h"

namespace paramgen::testing {
namespace {

using SaveFile = SavePathTest;

TEST_F(SaveFile, StatusCodesAndLimit) {
    EXPECT_EQ(static_cast<std::uint32_t>(kSaveNoSize), 0xA11F8001U);
    EXPECT_EQ(static_cast<std::uint32_t>(kSaveFull), 0xA11F8003U);
    EXPECT_EQ(static_cast<std::uint32_t>(kSaveNotOpened), 0xA11F8042U);
    EXPECT_EQ(static_cast<std::uint32_t>(kSaveNotWritten), 0xA11F8043U);
    EXPECT_EQ(kSaveFileSizeLimit, 5242880U);
}

// Opening and closing.

TEST_F(SaveFile, ClosedAtFirstAndOpenBetweenOpenAndClose) {
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Open(100), 0);
    EXPECT_TRUE(ZV_LOG_IsSaveOpen());
    EXPECT_TRUE(std::filesystem::exists(File1()));
    EXPECT_FALSE(std::filesystem::exists(File2()));
    ZV_LOG_CloseSave();
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ZV_LOG_CloseSave();
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, FailedOpeningsCloseWhatWasOpen) {
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(ZV_LOG_OpenSave(nullptr), -1);
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(ZV_LOG_OpenSave((directory_.path() / "missing").c_str()), kSaveNotOpened);
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, LongestPathOpensAndOneMoreIsRefused) {
    std::string directory = directory_.path().string();
    while (directory.size() + 2 <= 4076) {
        directory += "/.";
    }
    directory.append(4076 - directory.size(), '/');
    EXPECT_EQ(ZV_LOG_OpenSave(directory.c_str()), 0);
    EXPECT_TRUE(std::filesystem::exists(File1()));
    EXPECT_EQ(ZV_LOG_OpenSave((directory + "/").c_str()), -1);
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, ReopeningGoesOnInTheOtherDirectory) {
    const TempDir other;
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(Save("one"), "");
    ASSERT_EQ(ZV_LOG_OpenSave(other.path().c_str(), 100), 0);
    EXPECT_EQ(Save("two"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "one");
    EXPECT_EQ(ReadFile(other.path() / "Q2VkYXJMb2dzVoLog1"), "two");
}

TEST_F(SaveFile, ReopeningStartsWithTheFirstFileAgain) {
    ASSERT_EQ(Open(5), 0);
    Save("first");
    Save("2nd");
    ASSERT_EQ(Open(9), 0);
    Save("more");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "firstmore");
    EXPECT_EQ(Text2(), "2nd");
}

TEST_F(SaveFile, DefaultLimitIsFiveMebibytes) {
    Write1(std::string(5242880 - 4, 'x'));
    ASSERT_EQ(ZV_LOG_OpenSave(directory_.path().c_str()), 0);
    Save("four");
    Save("next");
    ZV_LOG_CloseSave();
    EXPECT_EQ(std::filesystem::file_size(File1()), 5242880U);
    EXPECT_EQ(Text2(), "next");
}

TEST_F(SaveFile, FileBeyondThirtyOneBitsCannotBeMeasured) {
    Write1("");
    std::filesystem::resize_file(File1(), 0x7FFFFFFF);
    EXPECT_EQ(Open(100), 0);
    std::filesystem::resize_file(File1(), 0x80000000);
    std::int32_t status = 0;
    EXPECT_EQ(CaptureStdout([&] { status = Open(100); }), "ftell failed\n");
    EXPECT_EQ(status, kSaveNoSize);
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, NoFileCannotBeMeasured) {
    std::uint32_t size = 5;
    std::int32_t status = 0;
    EXPECT_EQ(CaptureStdout([&] { status = LOG_CheckFileSize(nullptr, &size); }),
              "[LOG_CheckFileSize]67: fp is null\n");
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA11F8001U);
    EXPECT_EQ(size, 5U);
}

// Records in turn.

TEST_F(SaveFile, FirstRecordOfAnEmptyFileIsOnDiskAtOnce) {
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(Save("one\n"), "");
    EXPECT_EQ(Text1(), "one\n");
    EXPECT_EQ(Save("two\n"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "one\ntwo\n");
}

TEST_F(SaveFile, ExistingFileIsContinued) {
    Write1("old\n");
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(Save("new\n"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "old\nnew\n");
}

TEST_F(SaveFile, RecordMayHoldNulBytes) {
    ASSERT_EQ(Open(100), 0);
    Save(std::string("a\0b", 3));
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), std::string("a\0b", 3));
}

TEST_F(SaveFile, LimitIsAnExactFit) {
    Write1("1234");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("567890"), "");
    EXPECT_FALSE(std::filesystem::exists(File2()));
    EXPECT_EQ(Save("x"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "1234567890");
    EXPECT_EQ(Text2(), "x");
}

TEST_F(SaveFile, FirstRecordOfAnEmptyFileMayPassTheLimit) {
    ASSERT_EQ(Open(3), 0);
    EXPECT_EQ(Save("12345"), "");
    EXPECT_EQ(Save("67890"), "");
    EXPECT_EQ(Save("abcde"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "abcde");
    EXPECT_EQ(Text2(), "67890");
}

// Only the record that starts a file is flushed at once. Later records are on disk when the file is
// closed.

TEST_F(SaveFile, FilesTakeTurns) {
    ASSERT_EQ(Open(10), 0);
    Save("AAAAAA");
    Save("aaaa");
    Save("BBBBBB");  // starts the second file
    EXPECT_EQ(Text2(), "BBBBBB");
    Save("bbbb");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "AAAAAAaaaa");
    EXPECT_EQ(Text2(), "BBBBBBbbbb");
}

TEST_F(SaveFile, FilesStartAfreshEachTurn) {
    ASSERT_EQ(Open(10), 0);
    Save("AAAAAA");
    Save("BBBBBB");
    Save("CCCCCC");  // truncates and starts the first file
    EXPECT_EQ(Text1(), "CCCCCC");
    EXPECT_EQ(Text2(), "BBBBBB");
    Save("cccc");
    Save("DDDDDD");  // truncates and starts the second file
    EXPECT_EQ(Text2(), "DDDDDD");
    Save("d");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "CCCCCCcccc");
    EXPECT_EQ(Text2(), "DDDDDDd");
}

TEST_F(SaveFile, ExistingSecondFileIsContinuedUpToTheLimit) {
    Write1("1234567890");
    Write2("old");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("1234567"), "");
    EXPECT_EQ(Save("x"), "");  // the second file is full: back to the first
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "x");
    EXPECT_EQ(Text2(), "old1234567");
}

TEST_F(SaveFile, BothFilesFullTruncatesTheOneNotInUse) {
    Write1("1111111111");
    Write2("2222222222");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("new"), "");
    EXPECT_EQ(Text1(), "1111111111");
    EXPECT_EQ(Text2(), "new");
    EXPECT_TRUE(ZV_LOG_IsSaveOpen());
}

// Files that change underneath.

TEST_F(SaveFile, DeletedFirstFileStartsAfresh) {
    Write1("old");
    ASSERT_EQ(Open(100), 0);
    std::filesystem::remove(File1());
    EXPECT_EQ(Save("one"), "[LOG_WriteLog]292: (" + File1().string() + ") is delete \n");
    EXPECT_EQ(Save("two"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "onetwo");
}

TEST_F(SaveFile, DeletedSecondFileStartsAfresh) {
    Write1("1234567890");
    ASSERT_EQ(Open(10), 0);
    Save("one");
    std::filesystem::remove(File2());
    EXPECT_EQ(Save("two"), "[LOG_WriteLog]292: (" + File2().string() + ") is delete \n");
    EXPECT_EQ(Text2(), "two");
    EXPECT_EQ(Text1(), "1234567890");
}

TEST_F(SaveFile, EmptiedFileStartsAfreshAndCountsAnew) {
    Write1("12345678");
    ASSERT_EQ(Open(10), 0);
    std::filesystem::resize_file(File1(), 0);
    EXPECT_EQ(Save("one"), "");
    EXPECT_EQ(Text1(), "one");
    Save("4567890");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "one4567890");
    EXPECT_FALSE(std::filesystem::exists(File2()));
}

TEST_F(SaveFile, DirectoryGoneClosesTheSavePath) {
    ASSERT_EQ(Open(100), 0);
    std::filesystem::remove_all(directory_.path());
    EXPECT_EQ(Save("one"), "[LOG_WriteLog]292: (" + File1().string() +
                               ") is delete \n"
                               "[LOG_ReOpen]265: open file failed\n"
                               "[LOG_WriteLog]294: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, SecondFileThatCannotBeOpenedClosesTheSavePath) {
    Write1("1234567890");
    std::filesystem::create_directory(File2());
    ASSERT_EQ(Open(10), 0);
    std::string output;
    EXPECT_EQ(CaptureStderr([&] { output = Save("one"); }),
              "open file failed:\n: Is a directory\n");
    EXPECT_EQ(output, "");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Text1(), "1234567890");
}

TEST_F(SaveFile, SecondFileThatCannotBeMeasuredClosesTheSavePath) {
    Write1("1234567890");
    Write2("");
    std::filesystem::resize_file(File2(), 0x80000000);
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("one"), "ftell failed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

TEST_F(SaveFile, FirstFileThatCannotBeStartedAfreshClosesTheSavePath) {
    ASSERT_EQ(Open(5), 0);
    Save("first");
    Save("other");
    std::filesystem::remove(File1());
    std::filesystem::create_directory(File1());
    EXPECT_EQ(Save("third"), "[LOG_ReOpen]265: open file failed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Text2(), "other");
}

TEST_F(SaveFile, FullDiskClosesTheSavePath) {
    std::filesystem::create_symlink("/dev/full", File1());
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(Save("one"),
              "[LOG_ReOpen]271: fflush filed\n"
              "[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Save("two"),
              "[LOG_SaveLog]332: log1 not open\n"
              "[LOG_ReOpen]262: close file failed\n"
              "[LOG_WriteLog]306: reopen filed\n");
}

TEST_F(SaveFile, FullDiskUnderTheSecondFileClosesTheSavePath) {
    Write1("1234567890");
    std::filesystem::create_symlink("/dev/full", File2());
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("one"),
              "[LOG_ReOpen]271: fflush filed\n"
              "[LOG_WriteLog]306: reopen filed\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

// A record when no file is open, as may happen when another thread has just closed the save path.

TEST_F(SaveFile, EmptyRecordClosesTheSavePath) {
    Write1("old");
    ASSERT_EQ(Open(100), 0);
    EXPECT_EQ(Save(""), "[LOG_SaveLog]329: bufSize is zero\n");
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
    EXPECT_EQ(Text1(), "old");
}

TEST_F(SaveFile, RecordAfterClosingIsNotWritten) {
    Write1("old");
    ASSERT_EQ(Open(100), 0);
    ZV_LOG_CloseSave();
    EXPECT_EQ(Save("one"),
              "[LOG_SaveLog]332: log1 not open\n"
              "[LOG_WriteLog]316: fwrite filed\n");
    EXPECT_EQ(Text1(), "old");
    std::filesystem::remove(File1());
    EXPECT_EQ(Save("two"), "[LOG_SaveLog]332: log1 not open\n[LOG_WriteLog]292: (" +
                               File1().string() +
                               ") is delete \n"
                               "[LOG_ReOpen]262: close file failed\n"
                               "[LOG_WriteLog]294: reopen filed\n");
    EXPECT_FALSE(std::filesystem::exists(File1()));
}

std::ptrdiff_t OpenDescriptors() {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

TEST_F(SaveFile, RecordAfterClosingIsNotWrittenToTheSecondFileEither) {
    const std::ptrdiff_t before = OpenDescriptors();
    Write1("1234567890");
    ASSERT_EQ(Open(10), 0);
    Save("one");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Save("two"),
              "[LOG_SaveLog]332: log1 not open\n"
              "[LOG_WriteLog]316: fwrite filed\n");
    EXPECT_EQ(Text2(), "one");
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(SaveFile, FailedMeasuringClosesWhatWasOpened) {
    const std::ptrdiff_t before = OpenDescriptors();
    Write1("");
    std::filesystem::resize_file(File1(), 0x80000000);
    std::int32_t status = 0;
    EXPECT_EQ(CaptureStdout([&] { status = Open(10); }), "ftell failed\n");
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA11F8001U);
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(SaveFile, FileOfOneByteIsContinued) {
    Write1("1");
    ASSERT_EQ(Open(10), 0);
    EXPECT_EQ(Save("two"), "");
    ZV_LOG_CloseSave();
    EXPECT_EQ(Text1(), "1two");
}

}  // namespace
}  // namespace paramgen::testing
