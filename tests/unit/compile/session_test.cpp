#include "compile/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "support/product_tree.h"
#include "support/program.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::compile {
namespace {

using paramgen::testing::ProductTree;
using paramgen::testing::SmallestProduct;
using paramgen::testing::TempDir;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::filesystem::path kExample = std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam";

std::string Bytes(const Image& image) {
    return {reinterpret_cast<const char*>(image.data()), image.size()};
}

Compilation CompileTree(const ProductTree& tree, const Pretence& pretence = {}) {
    const TempDir directory;
    tree.WriteTo(directory);
    return Session(directory.path()).Run(pretence);
}

/// The answers to a key of a module.
std::vector<Answer> AnswersTo(const Compilation& result, const std::string& module,
                              const std::string& key) {
    std::vector<Answer> answers;
    std::copy_if(result.answers.begin(), result.answers.end(), std::back_inserter(answers),
                 [&](const Answer& a) { return a.module == module && a.key == key; });
    return answers;
}

/// The place where the only answer to a key is stored.
std::optional<Place> PlaceOf(const Compilation& result, const std::string& module,
                             const std::string& key) {
    const std::vector<Answer> answers = AnswersTo(result, module, key);
    EXPECT_EQ(answers.size(), 1U) << key;
    return answers.empty() ? std::nullopt : answers.front().place;
}

TEST(Session, CompilesWhatTheProgramWrites) {
    const TempDir directory;
    std::filesystem::copy(kExample, directory.path(), std::filesystem::copy_options::recursive);
    const Compilation result = Compile(directory.path());
    EXPECT_EQ(result.status, kOk);
    EXPECT_FALSE(result.stop.has_value());
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "param.bin"));
    EXPECT_EQ(paramgen::testing::RunProgram(directory.path()).exitStatus, 0);
    EXPECT_EQ(Bytes(result.image), paramgen::testing::ReadFile(directory.path() / "param.bin"));
}

TEST(Session, TellsWhatWasAskedForInTheOrderOfAsking) {
    const Compilation result = Compile(kExample);
    ASSERT_GT(result.answers.size(), 1400U);
    const Answer& first = result.answers.front();
    EXPECT_EQ(first.module, "devmng");
    EXPECT_EQ(first.key, "devinfo:software_version");
    EXPECT_EQ(first.place, (Place{23924, 64}));
    EXPECT_EQ(result.answers[1].key, "devinfo:model");
    EXPECT_EQ(result.answers[1].place, (Place{23988, 64}));
    EXPECT_FALSE(first.afterRangeError);
    EXPECT_EQ(result.modules.front(), "devmng");
    EXPECT_EQ(result.modules[1], "filemng");
}

TEST(Session, ListsTheFilesOfModules) {
    ProductTree tree = SmallestProduct();
    const TempDir directory;
    tree.WriteTo(directory);
    std::filesystem::remove(directory.path() / "devmng.ini");
    const Compilation result = Compile(directory.path());
    ASSERT_EQ(result.files.size(), 10U);
    for (const ModuleFile& file : result.files) {
        EXPECT_EQ(file.isRead, file.name != "devmng");
        EXPECT_THAT(file.path, HasSubstr("/" + file.name + ".ini"));
    }
}

TEST(Session, KnowsWhereLoadersStoreInTheirOwnWay) {
    ProductTree tree = SmallestProduct();
    tree.Set("workmode_record", "osd:osdcnt", "2").Set("workmode_record", "normal.0:thmcnt", "6");
    tree.Set("valueset", "cam.0.enc.payloadtype:num", "11");
    tree.AddModule("cam0_mediamode1");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    const Compilation result = CompileTree(tree);
    ASSERT_EQ(result.status, kOk);
    EXPECT_EQ(PlaceOf(result, "workmode_record", "osd.1:type"), (Place{24 + 20 + 268 + 4, 4}));
    EXPECT_EQ(PlaceOf(result, "workmode_record", "normal.0:thmhdl0"), (Place{4508, 4}));
    EXPECT_EQ(PlaceOf(result, "workmode_record", "normal.0:thmhdl5"), (Place{4528, 4}));
    EXPECT_EQ(PlaceOf(result, "valueset", "cam.0.enc.payloadtype:description10"),
              (Place{24344 + 4 + 160, 12}));
    EXPECT_EQ(PlaceOf(result, "valueset", "cam.0.enc.payloadtype:value10"),
              (Place{24344 + 4 + 160 + 12, 4}));
    EXPECT_EQ(PlaceOf(result, "filemng", "dtcf.dir.name:dir_name13"),
              (Place{22480 + 548 + 13 * 64, 64}));
    // Media mode 1 begins at 9648 + 3512 + 1864, its sensor and capture device at 176.
    EXPECT_EQ(PlaceOf(result, "cam0_mediamode1", "common:mediamode"), (Place{15024, 4}));
    EXPECT_EQ(PlaceOf(result, "cam0_mediamode1", "vcap.dev:componentmask1"),
              (Place{15024 + 176 + 60 + 4, 4}));
    // Four capture channels and a processing group look for their lens module.
    const std::vector<Answer> searched = AnswersTo(result, "cam0_ldccfg_0", "common:mediamode");
    ASSERT_EQ(searched.size(), 5U);
    EXPECT_EQ(searched.front().place, std::nullopt);
    EXPECT_EQ(searched.front().text, "QX_PARAM_MEDIAMODE_720P_30");
}

TEST(Session, AnAbsentKeyHasNoTextAndASectionNeither) {
    ProductTree tree = SmallestProduct();
    tree.Set("devmng", "gsensor:sensitivity", "7").Set("devmng", "keytone:enable", "");
    const Compilation result = CompileTree(tree);
    EXPECT_EQ(AnswersTo(result, "devmng", "gsensor:sensitivity").front().text, "7");
    EXPECT_EQ(AnswersTo(result, "devmng", "keytone:enable").front().text, "");
    EXPECT_EQ(AnswersTo(result, "devmng", "parking:sensitivity").front().text, std::nullopt);
}

TEST(Session, AKeyThatOnlyHasToBeThereGoesNowhere) {
    const Compilation result = CompileTree(SmallestProduct());
    const std::vector<Answer> answers = AnswersTo(result, "cam0_comm_record", "venc.0:enable");
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[0].place, std::nullopt);
    EXPECT_EQ(answers[1].place, (Place{9648 + 16 + 748, 4}));
}

TEST(Session, StopsWhereTheProgramDoes) {
    struct Case {
        const char* module;
        const char* key;
        std::string value;
    };
    for (const Case& bad :
         {Case{"devmng", "gsensor:sensitivity", "99999999999"},
          Case{"devmng", "devinfo:model", std::string(64, 'x')},
          Case{"workmode_record", "normal.0:thmcnt", "1106"}, Case{"valueset", "volume:num", "298"},
          Case{"filemng", "dtcf.dir.name:dir_name3", std::string(64, 'x')},
          Case{"workmode_photo", "phototype.0.burst:mediamode", "NONE"}}) {
        ProductTree tree = SmallestProduct();
        tree.Set(bad.module, bad.key, bad.value);
        const Compilation result = CompileTree(tree);
        EXPECT_EQ(result.status, kFailed) << bad.key;
        ASSERT_TRUE(result.stop.has_value()) << bad.key;
        EXPECT_EQ(result.stop->at, Stop::At::kKey);
        EXPECT_EQ(result.stop->module, bad.module);
        EXPECT_EQ(result.stop->key, bad.key);
    }
}

TEST(Session, AMissingModuleIsWhereARunStops) {
    ProductTree tree = SmallestProduct();
    tree.RemoveModule("valueset");
    const Compilation result = CompileTree(tree);
    EXPECT_EQ(result.status, kNoModule);
    ASSERT_TRUE(result.stop.has_value());
    EXPECT_EQ(result.stop->at, Stop::At::kModule);
    EXPECT_EQ(result.stop->module, "valueset");
    EXPECT_THAT(result.modules, Contains("valueset"));
}

TEST(Session, AnEntryFileWithoutModulesIsWhereARunStops) {
    const TempDir directory;
    directory.Write("config_cfgaccess_entry.ini", "[module]\n");
    const Compilation result = Compile(directory.path());
    EXPECT_EQ(result.status, kNoModuleCount);
    ASSERT_TRUE(result.stop.has_value());
    EXPECT_EQ(result.stop->at, Stop::At::kEntry);
    EXPECT_THAT(result.answers, IsEmpty());
}

TEST(Session, KeysCanBePretendedToBeAbsentAndModulesToBeEmpty) {
    ProductTree tree = SmallestProduct();
    tree.Set("devmng", "gsensor:sensitivity", "x").Set("devmng", "parking:sensitivity", "3");
    tree.Set("cam0_comm_record", "venc.0:enable", "1");
    tree.RemoveModule("valueset").RemoveModule("filemng");
    const TempDir directory;
    tree.WriteTo(directory);
    Session session(directory.path());
    EXPECT_EQ(session.Run().stop->module, "filemng");
    Pretence pretence = {.absentKeys = {{"devmng", "parking:sensitivity"}},
                         .emptyModules = {"filemng"}};
    EXPECT_EQ(session.Run(pretence).stop->module, "valueset");
    pretence.emptyModules.insert("valueset");
    const Compilation result = session.Run(pretence);
    EXPECT_EQ(result.status, kOk);
    EXPECT_EQ(AnswersTo(result, "devmng", "parking:sensitivity").front().text, std::nullopt);
    EXPECT_EQ(AnswersTo(result, "devmng", "gsensor:sensitivity").front().text, "x");
    EXPECT_EQ(Bytes(result.image).substr(23924 + 396, 4), std::string(4, '\0'));
    EXPECT_EQ(Bytes(result.image).substr(10412 - 4, 1), "\x01") << "the number of encoders";
    // An encoder whose key is pretended to be absent is not counted.
    pretence.absentKeys.insert({"cam0_comm_record", "venc.0:enable"});
    EXPECT_EQ(Bytes(session.Run(pretence).image).substr(10412 - 4, 1), std::string(1, '\0'));
}

TEST(Session, FilesAreReadOnce) {
    ProductTree tree = SmallestProduct();
    tree.Set("devmng", "gsensor:sensitivity", "7");
    const TempDir directory;
    tree.WriteTo(directory);
    Session session(directory.path());
    const Image first = session.Run().image;
    tree.Set("devmng", "gsensor:sensitivity", "8").WriteTo(directory);
    EXPECT_EQ(session.Run().image, first);
    EXPECT_NE(Compile(directory.path()).image, first);
}

TEST(Session, TextsThatAreKnownAreNotRead) {
    ProductTree tree = SmallestProduct();
    tree.Set("devmng", "gsensor:sensitivity", "7").Set("valueset", "volume:num", "1");
    const TempDir directory;
    tree.WriteTo(directory);
    const std::string devmng = (directory.path() / "devmng.ini").string();
    FileTexts texts = {{devmng, "[gsensor]\nsensitivity = 9"}};
    const Compilation result = Session(directory.path(), texts).Run();
    EXPECT_EQ(AnswersTo(result, "devmng", "gsensor:sensitivity").front().text, "9");
    EXPECT_EQ(AnswersTo(result, "valueset", "volume:num").front().text, "1");
    texts[devmng] = std::nullopt;
    const Compilation without = Session(directory.path(), texts).Run();
    ASSERT_TRUE(without.stop.has_value());
    EXPECT_EQ(without.stop->module, "devmng");
}

TEST(Session, SeveralTreesCanBeAtHand) {
    ProductTree tree = SmallestProduct();
    const TempDir one;
    tree.Set("devmng", "gsensor:sensitivity", "7").WriteTo(one);
    const TempDir other;
    tree.Set("devmng", "gsensor:sensitivity", "8").WriteTo(other);
    Session first(one.path());
    Session second(other.path());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(first.Run().image[24316], std::byte{7});
        EXPECT_EQ(second.Run().image[24316], std::byte{8});
    }
}

TEST(Session, AnEarlierNumberOutOfRangeIsTold) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "vcap.pipe.0:isp_framerate", "1e999");
    tree.Set("cam0_mediamode0", "vcap.pipe.0:isp_width", "2147483647");
    const Compilation result = CompileTree(tree);
    ASSERT_TRUE(result.stop.has_value());
    EXPECT_EQ(result.stop->key, "vcap.pipe.0:isp_width");
    EXPECT_EQ(result.answers.back().key, "vcap.pipe.0:isp_width");
    EXPECT_TRUE(result.answers.back().afterRangeError);
    EXPECT_FALSE(
        AnswersTo(result, "cam0_mediamode0", "vcap.pipe.0:isp_framerate").front().afterRangeError);
}

TEST(Session, LeavesTheWorkingDirectoryAndStandardOutputAlone) {
    const std::filesystem::path before = std::filesystem::current_path();
    ::testing::internal::CaptureStdout();
    const TempDir directory;
    static_cast<void>(Compile(directory.path()));
    static_cast<void>(Compile(kExample, {.answers = true, .log = true}));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST(Session, KeepsTheLogWhenAskedTo) {
    const TempDir directory;
    SmallestProduct().RemoveModule("devmng").WriteTo(directory);
    const Compilation result = Compile(directory.path(), {.answers = false, .log = true});
    EXPECT_THAT(result.answers, IsEmpty());
    EXPECT_THAT(paramgen::testing::ErrorsOf(result.log),
                Contains("PDT_INIPARAM_LoadCfg: [DevMng Conf] failed[0xA1418046]\n"));
    EXPECT_EQ(Compile(directory.path()).log, "");
}

TEST(Session, ADirectoryThatCannotBeEnteredIsAnError) {
    const TempDir directory;
    EXPECT_THROW(static_cast<void>(Compile(directory.path() / "none")), std::system_error);
    directory.Write("file", "");
    EXPECT_THROW(static_cast<void>(Compile(directory.path() / "file")), std::system_error);
}

}  // namespace
}  // namespace paramgen::compile
