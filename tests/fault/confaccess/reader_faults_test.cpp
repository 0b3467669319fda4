#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

#include "confaccess/dictionary.h"
#include "confaccess/ini_reader.h"
#include "fault/confaccess/faults.h"
#include "fault/confaccess/large_file.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

TEST(ArenaFaults, AdviceThatTheKernelRefusesLeavesErrnoAlone) {
    errno = ERANGE;
    int after = 0;
    bool happened = false;
    {
        const FaultWatch watch(Fault::kAdvice, 1);
        Arena arena;
        EXPECT_NE(arena.Take(100), nullptr);
        after = errno;
        happened = watch.Happened();
    }
    EXPECT_TRUE(happened);
    EXPECT_EQ(after, ERANGE);
}

class ReaderFaults : public ::testing::Test {
protected:
    /// Reads a file while a call fails. Expects no dictionary, and that everything is released.
    static IniError LoadFails(const std::string& path, Fault fault, int number) {
        static_cast<void>(LoadIniFile(nullptr, nullptr));
        const FaultWatch watch(fault, number);
        {
            Arena arena;
            EXPECT_EQ(LoadIniFile(path.c_str(), &arena), nullptr);
        }
        EXPECT_TRUE(watch.Happened());
        EXPECT_EQ(watch.Held(), 0);
        return LastIniError();
    }

    TempDir directory_;
    const std::string file_ = directory_.Write("file.ini", "[s]\na = 1\nb = 2\n");
};

TEST_F(ReaderFaults, DictionaryNeedsMemory) {
    EXPECT_EQ(LoadFails(file_, Fault::kAllocation, 1), IniError::kNoDictionary);
}

TEST_F(ReaderFaults, TextAndKeysNeedMemory) {
    const std::string large = directory_.Write("large.ini", LargeFile());
    for (int number = 2; number <= kLargeFileAllocations; ++number) {
        EXPECT_EQ(LoadFails(large, Fault::kAllocation, number), IniError::kLoadNotInserted);
    }
    const FaultWatch watch(Fault::kAllocation, kLargeFileAllocations + 1);
    {
        Arena arena;
        EXPECT_NE(LoadIniFile(large.c_str(), &arena), nullptr);
    }
    EXPECT_FALSE(watch.Happened());
    EXPECT_EQ(watch.Held(), 0);
}

TEST_F(ReaderFaults, TableOfManySectionsNeedsMemory) {
    std::string bytes;
    for (int number = 0; number < 30'000; ++number) {
        bytes += "[section" + std::to_string(number) + "]\na = 1\n";
    }
    const std::string large = directory_.Write("sections.ini", bytes);
    // As for a large file: the table of the sections is what the last allocation is for.
    EXPECT_EQ(LoadFails(large, Fault::kAllocation, kLargeFileAllocations),
              IniError::kLoadNotInserted);
    const FaultWatch watch(Fault::kAllocation, kLargeFileAllocations + 1);
    {
        Arena arena;
        EXPECT_NE(LoadIniFile(large.c_str(), &arena), nullptr);
    }
    EXPECT_FALSE(watch.Happened());
}

TEST_F(ReaderFaults, PipeNeedsMemoryForItsPiecesAndForTheWhole) {
    const std::string pipe = (directory_.path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string bytes(100'000, '\n');
    // Pieces of up to 64 KiB fit into the arena's first chunk; the last piece and the whole do not.
    for (const int number : {2, 3}) {
        const pid_t writer = fork();
        if (writer == 0) {
            std::ofstream(pipe) << bytes << std::flush;
            _exit(0);
        }
        EXPECT_EQ(LoadFails(pipe, Fault::kAllocation, number), IniError::kLoadNotInserted);
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
    }
}

TEST_F(ReaderFaults, AFileMayBeReadInPieces) {
    const std::string bytes = LargeFile();
    const std::string large = directory_.Write("large.ini", bytes);
    const FaultWatch watch(Fault::kRead, 100);
    Arena arena;
    const Dictionary* dictionary = LoadIniFile(large.c_str(), &arena);
    ASSERT_NE(dictionary, nullptr);
    const std::string last =
        bytes.substr(bytes.rfind("key"), bytes.rfind(" = ") - bytes.rfind("key"));
    EXPECT_STREQ(FindText(*dictionary, "s:" + last, nullptr), "1");
    EXPECT_FALSE(watch.Happened());
}

TEST_F(ReaderFaults, FileThatDoesNotOpenIsNoReaderError) {
    EXPECT_EQ(LoadFails(file_, Fault::kOpen, 1), IniError::kNullArgument);
}

TEST_F(ReaderFaults, FileThatCannotBeReadToItsEndYieldsNothing) {
    LoadFails(file_, Fault::kRead, 1);
    const std::string twoPieces =
        directory_.Write("long.ini", "[s]\na = 1\n" + std::string(12'000, '\n'));
    LoadFails(twoPieces, Fault::kRead, 1);
    LoadFails(twoPieces, Fault::kRead, 2);
}

/// Registrations of one configuration with one module, while a call fails.

}  // namespace
}  // namespace paramgen::testing
