#include "param/camera/camera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include "support/captured_output.h"
#include "support/records.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/comm_rows.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

constexpr std::size_t kUnitSize = 12832;

Status Load(void* record) {
    return PDT_INIPARAM_LoadCamMediaCfg(static_cast<CamMediaCfg*>(record), 1);
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, kUnitSize, Load);
}

/// A product with only the modules that a camera requires.
ProductTree SmallestCamera() {
    return ProductTree()
        .AddModule("cam0_comm")
        .AddModule("cam0_comm_record")
        .AddModule("cam0_comm_photo");
}

std::vector<std::string> ErrorsOfBad(const std::string& module, const std::string& key,
                                     const std::string& value = "2147483648") {
    const LoadResult result = LoadTree(SmallestCamera().Set(module, key, value));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

std::string LoadSpecBlock(const ProductTree& tree, const std::string& module) {
    return LoadRecord(tree, 1864, [&](void* record) {
        return PDT_INIPARAM_LoadMediaModeSpecCfg(module.c_str(),
                                                 static_cast<CamMediaModeSpecCfg*>(record));
    });
}

TEST(Camera, UnitIsCutIntoItsBlocks) {
    std::vector<std::string> expected = {
        "0 4 u32 loader - - - -",
        "4 4 bool reader cam0_comm camera:enable 0 camera:enable",
        "8 4 bool reader cam0_comm camera:osdshow 0 camera:osdshow",
        "12 4 u32 reader cam0_comm camera:video_mode 0 camera:video_mode",
    };
    std::vector<WalkedField> blocks;
    const auto add = [&](const std::vector<WalkedField>& block) {
        blocks.insert(blocks.end(), block.begin(), block.end());
    };
    add(WalkTable(kCamMediaModeCommTable, "cam0_comm_record", "", {0}, 16));
    add(WalkTable(kCamMediaModeCommTable, "cam0_comm_photo", "", {0}, 1180));
    add(WalkTable(kCamMediaModeCommTable, "cam0_comm_playback", "", {0}, 2344));
    add(WalkTable(kCamMediaModeSpecTable, "cam0_mediamode0", "", {0, 0}, 3512));
    add(WalkTable(kCamMediaModeSpecTable, "cam0_mediamode1", "", {0, 1}, 5376));
    add(WalkTable(kCamMediaModeSpecTable, "cam0_mediamode2", "", {0, 2}, 7240));
    add(WalkTable(kCamMediaModeSpecTable, "cam0_mediamode3", "", {0, 3}, 9104));
    add(WalkTable(kCamMediaModeSpecTable, "cam0_mediamode4", "", {0, 4}, 10968));
    for (const WalkedField& walked : blocks) {
        expected.push_back(Describe(walked));
    }
    expected.emplace_back("3508 4 bytes nobody - - - -");
    EXPECT_EQ(DescribeTable(kCamMediaTable, "", "", {0}), expected);
}

TEST(Camera, SwitchesLoadTheirOwnBytes) {
    CheckRows({.fields = WalkTable(kCamFuncTable, "cam0_comm", "", {}, 4),
               .size = kUnitSize,
               .load =
                   [](void* record) {
                       return PDT_INIPARAM_LoadCamFuncAttr("cam0_comm",
                                                           static_cast<CamMediaCfg*>(record));
                   },
               .base = ProductTree().AddModule("cam0_comm")});
}

TEST(Camera, SwitchesAreNotEchoed) {
    const LoadResult result =
        RunLoad(ProductTree().Set("m", "camera:enable", "1"), kUnitSize, [](void* record) {
            return PDT_INIPARAM_LoadCamFuncAttr("m", static_cast<CamMediaCfg*>(record));
        });
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
}

TEST(Camera, EachModuleFillsItsOwnBlock) {
    ProductTree tree;
    tree.Set("cam0_comm", "camera:enable", "yes")
        .Set("cam0_comm", "camera:osdshow", "1")
        .Set("cam0_comm", "camera:video_mode", "-2")
        .Set("cam0_comm_record", "vcap.dev:vcapdevhdl", "1")
        .Set("cam0_comm_record", "disp.window.crop:mode", "2")
        .Set("cam0_comm_photo", "vcap.dev:vcapdevhdl", "3")
        .Set("cam0_comm_photo", "disp.window.crop:mode", "4")
        .Set("cam0_comm_playback", "vcap.dev:vcapdevhdl", "5")
        .Set("cam0_comm_playback", "disp.window.crop:mode", "6");
    std::string expected(kUnitSize, '\0');
    PutWord(&expected, 4, 1);
    PutWord(&expected, 8, 1);
    PutWord(&expected, 12, -2);
    PutWord(&expected, 20, 1);
    PutWord(&expected, 1176, 2);
    PutWord(&expected, 1184, 3);
    PutWord(&expected, 2340, 4);
    PutWord(&expected, 2348, 5);
    PutWord(&expected, 3504, 6);
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaTable, expected, result.record));
}

TEST(Camera, MediaModesFillTheirSlots) {
    ProductTree tree = SmallestCamera();
    std::string modes;
    for (int mode = 0; mode < 5; ++mode) {
        const std::string module = "cam0_mediamode" + std::to_string(mode);
        tree.Set(module, "vb:max_poolcnt", "1")
            .Set(module, "vb.pool.0:blk_count", std::to_string(10 + mode))
            .Set(module, "common.vcap.pipe.0:vcappipe_hdl", std::to_string(20 + mode));
        modes += LoadSpecBlock(tree, module);
    }
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaTable, std::string(3512, '\0') + modes, result.record));
    for (std::size_t mode = 0; mode < 5; ++mode) {
        const std::size_t slot = 3512 + 1864 * mode;
        const auto number = static_cast<std::int64_t>(mode);
        EXPECT_EQ(result.record.substr(slot + 4, 4), LittleEndian(20 + number, 4));
        EXPECT_EQ(result.record.substr(slot + 8, 4), LittleEndian(6, 4));
        EXPECT_EQ(result.record.substr(slot + 56, 4), LittleEndian(10 + number, 4));
    }
}

TEST(Camera, WithoutPlaybackItsBlockIsZero) {
    ProductTree tree = SmallestCamera();
    tree.Set("cam1_comm_playback", "vcap.dev:enable", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(2344, 1164), std::string(1164, '\0'));
}

TEST(Camera, OnlyTheMediaModesThatAreThereAreLoaded) {
    ProductTree tree = SmallestCamera();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30")
        .Set("cam0_mediamode2", "common:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_480P")
        .Set("cam0_mediamode5", "common:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_480P");
    const LoadResult result = LoadTree(tree);
    const std::string empty(1864, '\0');
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(3512), LoadSpecBlock(tree, "cam0_mediamode0") + empty +
                                              LoadSpecBlock(tree, "cam0_mediamode2") + empty +
                                              empty);
    EXPECT_EQ(result.record.substr(3512, 4), LittleEndian(7, 4));
    EXPECT_EQ(result.record.substr(7240, 4), LittleEndian(34, 4));
}

TEST(Camera, SmallestCamerasWholeEcho) {
    const ProductTree tree = SmallestCamera();
    const std::vector<std::string> block =
        EchoOf(RunLoad(tree, 1164, [](void* record) {
                   return PDT_INIPARAM_LoadMediaModeCommCfg(
                       "cam0_comm_record", static_cast<CamMediaModeCommCfg*>(record));
               }).output);
    std::vector<std::string> expected = {
        "PDT_INIPARAM_LoadCamMediaCfg: Cam[0] Rec Media comm Configure:\n"};
    Append(&expected, block);
    expected.emplace_back("PDT_INIPARAM_LoadCamMediaCfg: Cam[0] Photo Media comm Configure:\n");
    Append(&expected, block);
    Append(&expected, {"PDT_INIPARAM_LoadCamMediaCfg: Cam[0] playback Media comm Configure:\n",
                       "PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[0] Configure:\n",
                       "PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[1] Configure:\n",
                       "PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[2] Configure:\n",
                       "PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[3] Configure:\n",
                       "PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[4] Configure:\n"});
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(EchoOf(result.output), expected);
    EXPECT_TRUE(ErrorsOf(result.output).empty());
}

TEST(Camera, PlaybackAndMediaModesEchoBehindTheirHeadings) {
    ProductTree tree = SmallestCamera();
    tree.Set("cam0_comm_playback", "disp.window.crop:max_h", "77")
        .Set("cam0_mediamode1", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    const std::vector<std::string> echo = EchoOf(LoadTree(tree).output);
    const auto at = [&](const std::string& text) {
        return std::find(echo.begin(), echo.end(), text) - echo.begin();
    };
    const auto playback =
        at("PDT_INIPARAM_LoadCamMediaCfg: Cam[0] playback Media comm Configure:\n");
    const auto crop =
        at("PDT_INIPARAM_LoadCamDispCropCfg:    window crop enable[0] maxH[77], curH[0], "
           "cropMod[0]\n");
    const auto mode0 = at("PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[0] Configure:\n");
    const auto mode1 = at("PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[1] Configure:\n");
    const auto name =
        at("PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_720P_30] Enum[1]\n");
    const auto mode2 = at("PDT_INIPARAM_LoadCamMediaCfg: Cam[0]  MediaMode[2] Configure:\n");
    EXPECT_LT(playback, crop);
    EXPECT_EQ(crop + 1, mode0);
    EXPECT_EQ(mode0 + 1, mode1);
    EXPECT_EQ(mode1 + 1, name);
    EXPECT_LT(name, mode2);
    EXPECT_EQ(mode2 + 3, static_cast<std::ptrdiff_t>(echo.size()));
}

/// Two cameras. Of the first, the number, the switches and the reserved bytes are filled with 0x5A,
/// of the second all bytes.
struct TwoCameras {
    std::unique_ptr<std::array<CamMediaCfg, 2>> cams =
        std::make_unique<std::array<CamMediaCfg, 2>>();
    TwoCameras() {
        std::memset(&(*cams)[0], 0x5A, 16);
        std::memset((*cams)[0].reserved, 0x5A, 4);
        std::memset(&(*cams)[1], 0x5A, kUnitSize);
    }
    std::string Bytes(std::size_t camera) const {
        return {reinterpret_cast<const char*>(&(*cams)[camera]), kUnitSize};
    }
};

TEST(Camera, CountOfZeroLoadsNothing) {
    const TwoCameras two;
    const std::string before = two.Bytes(0);
    Status status = -1;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadCamMediaCfg(two.cams->data(), 0); });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(output, "");
    EXPECT_EQ(two.Bytes(0), before);
}

TEST(Camera, CountOfMoreLoadsTheFirstOnly) {
    ProductTree tree = SmallestCamera();
    tree.AddModule("cam1_comm").AddModule("cam1_comm_record").AddModule("cam1_comm_photo");
    for (const std::uint32_t count : {2U, 0xFFFFFFFFU}) {
        const RegisteredProduct product(tree);
        const TwoCameras two;
        Status status = -1;
        const std::string output =
            CaptureStdout([&] { status = PDT_INIPARAM_LoadCamMediaCfg(two.cams->data(), count); });
        EXPECT_EQ(status, 0);
        EXPECT_EQ(two.Bytes(0).substr(0, 16), std::string(16, '\0'));
        EXPECT_EQ(two.Bytes(1), std::string(kUnitSize, 0x5A));
        EXPECT_EQ(output.find("Cam[1]"), std::string::npos);
    }
}

TEST(Camera, ReservedWordIsNotWritten) {
    const RegisteredProduct product(SmallestCamera());
    const TwoCameras two;
    CaptureStdout([&] { EXPECT_EQ(PDT_INIPARAM_LoadCamMediaCfg(two.cams->data(), 1), 0); });
    EXPECT_EQ(two.Bytes(0).substr(3508, 4), std::string(4, 0x5A));
}

TEST(Camera, NullIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadCamMediaCfg(nullptr, 1); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadCamMediaCfg: pointer[param] is null\n"));
    CaptureStdout([&] { status = PDT_INIPARAM_LoadCamMediaCfg(nullptr, 0); });
    EXPECT_EQ(status, -1);
}

TEST(Camera, BadSwitchGoesUpAsTheSwitches) {
    EXPECT_THAT(
        ErrorsOfBad("cam0_comm", "camera:video_mode"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [camera:video_mode] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamFuncAttr: [camera:video_mode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam func attr] failed[0xFFFFFFFF]\n"));
}

TEST(Camera, BadBlockGoesUpAsItsModule) {
    EXPECT_THAT(
        ErrorsOfBad("cam0_comm_record", "vcap.pipe.2.chn.0:brightness"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.2.chn.0:brightness] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: [brightness] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeChnCommCfg: "
                    "[PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeCommCfg: [VcapPipeChnComm] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapCommCfg: [VcapPipeComm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [vcap comm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_comm_record] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("cam0_comm_photo", "vpss.0:nrmotionmode"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0:nrmotionmode] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocNrAttr: [nrmotionmode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommArg: [VprocNrAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [VprocCommArg] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [vproc comm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_comm_photo] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("cam0_comm_playback", "disp.window.crop:cur_h"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [disp.window.crop:cur_h] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamDispCropCfg: [disp.window.crop:cur_h] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [crop config] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_comm_playback] failed[0xFFFFFFFF]\n"));
}

TEST(Camera, BadMediaModeGoesUpAsItsModule) {
    EXPECT_THAT(
        ErrorsOfBad("cam0_mediamode3", "common:mediamode", "nothing"),
        ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[nothing]\n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: [common:mediamode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_mediamode3] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("cam0_mediamode4", "vb:max_poolcnt", "9"),
        ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: Invalid VB MaxPoolCnt[9 beyond 8]\n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: [VB config] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_mediamode4] failed[0xFFFFFFFF]\n"));
}

TEST(Camera, MissingModulesFailWithTheirCode) {
    const LoadResult noSwitches = LoadTree(SmallestCamera().RemoveModule("cam0_comm"));
    EXPECT_EQ(static_cast<std::uint32_t>(noSwitches.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(noSwitches.output),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [camera:enable] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCamFuncAttr: [camera:enable] failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCamMediaCfg: [cam func attr] failed[0xA1418046]\n"));
    const LoadResult noPhoto = LoadTree(SmallestCamera().RemoveModule("cam0_comm_photo"));
    EXPECT_EQ(static_cast<std::uint32_t>(noPhoto.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(noPhoto.output),
        ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [vcap.dev:enable] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVcapCommCfg: [vcap.dev:enable] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [vcap comm] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_comm_photo] failed[0xA1418046]\n"));
}

TEST(Camera, FailureStopsBeforeTheNextModule) {
    ProductTree tree = SmallestCamera();
    tree.Set("cam0_comm_record", "disp.window.crop:mode", "99999999999")
        .Set("cam0_comm_photo", "vcap.dev:enable", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, -1);
    EXPECT_TRUE(SameRecord(kCamMediaTable, std::string(kUnitSize, '\0'), result.record));
    EXPECT_EQ(result.output.find("Photo"), std::string::npos);
}

}  // namespace
}  // namespace paramgen::testing
