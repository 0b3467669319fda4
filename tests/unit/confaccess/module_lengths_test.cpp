// How long names, paths and files of modules may be.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "unit/confaccess/modules_fixture.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kErrorCodeOfPath[] =
    "func:CONFACCESS_InitModule,line:173,Error Code: [0xFFFFFFFF]\n\n";

TEST_F(Modules, NameOf114CharactersIsTheLongestWithAFile) {
    EXPECT_EQ(Init(OneModule(std::string(114, 'm'), "cfg_filename = a.ini\n")), (Outcome{0, ""}));
    EXPECT_THAT(Names(), ElementsAre(std::string(114, 'm')));
}

TEST_F(Modules, NameOf115To122CharactersFailsAtTheFileName) {
    const Outcome skipped = {0, "[CONFACCESS_InitModule]178: snprintf_s\n" + Skipped(0)};
    for (const std::size_t length : {115U, 122U}) {
        EXPECT_EQ(InitLogged(2, OneModule(std::string(length, 'm'), "cfg_filename = a.ini\n")),
                  skipped);
        EXPECT_THAT(Names(), IsEmpty());
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, NameOf123To127CharactersFailsAtThePath) {
    const Outcome skipped = {0, "[CONFACCESS_GetModulePath]104: snprintf_s\n" +
                                    std::string(kErrorCodeOfPath) + Skipped(0)};
    for (const std::size_t length : {123U, 127U}) {
        EXPECT_EQ(InitLogged(2, OneModule(std::string(length, 'm'), "cfg_filename = a.ini\n")),
                  skipped);
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

TEST_F(Modules, NameOf128CharactersFailsAtOnce) {
    EXPECT_EQ(InitLogged(2, OneModule(std::string(128, 'm'), "cfg_filename = a.ini\n")),
              (Outcome{0, "[CONFACCESS_InitModule]166: snprintf_s\n" + Skipped(0)}));
}

TEST_F(Modules, EmptyNameIsAName) {
    EXPECT_EQ(Init("[module]\nmodule_num = 1\nmodule1 =\n[ ]\ncfg_filename = a.ini\n"),
              (Outcome{0, ""}));
    EXPECT_THAT(Names(), ElementsAre(""));
}

/// A path of `length` characters to the test's directory.
std::string LongPathTo(const TempDir& directory, std::size_t length) {
    const std::string path = directory.path().string();
    return std::string(length - path.size(), '/') + path;
}

TEST_F(Modules, PathOf256CharactersIsTooLong) {
    EXPECT_EQ(InitLogged(2, OneModule("m", "path = " + LongPathTo(directory_, 256) +
                                               "\ncfg_filename = a.ini\n")),
              (Outcome{0, kErrorCodeOfPath + Skipped(0)}));
}

TEST_F(Modules, FileOf255CharactersIsTheLongest) {
    const std::string head = "path = " + LongPathTo(directory_, 249) + "\n";
    EXPECT_EQ(Init(OneModule("m", head + "cfg_filename = a.ini\n")), (Outcome{0, ""}));
    EXPECT_EQ(std::string(Module("m")->file).size(), 255U);
}

TEST_F(Modules, FileOf256CharactersIsTooLong) {
    const Outcome skipped = {0, "[CONFACCESS_InitModule]192: snprintf_s\n" + Skipped(0)};
    for (const std::size_t length : {250U, 255U}) {
        const std::string head = "path = " + LongPathTo(directory_, length) + "\n";
        EXPECT_EQ(InitLogged(2, OneModule("m", head + "cfg_filename = a.ini\n")), skipped);
        ASSERT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    }
}

}  // namespace
}  // namespace paramgen::testing
