#include "output/whole_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "output/result.h"
#include "support/temp_dir.h"

namespace paramgen::output {
namespace {

using paramgen::testing::ReadFile;
using paramgen::testing::TempDir;

std::size_t CountFiles(const std::filesystem::path& directory) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

TEST(WholeFiles, OldAndNewOnesAreWritten) {
    const TempDir directory;
    const std::string old = directory.Write("old", "1");
    const std::string fresh = (directory.path() / "new").string();
    WriteWholeFiles({{old, "2"}, {fresh, "3"}});
    EXPECT_EQ(ReadFile(old), "2");
    EXPECT_EQ(ReadFile(fresh), "3");
    EXPECT_EQ(CountFiles(directory.path()), 2U);
}

TEST(WholeFiles, OneThatCannotBeWrittenLeavesAllAsTheyWere) {
    const TempDir directory;
    const std::string old = directory.Write("old", "1");
    std::filesystem::create_directory(directory.path() / "directory");
    for (const std::string& bad :
         {(directory.path() / "directory").string(), (directory.path() / "none" / "x").string()}) {
        EXPECT_THROW(WriteWholeFiles({{old, "2"}, {bad, "3"}}), UserError);
        EXPECT_THROW(WriteWholeFiles({{bad, "3"}, {old, "2"}}), UserError);
        EXPECT_EQ(ReadFile(old), "1");
        EXPECT_EQ(CountFiles(directory.path()), 2U);
    }
}

TEST(WholeFiles, OneWithoutRoomForATemporaryNameLeavesAllAsTheyWere) {
    const TempDir directory;
    const std::string old = directory.Write("old", "1");
    const std::string twice = (directory.path() / "twice").string();
    // Its name leaves no room for that of a temporary file.
    const std::string longName = (directory.path() / std::string(250, 'x')).string();
    EXPECT_THROW(WriteWholeFiles({{old, "2"}, {twice, "3"}, {longName, "4"}}), UserError);
    EXPECT_EQ(ReadFile(old), "1");
    EXPECT_FALSE(std::filesystem::exists(twice));
    EXPECT_EQ(CountFiles(directory.path()), 1U);
}

TEST(WholeFiles, RightsStayAndLinksAreFollowed) {
    const TempDir directory;
    const std::string old = directory.Write("old", "1");
    std::filesystem::permissions(old, std::filesystem::perms(0640));
    std::filesystem::create_symlink("old", directory.path() / "link");
    WriteWholeFiles({{(directory.path() / "link").string(), "2"}});
    EXPECT_EQ(ReadFile(old), "2");
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link"));
    EXPECT_EQ(std::filesystem::status(old).permissions(), std::filesystem::perms(0640));
}

}  // namespace
}  // namespace paramgen::output
