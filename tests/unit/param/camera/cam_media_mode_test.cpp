#include "param/camera/cam_media_mode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/records.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/comm_rows.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadCamMediaModeCfg("m", "node.1", static_cast<CamMediaModeCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 8, Load);
}

TEST(CamMediaMode, TableIsTheRecordsLayout) {
    EXPECT_THAT(DescribeTable(kCamMediaModeTable, "m", "node.1"),
                ElementsAre("0 4 i32 reader m node.1:camid 0 wifi.info:enable",
                            "4 4 name query m node.1:mediamode - node.1:mediamode"));
}

TEST(CamMediaMode, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kCamMediaModeTable, "m", "node.1"),
               .size = 8,
               .load = Load,
               .base = EmptyModule()});
}

TEST(CamMediaMode, CameraAndItsModeAreEchoed) {
    ProductTree tree;
    tree.Set("m", "node.1:camid", "-3")
        .Set("m", "node.1:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_8000P");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaModeTable, std::string("\xfd\xff\xff\xff\x34\0\0\0", 8),
                           result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: "
                            "MediaMode[QX_PARAM_MEDIAMODE_PHOTO_8000P] Enum[52]\n",
                            "PDT_INIPARAM_LoadCamMediaModeCfg: node.1,CAMID[-3] mediaMode[52]\n"));
}

TEST(CamMediaMode, AbsentModeKeepsWhatWasThere) {
    const RegisteredProduct product(EmptyModule());
    CamMediaModeCfg cfg = {.camId = 5, .mediaMode = static_cast<MediaMode>(7)};
    const std::string output = CaptureStdout([&] { EXPECT_EQ(Load(&cfg), 0); });
    EXPECT_EQ(cfg.camId, 0);
    EXPECT_EQ(cfg.mediaMode, 7);
    EXPECT_THAT(EchoOf(output),
                ElementsAre("PDT_INIPARAM_LoadCamMediaModeCfg: node.1,CAMID[0] mediaMode[7]\n"));
}

TEST(CamMediaMode, BadCameraGoesByAnotherKeysName) {
    const LoadResult result = LoadTree(EmptyModule().Set("m", "node.1:camid", "2147483648"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [node.1:camid] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaModeCfg: [wifi.info:enable] failed[0xFFFFFFFF]\n"));
}

TEST(CamMediaMode, UnknownModeGoesByItsKey) {
    const LoadResult result =
        LoadTree(EmptyModule().Set("m", "node.1:mediamode", "QX_PARAM_MEDIAMODE_4320P"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid "
                            "MediaMode[QX_PARAM_MEDIAMODE_4320P]\n",
                            "PDT_INIPARAM_LoadCamMediaModeCfg: [node.1:mediamode] "
                            "failed[0xFFFFFFFF]\n"));
    EXPECT_TRUE(SameRecord(kCamMediaModeTable, std::string(8, '\0'), result.record));
}

TEST(CamMediaMode, MissingModuleFailsAtTheCamera) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [node.1:camid] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamMediaModeCfg: [wifi.info:enable] failed[0xA1418046]\n"));
}

TEST(CamMediaMode, PrefixThatLeavesNoRoomForTheModeFails) {
    // "PREFIX:camid" fits in a key, "PREFIX:mediamode" does not.
    const std::string prefix(118, 'p');
    const RegisteredProduct product(EmptyModule());
    CamMediaModeCfg cfg = {};
    Status status = 0;
    const std::string output = CaptureStdout(
        [&] { status = PDT_INIPARAM_LoadCamMediaModeCfg("m", prefix.c_str(), &cfg); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadCamMediaModeCfg: [sprintf_s] failed\n"));
}

}  // namespace
}  // namespace paramgen::testing
