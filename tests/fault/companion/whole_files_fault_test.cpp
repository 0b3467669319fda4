// Several files are changed together while each call in turn fails: all files must then be as they
// were before.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/types.h>

#include <cerrno>
#include <filesystem>
#include <vector>

#include "output/result.h"
#include "output/whole_files.h"
#include "support/temp_dir.h"

namespace {

int g_calls = 0;
int g_failing = 0;         ///< the number of the call that fails; 0: none
bool g_staysFull = false;  ///< all writes after the failing call fail as well

/// Counts a call. Returns whether it must fail, with `errno` set.
bool Fails() {
    ++g_calls;
    errno = ENOSPC;
    return g_calls == g_failing;
}

bool WriteFails() {
    return Fails() || (g_staysFull && g_failing != 0 && g_calls > g_failing);
}

}  // namespace

extern "C" {
ssize_t __real_write(int descriptor, const void* bytes, size_t size);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t size);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    if (!WriteFails()) {
        return __real_write(descriptor, bytes, size);
    }
    // A disk that becomes full still takes a part.
    return size > 1 && g_staysFull ? __real_write(descriptor, bytes, size / 2) : -1;
}
int __real_fsync(int descriptor);
int __wrap_fsync(int descriptor);
int __wrap_fsync(int descriptor) {
    return Fails() ? -1 : __real_fsync(descriptor);
}
int __real_close(int descriptor);
int __wrap_close(int descriptor);
int __wrap_close(int descriptor) {
    const int result = __real_close(descriptor);
    return Fails() ? -1 : result;
}
int __real_rename(const char* from, const char* to);
int __wrap_rename(const char* from, const char* to);
int __wrap_rename(const char* from, const char* to) {
    return Fails() ? -1 : __real_rename(from, to);
}
int __real_link(const char* from, const char* to);
int __wrap_link(const char* from, const char* to);
int __wrap_link(const char* from, const char* to) {
    return Fails() ? -1 : __real_link(from, to);
}
int __real_mkostemp(char* name, int flags);
int __wrap_mkostemp(char* name, int flags);
int __wrap_mkostemp(char* name, int flags) {
    return Fails() ? -1 : __real_mkostemp(name, flags);
}
int __real_fchmod(int descriptor, mode_t mode);
int __wrap_fchmod(int descriptor, mode_t mode);
int __wrap_fchmod(int descriptor, mode_t mode) {
    return Fails() ? -1 : __real_fchmod(descriptor, mode);
}
}

namespace paramgen::output {
namespace {

using paramgen::testing::ReadFile;
using paramgen::testing::TempDir;
using ::testing::UnorderedElementsAre;

std::vector<std::string> NamesIn(const std::filesystem::path& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

/// Changes two files and adds one, with call number `failing` made to fail. Returns whether that
/// was reported.
bool Change(const TempDir& directory, int failing) {
    const std::string first = directory.Write("first", "old 1");
    const std::string second = directory.Write("second", "old 2");
    const std::string fresh = (directory.path() / "fresh").string();
    g_calls = 0;
    g_failing = failing;
    bool isReported = false;
    try {
        WriteWholeFiles({{first, "new 1"}, {fresh, "new"}, {second, "new 2"}});
    } catch (const UserError&) {
        isReported = true;
    }
    g_failing = 0;
    return isReported;
}

/// Lets each call fail in turn. Returns how many there are.
int Sweep() {
    int failing = 0;
    while (true) {
        ++failing;
        const TempDir directory;
        const bool isReported = Change(directory, failing);
        if (g_calls < failing) {
            return failing - 1;
        }
        SCOPED_TRACE("call " + std::to_string(failing));
        const bool isNew = !isReported;
        EXPECT_EQ(ReadFile(directory.path() / "first"), isNew ? "new 1" : "old 1");
        EXPECT_EQ(ReadFile(directory.path() / "second"), isNew ? "new 2" : "old 2");
        EXPECT_EQ(std::filesystem::exists(directory.path() / "fresh"), isNew);
        if (isNew) {
            EXPECT_THAT(NamesIn(directory.path()),
                        UnorderedElementsAre("first", "second", "fresh"));
        } else {
            EXPECT_THAT(NamesIn(directory.path()), UnorderedElementsAre("first", "second"));
        }
    }
}

TEST(WholeFilesFault, ACallThatFailsLeavesAllFilesAsTheyWere) {
    g_staysFull = false;
    EXPECT_GE(Sweep(), 3 * 5 + 2 * 2);
}

TEST(WholeFilesFault, AFullDiskLeavesAllFilesAsTheyWere) {
    g_staysFull = true;
    EXPECT_GE(Sweep(), 3 * 5 + 2 * 2);
    g_staysFull = false;
}

}  // namespace
}  // namespace paramgen::output
