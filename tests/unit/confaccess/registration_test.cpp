#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"

namespace paramgen::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr char kRealPathFailed[] = "[time][QXCONFACCE] RealPath failed\n";

Outcome Init(const std::string& name, const std::string& path) {
    return Observe([&] { return ZV_CONFACCESS_Init(name.c_str(), path.c_str()); });
}

Outcome Deinit(const std::string& name) {
    return Observe([&] { return ZV_CONFACCESS_Deinit(name.c_str()); });
}

/// A file named `name`, in a directory below `base` that makes its path `length` characters long.
std::filesystem::path PathOfLength(const std::filesystem::path& base, std::size_t length,
                                   const std::string& name) {
    const std::size_t taken = base.string().size() + name.size() + 2;
    return base / std::string(length - taken, 'd') / name;
}

class Registration : public ::testing::Test {
protected:
    ~Registration() override {
        // Every test leaves the registry empty.
        EXPECT_EQ(g_confAccessCount, 0);
        EXPECT_EQ(g_configs.next, &g_configs);
        EXPECT_EQ(g_configs.prev, &g_configs);
    }

    /// An entry file without modules.
    std::string WriteEntry(const std::string& name = "entry.ini") const {
        return directory_.Write(name, "[module]\nmodule_num = -1\n");
    }

    TempDir directory_;
};

TEST_F(Registration, ArgumentsMustNotBeNull) {
    EXPECT_EQ(Observe([] { return ZV_CONFACCESS_Init(nullptr, nullptr); }),
              (Outcome{Code(0xA1418041U),
                       "func:ZV_CONFACCESS_Init,line:299,pointer[cfgName] is null\n"}));
    EXPECT_EQ(Observe([] { return ZV_CONFACCESS_Init("name", nullptr); }),
              (Outcome{Code(0xA1418041U),
                       "func:ZV_CONFACCESS_Init,line:300,pointer[cfgPath] is null\n"}));
}

TEST_F(Registration, NameOf128CharactersIsTooLong) {
    const Outcome tooLong = {
        Code(0xA1418041U),
        "func:ZV_CONFACCESS_Init,line:301,expr[strnlen(cfgName, QX_CONFACCESS_NAME_MAX_LEN) < "
        "QX_CONFACCESS_NAME_MAX_LEN] false\n"};
    const std::string entry = WriteEntry();
    EXPECT_EQ(Init(std::string(128, 'n'), entry), tooLong);
    EXPECT_EQ(Init(std::string(500, 'n'), std::string(500, 'p')), tooLong);
    EXPECT_EQ(Init(std::string(127, 'n'), entry), (Outcome{0, ""}));
    EXPECT_EQ(Deinit(std::string(127, 'n')), (Outcome{0, ""}));
}

TEST_F(Registration, PathOf256CharactersIsTooLong) {
    const std::string file = std::filesystem::path(WriteEntry()).filename();
    const std::string directory = directory_.path().string();
    const auto padded = [&](std::size_t length) {
        return directory + std::string(length - directory.size() - file.size(), '/') + file;
    };
    EXPECT_EQ(Init("name", padded(256)),
              (Outcome{Code(0xA1418041U),
                       "func:ZV_CONFACCESS_Init,line:303,expr[strnlen(cfgPath, "
                       "QX_CONFACCESS_PATH_MAX_LEN) < QX_CONFACCESS_PATH_MAX_LEN] false\n"}));
    EXPECT_EQ(Init("name", padded(255)), (Outcome{0, ""}));
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, EntryFileMustExist) {
    EXPECT_EQ(Init("name", (directory_.path() / "missing.ini").string()),
              (Outcome{-1, kRealPathFailed}));
    EXPECT_EQ(Init("name", (directory_.path() / "missing.txt").string()),
              (Outcome{-1, kRealPathFailed}));
    EXPECT_EQ(Init("name", ""), (Outcome{-1, kRealPathFailed}));
}

TEST_F(Registration, EntryPathMustContainIniAnywhere) {
    const Outcome refused = {Code(0xA1418045U), "[time][QXCONFACCE] Cfgpath is not correct\n"};
    EXPECT_EQ(Init("name", WriteEntry("entry.txt")), refused);
    EXPECT_EQ(Init("name", WriteEntry("entry.INI")), refused);
    EXPECT_EQ(Init("name", WriteEntry("entryini")), refused);
    for (const char* file : {"entry.ini", "entry.ini.bak", "product.ini.d/entry"}) {
        EXPECT_EQ(Init("name", WriteEntry(file)), (Outcome{0, ""})) << file;
        EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
    }
}

TEST_F(Registration, ThePathAsGivenIsLookedAtForIni) {
    WriteEntry("entry.ini");
    const std::filesystem::path plain = directory_.path() / "link";
    const std::filesystem::path ini = directory_.path() / "link.ini";
    std::filesystem::create_symlink("entry.ini", plain);
    std::filesystem::create_symlink(std::filesystem::path(WriteEntry("text")), ini);
    EXPECT_EQ(Init("name", plain).status, Code(0xA1418045U));
    EXPECT_EQ(Init("name", ini), (Outcome{0, ""}));
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, PathIsMadeCanonical) {
    WriteEntry("real/entry.ini");
    std::filesystem::create_symlink("real", directory_.path() / "link");
    const WorkingDirectory there(directory_.path());
    ASSERT_EQ(Init("name", "./link/../link//entry.ini"), (Outcome{0, ""}));
    const ConfigEntry* config = FindConfig("name");
    ASSERT_NE(config, nullptr);
    const std::string canonical = (directory_.path() / "real/entry.ini").string();
    EXPECT_EQ(config->configPath, canonical);
    EXPECT_EQ(config->entryFile, canonical);
    EXPECT_STREQ(config->cfgName, "name");
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, CanonicalPathOf255CharactersFits) {
    const auto file = PathOfLength(directory_.path(), 255, "e.ini");
    WriteEntry(std::filesystem::relative(file, directory_.path()));
    const WorkingDirectory there(file.parent_path());
    EXPECT_EQ(Init("name", "./e.ini"), (Outcome{0, ""}));
    EXPECT_EQ(std::string(FindConfig("name")->configPath).size(), 255U);
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, CanonicalPathOf256CharactersFailsAtTheSecondCopy) {
    const auto file = PathOfLength(directory_.path(), 256, "e.ini");
    WriteEntry(std::filesystem::relative(file, directory_.path()));
    const WorkingDirectory there(file.parent_path());
    EXPECT_EQ(Init("name", "./e.ini"),
              (Outcome{-1,
                       "[CONFACCESS_Init]269: snprintf_s\n"
                       "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0xFFFFFFFF]\n"}));
}

TEST_F(Registration, CanonicalPathOf257CharactersIsTooLong) {
    const auto file = PathOfLength(directory_.path(), 257, "e.ini");
    WriteEntry(std::filesystem::relative(file, directory_.path()));
    const WorkingDirectory there(file.parent_path());
    EXPECT_EQ(Init("name", "./e.ini"),
              (Outcome{Code(0xA1418041U),
                       "[time][ERR][QXCONFACCE] CONFACCESS_Init:260 the cfgPath is too long\n"
                       "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0xA1418041]\n"}));
}

TEST_F(Registration, EntryFileThatCannotBeParsed) {
    for (const std::string& bytes :
         {std::string("[module]\nno value\n"), std::string(1023, 'x') + "\n"}) {
        const std::string entry = directory_.Write("bad.ini", bytes);
        EXPECT_EQ(
            Init("name", entry),
            (Outcome{-1, "[time][ERR][QXCONFACCE] CONFACCESS_GetModuleInfo:211 load " + entry +
                             " failed\n"
                             "func:ZV_CONFACCESS_Init,line:337[AddCfg] "
                             "failed[0xFFFFFFFF]\n"}));
    }
}

TEST_F(Registration, EntryFileThatCannotBeParsedLeavesNoRecordOfItsModules) {
    const LibraryThreshold all(0);
    const std::string entry = directory_.Write("bad.ini", "no value\n");
    EXPECT_EQ(Init("name", entry),
              (Outcome{-1, "[time][ERR][QXCONFACCE] CONFACCESS_GetModuleInfo:211 load " + entry +
                               " failed\n"
                               "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0xFFFFFFFF]\n"}));
}

TEST_F(Registration, DirectoryAsEntryFileHasNoModuleNumber) {
    std::filesystem::create_directory(directory_.path() / "d.ini");
    const Outcome outcome = Init("name", (directory_.path() / "d.ini").string());
    EXPECT_EQ(outcome.status, Code(0xA1418050U));
    EXPECT_THAT(outcome.output, HasSubstr("not find module_num or module_num is 0\n"));
}

TEST_F(Registration, SecondRegistrationOfANameIsRefused) {
    const std::string entry = WriteEntry();
    ASSERT_EQ(Init("name", entry), (Outcome{0, ""}));
    EXPECT_EQ(Init("name", entry), (Outcome{Code(0xA1418043U), ""}));
    {
        const LibraryThreshold warn(2);
        EXPECT_EQ(Init("name", entry),
                  (Outcome{Code(0xA1418043U),
                           "[time][WARN][QXCONFACCE] ZV_CONFACCESS_Init:325 name already be "
                           "inited\n"}));
    }
    EXPECT_EQ(g_confAccessCount, 1);
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, ArgumentsAreCheckedInTheirOrder) {
    const std::string entry = WriteEntry();
    ASSERT_EQ(Init("name", entry), (Outcome{0, ""}));
    // Whether the file exists is checked before its name, and its name before that of the
    // configuration.
    EXPECT_EQ(Init("name", "/missing/file"), (Outcome{-1, kRealPathFailed}));
    EXPECT_EQ(Init("name", WriteEntry("text")).status, Code(0xA1418045U));
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

TEST_F(Registration, NamesAreCaseSensitive) {
    const std::string entry = WriteEntry();
    EXPECT_EQ(Init("name", entry), (Outcome{0, ""}));
    EXPECT_EQ(Init("Name", entry), (Outcome{0, ""}));
    EXPECT_EQ(Init("", entry), (Outcome{0, ""}));
    EXPECT_EQ(g_confAccessCount, 3);
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
    EXPECT_EQ(Deinit("name"), (Outcome{Code(0xA1418045U), ""}));
    EXPECT_EQ(Deinit(""), (Outcome{0, ""}));
    EXPECT_EQ(Deinit("Name"), (Outcome{0, ""}));
}

TEST_F(Registration, NamesAreComparedToTheirEnd) {
    const std::string entry = WriteEntry();
    const std::string head(126, 'n');
    EXPECT_EQ(Init(head + "a", entry), (Outcome{0, ""}));
    EXPECT_EQ(Init(head + "b", entry), (Outcome{0, ""}));
    EXPECT_EQ(Init(head, entry), (Outcome{0, ""}));
    EXPECT_EQ(Init(head + "b", entry), (Outcome{Code(0xA1418043U), ""}));
    for (const char* end : {"", "a", "b"}) {
        EXPECT_EQ(Deinit(head + end), (Outcome{0, ""}));
    }
}

TEST_F(Registration, NewestConfigurationStandsFirst) {
    const std::string entry = WriteEntry();
    ASSERT_EQ(Init("one", entry), (Outcome{0, ""}));
    ASSERT_EQ(Init("two", entry), (Outcome{0, ""}));
    EXPECT_EQ(g_configs.next, FindConfig("two"));
    EXPECT_EQ(g_configs.prev, FindConfig("one"));
    EXPECT_EQ(Deinit("two"), (Outcome{0, ""}));
    EXPECT_EQ(g_configs.next, FindConfig("one"));
    EXPECT_EQ(Deinit("one"), (Outcome{0, ""}));
}

TEST_F(Registration, CountsAreLoggedAtDebug) {
    const LibraryThreshold all(0);
    const std::string entry = WriteEntry();
    EXPECT_EQ(Init("one", entry),
              (Outcome{0,
                       "[time][DEBUG][QXCONFACCE] CONFACCESS_Init:293 New CfgName[one] CfgList "
                       "Count[1]\n"}));
    EXPECT_EQ(Init("two", entry),
              (Outcome{0,
                       "[time][DEBUG][QXCONFACCE] CONFACCESS_Init:293 New CfgName[two] CfgList "
                       "Count[2]\n"}));
    EXPECT_EQ(Deinit("one"),
              (Outcome{0,
                       "[time][DEBUG][QXCONFACCE] CONFACCESS_DelModuleList:47 CfgName[one] delete "
                       "finished\n"
                       "[time][DEBUG][QXCONFACCE] ZV_CONFACCESS_Deinit:366 Now CfgList "
                       "count[1]\n"}));
    EXPECT_THAT(Deinit("two").output, EndsWith("Now CfgList count[0]\n"));
}

TEST_F(Registration, ReleasedNameMayBeRegisteredAgain) {
    const std::string entry = WriteEntry();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Init("name", entry), (Outcome{0, ""}));
        EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
    }
}

TEST_F(Registration, ReleaseChecksItsArgument) {
    EXPECT_EQ(Observe([] { return ZV_CONFACCESS_Deinit(nullptr); }),
              (Outcome{Code(0xA1418041U),
                       "func:ZV_CONFACCESS_Deinit,line:344,pointer[cfgName] is null\n"}));
    EXPECT_EQ(Deinit(std::string(128, 'n')),
              (Outcome{Code(0xA1418041U),
                       "func:ZV_CONFACCESS_Deinit,line:345,expr[strnlen(cfgName, "
                       "QX_CONFACCESS_NAME_MAX_LEN) < QX_CONFACCESS_NAME_MAX_LEN] false\n"}));
}

TEST_F(Registration, ReleaseWithNothingRegistered) {
    EXPECT_EQ(Deinit("name"),
              (Outcome{Code(0xA1418042U),
                       "func:ZV_CONFACCESS_Deinit,line:347,expr[g_confAccessCount > 0] false\n"}));
}

TEST_F(Registration, ReleaseOfAnUnknownNameSaysNothing) {
    ASSERT_EQ(Init("name", WriteEntry()), (Outcome{0, ""}));
    EXPECT_EQ(Deinit("other"), (Outcome{Code(0xA1418045U), ""}));
    EXPECT_EQ(Deinit("name"), (Outcome{0, ""}));
}

}  // namespace
}  // namespace paramgen::testing
