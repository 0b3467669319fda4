#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "confaccess/any_case.h"
#include "confaccess/confaccess.h"
#include "unit/confaccess/modules_fixture.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kModuleInfoFailed[] =
    "[time][ERR][QXCONFACCE] CONFACCESS_Init:286 Confaccess ModuleInfo failed\n";

std::string AddCfgFailed(const std::string& code) {
    return "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0x" + code + "]\n";
}

std::string Deleted(const std::string& name) {
    return "[time][DEBUG][QXCONFACCE] CONFACCESS_DelModuleList:47 CfgName[" + name +
           "] delete finished\n";
}

TEST_F(Modules, StandInReverseOrder) {
    EXPECT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = a\nmodule2 = b\n"
                   "[a]\ncfg_filename = a.ini\n[b]\ncfg_filename = b.ini\n"),
              (Outcome{0, ""}));
    EXPECT_THAT(Names(), ElementsAre("b", "a"));
    EXPECT_STREQ(FindText(*Module("a")->dictionary, "s:key", nullptr), "of a");
    EXPECT_EQ(Module("a")->path, directory_.path().string());
    EXPECT_EQ(Module("a")->file, In("a.ini"));
}

TEST_F(Modules, KeysOfTheEntryFileAreFoundInAnyCase) {
    EXPECT_EQ(Init("[MODULE]\nModule_Num = 1\nMODULE1 = CamA\n[cama]\nCFG_FileName = a.ini\n"),
              (Outcome{0, ""}));
    EXPECT_THAT(Names(), ElementsAre("CamA"));
}

TEST_F(Modules, NumberOfThemIsInPrefixedNotation) {
    const std::string modules =
        "[module]\nmodule1=a\nmodule2=b\nmodule3=c\nmodule4=d\nmodule5=e\nmodule6=f\nmodule7=g\n"
        "module8=h\nmodule9=i\n[a]\ncfg_filename=a.ini\n[b]\ncfg_filename=a.ini\n[c]\n"
        "cfg_filename=a.ini\n[d]\ncfg_filename=a.ini\n[e]\ncfg_filename=a.ini\n[f]\n"
        "cfg_filename=a.ini\n[g]\ncfg_filename=a.ini\n[h]\ncfg_filename=a.ini\n[i]\n"
        "cfg_filename=a.ini\n";
    const std::pair<const char*, std::size_t> kNumbers[] = {
        {"9", 9}, {"0x9", 9}, {"0X2", 2}, {"07", 7}, {"011", 9}, {"3 modules", 3}, {" +4", 4}};
    for (const auto& [number, count] : kNumbers) {
        ASSERT_EQ(Init(modules + "[module]\nmodule_num = " + number + "\n"), (Outcome{0, ""}));
        EXPECT_EQ(Names().size(), count) << number;
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, NoneOrNoNumberOfThemFails) {
    const Outcome failed = {Code(0xA1418050U),
                            "[time][ERR][QXCONFACCE] CONFACCESS_ModuleInfo:228 not find module_num "
                            "or module_num is 0\n" +
                                std::string(kModuleInfoFailed) + AddCfgFailed("A1418050")};
    for (const char* entry :
         {"", "[module]\nmodule1 = a\n", "[module]\nmodule_num = 0\n", "[module]\nmodule_num =\n",
          "[module]\nmodule_num = many\n", "[module]\nmodule_num = 08\n",
          "[module]\nmodule_num = 0x\n", "module_num = 1\n",
          "[module]\nmodule_num = 1\n[module:module_num]\n"}) {
        EXPECT_EQ(Init(entry), failed) << entry;
    }
}

TEST_F(Modules, FailureLeavesAnEmptyListFirst) {
    EXPECT_EQ(InitLogged(0, "").output,
              "[time][ERR][QXCONFACCE] CONFACCESS_ModuleInfo:228 not find module_num or "
              "module_num is 0\n" +
                  Deleted("cfg") + kModuleInfoFailed + AddCfgFailed("A1418050"));
}

TEST_F(Modules, NegativeNumberMeansNone) {
    for (const char* number : {"-1", "-0x10", "-2147483648", "-99999999999"}) {
        EXPECT_EQ(Init(std::string("[module]\nmodule_num = ") + number + "\nmodule1 = a\n"),
                  (Outcome{0, ""}));
        EXPECT_THAT(Names(), IsEmpty());
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, NumberBeyond32BitsSaturates) {
    EXPECT_EQ(Init("[module]\nmodule_num = 4294967297\nmodule1 = a\n[a]\ncfg_filename = a.ini\n"),
              (Outcome{Code(0xA1418049U), "[time][QXCONFACCE] Load module:module2 failed\n" +
                                              std::string(kModuleInfoFailed) +
                                              AddCfgFailed("A1418049")}));
}

TEST_F(Modules, MissingNameAbandonsTheRegistration) {
    EXPECT_EQ(InitLogged(0,
                         "[module]\nmodule_num = 3\nmodule1 = a\nmodule3 = b\n"
                         "[a]\ncfg_filename = a.ini\n[b]\ncfg_filename = b.ini\n"),
              (Outcome{Code(0xA1418049U),
                       DefaultPathInfo() + "[time][QXCONFACCE] Load module:module2 failed\n" +
                           Deleted("cfg") + kModuleInfoFailed + AddCfgFailed("A1418049")}));
}

TEST_F(Modules, SectionMarkerInPlaceOfANameIsNone) {
    EXPECT_EQ(Init("[module]\nmodule_num = 1\nmodule1 = a\n[module:module1]\n"
                   "[a]\ncfg_filename = a.ini\n"),
              (Outcome{Code(0xA1418049U), "[time][QXCONFACCE] Load module:module1 failed\n" +
                                              std::string(kModuleInfoFailed) +
                                              AddCfgFailed("A1418049")}));
}

TEST_F(Modules, RepeatedNameAbandonsTheRegistration) {
    EXPECT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = a\nmodule2 = a\n"
                   "[a]\ncfg_filename = a.ini\n"),
              (Outcome{Code(0xA1418048U),
                       "[time][ERR][QXCONFACCE] CONFACCESS_InitModule:169 module name is "
                       "repeat:a\n" +
                           std::string(kModuleInfoFailed) + AddCfgFailed("A1418048")}));
}

TEST_F(Modules, NamesAreRepeatedOnlyInTheSameCase) {
    EXPECT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = a\nmodule2 = A\n"
                   "[a]\ncfg_filename = a.ini\n"),
              (Outcome{0, ""}));
    EXPECT_THAT(Names(), ElementsAre("A", "a"));
}

TEST_F(Modules, NamesAreComparedToTheirEnd) {
    const std::string name(113, 'm');
    ASSERT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = " + name + "a\nmodule2 = " + name + "b\n[" +
                   name + "a]\ncfg_filename = a.ini\n[" + name + "b]\ncfg_filename = b.ini\n"),
              (Outcome{0, ""}));
    ASSERT_THAT(Names(), ElementsAre(name + "b", name + "a"));
    EXPECT_STREQ(FindText(*Module(name + "a")->dictionary, "s:key", nullptr), "of a");
    EXPECT_STREQ(FindText(*Module(name + "b")->dictionary, "s:key", nullptr), "of b");
}

TEST_F(Modules, NameIsRepeatedOnlyWhenTheFirstOneLoaded) {
    const std::string loadFailed = "[time][QXCONFACCE] Load " + In("missing.ini") + " failed\n";
    EXPECT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = a\nmodule2 = a\n"
                   "[a]\ncfg_filename = missing.ini\n"),
              (Outcome{0, loadFailed + loadFailed}));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Modules, FileNameMustBeThereAndNotEmpty) {
    const std::string abandoned = kModuleInfoFailed + AddCfgFailed("A1418049");
    const std::string head = "[module]\nmodule_num = 1\nmodule1 = Cam\n";
    const Outcome absent = {Code(0xA1418049U),
                            "[time][QXCONFACCE] Load Cam:cfg_filename failed\n" + abandoned};
    const Outcome empty = {Code(0xA1418049U),
                           "[time][QXCONFACCE] module path is error\n" + abandoned};
    EXPECT_EQ(Init(head), absent);
    EXPECT_EQ(Init(head + "[cam]\npath = /tmp\n"), absent);
    EXPECT_EQ(Init(head + "[cam]\ncfg_filename = a.ini\n[cam:cfg_filename]\n"), absent);
    EXPECT_EQ(Init(head + "[cam]\ncfg_filename =\n"), empty);
    EXPECT_EQ(Init(head + "[cam]\ncfg_filename = \"\"\n"), empty);
}

TEST_F(Modules, UnreadableOnesAreLeftOut) {
    directory_.Write("bad.ini", "no value\n");
    EXPECT_EQ(
        InitLogged(2,
                   "[module]\nmodule_num = 4\nmodule1 = a\nmodule2 = gone\nmodule3 = bad\n"
                   "module4 = b\n[a]\ncfg_filename = a.ini\n[gone]\ncfg_filename = g.ini\n"
                   "[bad]\ncfg_filename = bad.ini\n[b]\ncfg_filename = b.ini\n"),
        (Outcome{0, "[time][QXCONFACCE] Load " + In("g.ini") + " failed\n" + Skipped(1) +
                        "[time][QXCONFACCE] Load " + In("bad.ini") + " failed\n" + Skipped(2)}));
    EXPECT_THAT(Names(), ElementsAre("b", "a"));
}

TEST_F(Modules, DirectoryAsFileIsAnEmptyModule) {
    std::filesystem::create_directory(directory_.path() / "d.ini");
    EXPECT_EQ(Init("[module]\nmodule_num = 1\nmodule1 = a\n[a]\ncfg_filename = d.ini\n"),
              (Outcome{0, ""}));
    EXPECT_EQ(Module("a")->dictionary->Count(), 0U);
}

TEST_F(Modules, PathWithoutSlashIsNotUsed) {
    for (const char* path : {"", "path = conf\n", "path =\n", "path = .\n"}) {
        EXPECT_EQ(InitLogged(1, std::string("[module]\nmodule_num = 1\nmodule1 = a\n[a]\n") + path +
                                    "cfg_filename = a.ini\n"),
                  (Outcome{0, DefaultPathInfo()}));
        EXPECT_EQ(Module("a")->path, directory_.path().string());
        EXPECT_EQ(Module("a")->file, In("a.ini"));
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, OneSlashAtTheEndOfAPathIsRemoved) {
    const WorkingDirectory there(directory_.path());
    const std::pair<const char*, const char*> kPaths[] = {
        {"./", "."}, {".//", "./"}, {"././", "./."}, {"/", "/"}, {"//", "/"}, {"./x/..", "./x/.."}};
    std::filesystem::create_directory("x");
    for (const auto& [path, stored] : kPaths) {
        const std::string file = stored[0] == '/' ? In("a.ini").substr(1) : "a.ini";
        ASSERT_EQ(InitLogged(0, std::string("[module]\nmodule_num = 1\nmodule1 = a\n[a]\npath = ") +
                                    path + "\ncfg_filename = " + file + "\n")
                      .output,
                  "[time][DEBUG][QXCONFACCE] CONFACCESS_Init:293 New CfgName[cfg] CfgList "
                  "Count[1]\n");
        EXPECT_STREQ(Module("a")->path, stored);
        EXPECT_EQ(Module("a")->file, std::string(stored) + "/" + file);
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, RelativePathStartsAtTheWorkingDirectoryAndIsNamedAsGiven) {
    directory_.Write("other/conf/m.ini", "[s]\nkey = there\n");
    const WorkingDirectory there(directory_.path() / "other");
    EXPECT_EQ(Init("[module]\nmodule_num = 2\nmodule1 = m\nmodule2 = n\n[m]\npath = conf/\n"
                   "cfg_filename = m.ini\n[n]\npath = ./conf\ncfg_filename = n.ini\n"),
              (Outcome{0, "[time][QXCONFACCE] Load ./conf/n.ini failed\n"}));
    EXPECT_STREQ(FindText(*Module("m")->dictionary, "s:key", nullptr), "there");
    EXPECT_STREQ(Module("m")->file, "conf/m.ini");
}

TEST_F(Modules, FileNameMayLeadFurtherDown) {
    directory_.Write("sub/m.ini", "");
    EXPECT_EQ(Init("[module]\nmodule_num = 1\nmodule1 = m\n[m]\ncfg_filename = sub/m.ini\n"),
              (Outcome{0, ""}));
}

/// An entry file with modules of these names, all of the same file.
std::string EntryOf(const std::vector<std::string>& names) {
    std::string text = "[module]\nmodule_num = " + std::to_string(names.size()) + "\n";
    for (std::size_t number = 0; number < names.size(); ++number) {
        text += "module" + std::to_string(number + 1) + " = " + names[number] + "\n";
    }
    for (const std::string& name : names) {
        text += "[" + name + "]\ncfg_filename = a.ini\n";
    }
    return text;
}

TEST_F(Modules, HundredsOfThemAreFoundByName) {
    std::vector<std::string> names;
    for (int number = 0; number < 300; ++number) {
        names.push_back("m" + std::to_string(number));
    }
    EXPECT_EQ(Init(EntryOf(names)), (Outcome{0, ""}));
    for (const std::string& name : names) {
        ASSERT_NE(Module(name), nullptr) << name;
        EXPECT_EQ(Module(name)->name, name);
        EXPECT_EQ(Module(name + "0123"), nullptr) << name;
    }
    EXPECT_EQ(Module("M0"), nullptr);
    EXPECT_EQ(Names(), std::vector<std::string>(names.rbegin(), names.rend()));
}

TEST_F(Modules, NamesWithTheSameHashAreDistinguished) {
    // Some tens of thousands of numbered names are enough to find two with the same hash.
    std::map<std::uint32_t, std::string> seen;
    std::string second;
    for (unsigned number = 0; second.empty(); ++number) {
        const std::string name = "m" + std::to_string(number);
        if (!seen.emplace(HashOf(name), name).second) {
            second = name;
        }
    }
    const std::string first = seen[HashOf(second)];
    EXPECT_EQ(Init(EntryOf({first})), (Outcome{0, ""}));
    EXPECT_EQ(Module(second), nullptr);
    EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    EXPECT_EQ(Init(EntryOf({first, "other", second})), (Outcome{0, ""}));
    EXPECT_EQ(Module(first)->name, first);
    EXPECT_EQ(Module(second)->name, second);
}

TEST_F(Modules, ReleaseOfThemWritesNoRecordOfEachOne) {
    ASSERT_EQ(Init(OneModule("m", "cfg_filename = a.ini\n")), (Outcome{0, ""}));
    const LibraryThreshold all(0);
    EXPECT_EQ(Observe([] { return ZV_CONFACCESS_Deinit("cfg"); }),
              (Outcome{0, Deleted("cfg") +
                              "[time][DEBUG][QXCONFACCE] ZV_CONFACCESS_Deinit:366 Now CfgList "
                              "count[0]\n"}));
}

}  // namespace
}  // namespace paramgen::testing
