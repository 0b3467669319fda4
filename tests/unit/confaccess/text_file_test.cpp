#include "confaccess/text_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

class TextFile : public ::testing::Test {
protected:
    void ExpectText(const std::string& path, const std::string& expected) {
        Text text;
        ASSERT_EQ(ReadTextFile(path.c_str(), &arena_, &text), ReadResult::kRead) << path;
        EXPECT_EQ(std::string(text.View()), expected) << path;
    }

    void ExpectUnreadable(const std::string& path) {
        Text text;
        EXPECT_EQ(ReadTextFile(path.c_str(), &arena_, &text), ReadResult::kUnreadable) << path;
        EXPECT_EQ(text.bytes, nullptr) << path;
    }

    TempDir directory_;
    Arena arena_;
};

TEST_F(TextFile, IsReadWhole) {
    for (const std::size_t size : {1U, 2U, 100U, 4095U, 4096U, 4097U, 65'535U, 65'536U, 300'000U}) {
        std::string bytes;
        while (bytes.size() < size) {
            bytes += std::to_string(bytes.size()) + "\n";
        }
        bytes.resize(size);
        ExpectText(directory_.Write("file", bytes), bytes);
    }
}

TEST_F(TextFile, KeepsEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    ExpectText(directory_.Write("file", bytes), bytes);
}

TEST_F(TextFile, MayBeEmpty) {
    ExpectText(directory_.Write("file", ""), "");
    ExpectText("/dev/null", "");
}

TEST_F(TextFile, WithoutASizeIsReadToItsEnd) {
    const std::string expected = ReadFile("/proc/self/cmdline");
    ASSERT_NE(expected, "");
    ExpectText("/proc/self/cmdline", expected);
}

/// Writes `bytes` to a named pipe from another thread, when a reader opens it.
class Writer {
public:
    Writer(const std::string& pipe, const std::string& bytes)
        : thread_([=] { std::ofstream(pipe, std::ios::binary) << bytes << std::flush; }) {}
    ~Writer() { thread_.join(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

private:
    std::thread thread_;
};

TEST_F(TextFile, PipeIsReadToItsEnd) {
    const std::string pipe = (directory_.path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // Sizes around those of the pieces in which the pipe is read.
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 8192U, 8193U, 300'000U}) {
        std::string bytes;
        while (bytes.size() < size) {
            bytes += std::to_string(bytes.size()) + "\n";
        }
        bytes.resize(size);
        const Writer writer(pipe, bytes);
        ExpectText(pipe, bytes);
    }
}

TEST_F(TextFile, LinkToStandardInputIsReadToItsEnd) {
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "text", 4), 4);
    close(ends[1]);
    const int before = dup(STDIN_FILENO);
    ASSERT_EQ(dup2(ends[0], STDIN_FILENO), STDIN_FILENO);
    close(ends[0]);
    ExpectText("/dev/stdin", "text");
    if (before != -1) {
        dup2(before, STDIN_FILENO);
        close(before);
    }
}

TEST_F(TextFile, DeviceWithoutAnEndIsUnreadable) {
    ExpectUnreadable("/dev/zero");
}

TEST_F(TextFile, IsEmptyWhereThereIsADirectory) {
    ExpectText(directory_.path().string(), "");
    ExpectText("/", "");
    // A directory of tmpfs, whose size says nothing about its contents.
    if (access("/dev/shm", R_OK) == 0) {
        ExpectText("/dev/shm", "");
    }
}

int g_leased = -1;

void GiveLeaseBack(int /*signal*/) {
    fcntl(g_leased, F_SETLEASE, F_UNLCK);
}

TEST_F(TextFile, ThatIsLeasedIsWaitedFor) {
#if defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "ThreadSanitizer holds a signal back until the call that waits for it returns";
#endif
    const std::string path = directory_.Write("file", "text");
    g_leased = open(path.c_str(), O_RDONLY);
    const auto before = std::signal(SIGIO, GiveLeaseBack);
    if (fcntl(g_leased, F_SETLEASE, F_WRLCK) == 0) {  // not every file system has leases
        ExpectText(path, "text");
        EXPECT_EQ(fcntl(g_leased, F_GETLEASE), F_UNLCK);
    }
    std::signal(SIGIO, before);
    close(g_leased);
}

TEST_F(TextFile, MissingIsUnreadable) {
    ExpectUnreadable((directory_.path() / "missing").string());
}

TEST_F(TextFile, ThatHasNothingToReadIsUnreadable) {
    // The memory of a process: it can be opened, but reading at address 0 fails.
    ExpectUnreadable("/proc/self/mem");
}

TEST_F(TextFile, TooLongIsUnreadable) {
    const std::string path = directory_.Write("file", "beginning");
    std::filesystem::resize_file(path, kTextMax + 1);  // a sparse file: it takes no space on disk
    ExpectUnreadable(path);
}

}  // namespace
}  // namespace paramgen::testing
