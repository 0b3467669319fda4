#include "output/result.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "output/table.h"
#include "support/temp_dir.h"

namespace paramgen::output {
namespace {

using testing::ReadFile;
using testing::TempDir;

std::size_t CountFiles(const std::filesystem::path& directory) {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(directory), {}));
}

TEST(WriteWholeFile, WritesAndReplaces) {
    const TempDir directory;
    const std::string path = (directory.path() / "result").string();
    WriteWholeFile(path, "first");
    EXPECT_EQ(ReadFile(path), "first");
    chmod(path.c_str(), 0640);
    WriteWholeFile(path, "second");
    EXPECT_EQ(ReadFile(path), "second");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms{0640});
    EXPECT_EQ(CountFiles(directory.path()), 1U);
}

TEST(WriteWholeFile, FollowsALink) {
    const TempDir directory;
    directory.Write("real", "old");
    std::filesystem::create_symlink("real", directory.path() / "link");
    WriteWholeFile((directory.path() / "link").string(), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link"));
    EXPECT_EQ(ReadFile(directory.path() / "real"), "new");
}

TEST(WriteWholeFile, FailsWithoutATrace) {
    const TempDir directory;
    EXPECT_THROW(WriteWholeFile((directory.path() / "no" / "file").string(), "x"), UserError);
    std::filesystem::create_directory(directory.path() / "folder");
    EXPECT_THROW(WriteWholeFile((directory.path() / "folder").string(), "x"), UserError);
    EXPECT_EQ(CountFiles(directory.path()), 1U);
    EXPECT_THROW(WriteWholeFile("/dev/full", "x"), UserError);
}

TEST(UsesColor, FollowsChoiceThenVariables) {
    unsetenv("CLICOLOR_FORCE");
    setenv("NO_COLOR", "1", 1);
    EXPECT_TRUE(UsesColor(ColorChoice::kAlways, 1));
    setenv("CLICOLOR_FORCE", "1", 1);
    EXPECT_FALSE(UsesColor(ColorChoice::kAuto, 1));
    unsetenv("NO_COLOR");
    EXPECT_TRUE(UsesColor(ColorChoice::kAuto, 1));
    EXPECT_FALSE(UsesColor(ColorChoice::kNever, 1));
    unsetenv("CLICOLOR_FORCE");
}

TEST(UsesColor, OnATerminalUnlessItIsDumbOrColourIsOff) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_NE(terminal, -1);
    setenv("TERM", "xterm", 1);
    EXPECT_TRUE(UsesColor(ColorChoice::kAuto, terminal));
    setenv("CLICOLOR", "0", 1);
    EXPECT_FALSE(UsesColor(ColorChoice::kAuto, terminal));
    setenv("CLICOLOR_FORCE", "1", 1);
    EXPECT_TRUE(UsesColor(ColorChoice::kAuto, terminal));
    setenv("CLICOLOR_FORCE", "0", 1);
    EXPECT_FALSE(UsesColor(ColorChoice::kAuto, terminal));
    unsetenv("CLICOLOR_FORCE");
    setenv("CLICOLOR", "1", 1);
    EXPECT_TRUE(UsesColor(ColorChoice::kAuto, terminal));
    unsetenv("CLICOLOR");
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(UsesColor(ColorChoice::kAuto, terminal));
    close(terminal);
}

TEST(Table, AlignsColumns) {
    Table table;
    table.Add({"a", "bb", ""});
    table.Add({"\xE4\xB8\xAD\xE6\x96\x87", "c", "d"});
    EXPECT_EQ(table.Text(), "a     bb\n\xE4\xB8\xAD\xE6\x96\x87  c   d\n");
}

TEST(Table, ACellBeyondItsColumnsLimitMovesItsRowOnly) {
    Table table;
    table.Limit(0, 3);
    table.Limit(7, 1);
    table.Add({"a", "b"});
    table.Add({"long one", "c"});
    table.Add({"abc", "d"});
    EXPECT_EQ(table.Text(), "a    b\nlong one  c\nabc  d\n");
}

}  // namespace
}  // namespace paramgen::output
