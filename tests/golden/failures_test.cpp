// Failures of the whole program: exit status, records and output files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "support/product_tree.h"
#include "support/program.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr char kNotInited[] =
    "PDT_INIPARAM_LoadCfg: [./config_cfgaccess_entry.ini] failed[0xFFFFFFFF]\n";

bool Exists(const TempDir& directory, const char* file) {
    return std::filesystem::exists(directory.path() / file);
}

void ExpectNoImages(const TempDir& directory) {
    EXPECT_FALSE(Exists(directory, "param.bin"));
    EXPECT_FALSE(Exists(directory, "paramdef.bin"));
}

std::string MaskedOutput(const ProgramRun& run) {
    return MaskVolatile(run.output);
}

TEST(Failures, MissingEntryFile) {
    const TempDir directory;
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 255);
    EXPECT_EQ(MaskedOutput(run),
              "[time][QXCONFACCE] RealPath failed\n"
              "\033[m[\033[1;31mERROR\033[m-PARAM]:PDT_INIPARAM_LoadCfg[#]:"
              "[./config_cfgaccess_entry.ini] failed[0xFFFFFFFF]\n"
              "\033[m[\033[1;31mERROR\033[m-PARAM]:main[#]:[load config] failed[0xFFFFFFFF]\n");
    ExpectNoImages(directory);
}

TEST(Failures, ExistingImagesAreLeftAlone) {
    const TempDir directory;
    directory.Write("param.bin", "old");
    directory.Write("paramdef.bin", "older");
    EXPECT_EQ(RunProgram(directory.path()).exitStatus, 255);
    EXPECT_EQ(ReadFile(directory.path() / "param.bin"), "old");
    EXPECT_EQ(ReadFile(directory.path() / "paramdef.bin"), "older");
}

TEST(Failures, EntryFileWithASyntaxError) {
    const TempDir directory;
    directory.Write("config_cfgaccess_entry.ini", "[module]\nno value here\n");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 255);
    EXPECT_THAT(MaskedOutput(run),
                StartsWith("[time][ERR][QXCONFACCE] CONFACCESS_GetModuleInfo:211 load " +
                           (directory.path() / "config_cfgaccess_entry.ini").string() +
                           " failed\n"
                           "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsOf(run.output),
                ElementsAre(kNotInited, "main: [load config] failed[0xFFFFFFFF]\n"));
    ExpectNoImages(directory);
}

TEST(Failures, EntryDirectoryInPlaceOfTheEntryFileHasNoModules) {
    const TempDir directory;
    std::filesystem::create_directory(directory.path() / "config_cfgaccess_entry.ini");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 0x50);
    EXPECT_THAT(run.output, HasSubstr("not find module_num or module_num is 0\n"));
    EXPECT_THAT(ErrorsOf(run.output),
                ElementsAre("PDT_INIPARAM_LoadCfg: [./config_cfgaccess_entry.ini] "
                            "failed[0xA1418050]\n",
                            "main: [load config] failed[0xA1418050]\n"));
    ExpectNoImages(directory);
}

TEST(Failures, ModuleThatCannotBeReadIsMissedWhereItIsNeeded) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    std::filesystem::remove(directory.path() / "filemng.ini");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 0x46);
    EXPECT_THAT(MaskedOutput(run),
                StartsWith("[time][QXCONFACCE] Load " +
                           (directory.path() / "filemng.ini").string() + " failed\n"));
    EXPECT_THAT(ErrorsOf(run.output),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [common.repair:enable] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_FILEMNG_LoadCommCfg: [common.repair:enable] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadFileMngConf: [filemng comm] failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCfg: [FileMng Conf] failed[0xA1418046]\n",
                            "main: [load config] failed[0xA1418046]\n"));
    ExpectNoImages(directory);
}

TEST(Failures, ImageThatMayBeWrittenButNotReadIsNotOpened) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    directory.Write("param.bin", "old");
    std::filesystem::permissions(directory.path() / "param.bin", std::filesystem::perms(0222));
    const ProgramRun run = RunProgram(directory.path(), Output::kCaptured, Rights::kNobody);
    EXPECT_EQ(run.exitStatus, 255);
    EXPECT_THAT(ErrorsOf(run.output), ElementsAre("main: open [./param.bin] failed\n"));
    std::filesystem::permissions(directory.path() / "param.bin", std::filesystem::perms(0666));
    EXPECT_EQ(ReadFile(directory.path() / "param.bin"), "old");
}

TEST(Failures, DirectoryWithoutRights) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    std::filesystem::create_directory(directory.path() / "closed");
    std::filesystem::rename(directory.path() / "devmng.ini",
                            directory.path() / "closed" / "devmng.ini");
    std::filesystem::permissions(directory.path() / "closed", std::filesystem::perms::none);
    std::string entry = ReadFile(directory.path() / "config_cfgaccess_entry.ini");
    entry += "[devmng]\npath = ./closed\n";
    directory.Write("config_cfgaccess_entry.ini", entry);
    const ProgramRun run = RunProgram(directory.path(), Output::kCaptured, Rights::kNobody);
    EXPECT_EQ(run.exitStatus, 0x46);
    EXPECT_THAT(MaskedOutput(run),
                StartsWith("[time][QXCONFACCE] Load ./closed/devmng.ini failed\n"));
    EXPECT_THAT(ErrorsOf(run.output),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [devinfo:software_version] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadDevInfo: [devinfo:software_version] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadDevMngConf: [devinfo] failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCfg: [DevMng Conf] failed[0xA1418046]\n",
                            "main: [load config] failed[0xA1418046]\n"));
    ExpectNoImages(directory);
    std::filesystem::permissions(directory.path() / "closed", std::filesystem::perms::owner_all);
}

TEST(Failures, FirstFileCannotBeOpened) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    std::filesystem::create_directory(directory.path() / "param.bin");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 255);
    EXPECT_THAT(ErrorsOf(run.output), ElementsAre("main: open [./param.bin] failed\n"));
    EXPECT_FALSE(Exists(directory, "paramdef.bin"));
    EXPECT_THAT(run.output, Not(HasSubstr("parambin update end")));
}

TEST(Failures, SecondFileCannotBeOpened) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    std::filesystem::create_directory(directory.path() / "paramdef.bin");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 255);
    EXPECT_THAT(ErrorsOf(run.output), ElementsAre("main: open [./paramdef.bin] failed\n"));
    EXPECT_EQ(ReadFile(directory.path() / "param.bin").size(), 29928U);
}

TEST(Failures, FullDiskIsToldAndNotFatal) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    std::filesystem::create_symlink("/dev/full", directory.path() / "param.bin");
    const ProgramRun run = RunProgram(directory.path());
    EXPECT_EQ(run.exitStatus, 0);
    const std::vector<std::string> errors = ErrorsOf(run.output);
    ASSERT_FALSE(errors.empty());
    EXPECT_THAT(errors[0], StartsWith("main: fwrite : total 29928, write "));
    EXPECT_EQ(ReadFile(directory.path() / "paramdef.bin").size(), 29928U);
    EXPECT_EQ(EchoOf(run.output).back(), "main: parambin update end\n");
}

TEST(Failures, ClosedOutputDoesNotStopTheRun) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    EXPECT_EQ(RunProgram(directory.path(), Output::kClosed).exitStatus, 0);
    const std::string image = ReadFile(directory.path() / "param.bin");
    EXPECT_EQ(image.size(), 29928U);
    EXPECT_EQ(image.substr(0, 4), "arap");
    EXPECT_EQ(ReadFile(directory.path() / "paramdef.bin"), image);
}

}  // namespace
}  // namespace paramgen::testing
