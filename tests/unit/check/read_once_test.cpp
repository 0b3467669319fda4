// Each file of a tree is opened once, however many modules have it and however often the loaders
// run.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdarg>
#include <filesystem>
#include <map>
#include <string>

#include "check/check.h"
#include "unit/check/small_product.h"

namespace {

/// How often files of each name were opened.
std::map<std::string, int> g_opened;

}  // namespace

extern "C" int __real_open(const char* path, int flags, ...);

extern "C" int __wrap_open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const bool hasMode = (flags & O_CREAT) != 0;
    const int mode = hasMode ? va_arg(arguments, int) : 0;
    va_end(arguments);
    ++g_opened[std::filesystem::path(path).filename().string()];
    return __real_open(path, flags, mode);
}

namespace paramgen::check {
namespace {

using ::testing::Each;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

/// How often each INI file of a tree is opened while it is checked.
std::map<std::string, int> OpenedBy(const std::string& tree) {
    g_opened.clear();
    static_cast<void>(Check(tree, {}));
    std::erase_if(g_opened, [](const auto& file) { return !file.first.ends_with(".ini"); });
    return g_opened;
}

TEST(ReadOnce, EachFileOfTheExample) {
    const std::map<std::string, int> opened = OpenedBy(std::string(PARAMGEN_EXAMPLES) + "/dashcam");
    EXPECT_THAT(opened, SizeIs(19));
    EXPECT_THAT(opened, Each(Pair(::testing::_, 1)));
}

TEST(ReadOnce, AlsoWhenItIsSharedOrBadOrMissing) {
    testing::Files files = testing::SmallProduct();
    files["devmng.ini"] =
        "[gsensor]\nsensitivity = 99999999999\n[parking]\nsensitivity = "
        "99999999999\n";
    std::string& entry = files["config_cfgaccess_entry.ini"];
    const auto replace = [&entry](const std::string& before, const std::string& after) {
        entry.replace(entry.find(before), before.size(), after);
    };
    replace("cfg_filename = workmode_photo.ini", "cfg_filename = workmode_record.ini");
    replace("cfg_filename = filemng.ini", "cfg_filename = refused.ini");
    replace("cfg_filename = valueset.ini", "cfg_filename = missing.ini");
    replace("[cam0_comm]\n", "[cam0_comm]\npath = ./\n");
    files["refused.ini"] = "no key\n";
    const paramgen::testing::TempDir directory;
    testing::Write(files, directory);
    EXPECT_THAT(OpenedBy(directory.path().string()),
                UnorderedElementsAre(Pair("config_cfgaccess_entry.ini", 1), Pair("devmng.ini", 1),
                                     Pair("refused.ini", 1), Pair("media_common.ini", 1),
                                     Pair("cam0_comm.ini", 1), Pair("cam0_comm_record.ini", 1),
                                     Pair("cam0_comm_photo.ini", 1), Pair("workmode_common.ini", 1),
                                     Pair("workmode_record.ini", 1), Pair("missing.ini", 1)));
}

}  // namespace
}  // namespace paramgen::check
