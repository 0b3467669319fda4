#include "param/workmode/photo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadPhotoWorkModeCfg("photo", static_cast<PhotoWorkModeCfg*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule("photo");
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 4376, Load);
}

/// The rows of the mode without its overlays.
std::vector<WalkedField> Fields() {
    std::vector<WalkedField> fields;
    for (const WalkedField& walked : WalkTable(kPhotoWorkModeTable, "photo")) {
        if (walked.offset >= 4308) {
            fields.push_back(walked);
        }
    }
    return fields;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(Photo, TableIsTheModesLayout) {
    const std::vector<std::string> lines = DescribeTable(kPhotoWorkModeTable, "photo");
    const std::vector<std::string> before(lines.begin(), lines.begin() + 14);
    EXPECT_THAT(
        before,
        ElementsAre(
            "4308 4 i32 reader photo common.mediamode.config.0:camid 0 wifi.info:enable",
            "4312 4 name query photo common.mediamode.config.0:mediamode - "
            "common.mediamode.config.0:mediamode",
            "4316 4 bool reader photo photosource.0:enable 0 enable",
            "4320 4 i32 reader photo photosource.0:vcappipehdl 0 vcappipehdl",
            "4324 4 i32 reader photo photosource.0:pipechnhdl 0 pipechnhdl",
            "4328 4 i32 reader photo photosource.0:vpsshdl 0 vpsshdl",
            "4332 4 i32 reader photo photosource.0:vporthdl 0 vporthdl",
            "4336 4 i32 reader photo photosource.0:venchdl 0 venchdl",
            "4340 4 i32 reader photo photosource.0:thumbnail_hdl 0 thumbnail_hdl",
            "4344 4 i32 reader photo phototype.0:type 0 type",
            "4348 4 i32 reader photo phototype.0.single:outputformat 0 outputformat",
            "4352 4 u32 reader photo phototype.0.lapse:interval_time 0 interval_time",
            "4356 4 name query photo phototype.0.burst:mediamode - phototype.0.burst:mediamode",
            "4360 4 i32 reader photo phototype.0.burst:burst_type 0 LoadIntValueByNodePrefix"));
    EXPECT_EQ(lines[14], "0 4 u32 reader photo osd:osdcnt 0 osdcnt");
    EXPECT_EQ(lines.back(), "4364 12 bytes nobody - - - -");
    EXPECT_EQ(lines.size(), 14 + 5 + 16 * (8 + 4 * 11) + 1U);
}

TEST(Photo, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = Fields(), .size = 4376, .load = Load, .base = EmptyTree()});
}

TEST(Photo, EverythingAbsentLeavesEverythingZero) {
    const LoadResult result = LoadTree(EmptyTree());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kPhotoWorkModeTable, std::string(4376, '\0'), result.record));
}

TEST(Photo, WholeModeByHand) {
    ProductTree tree;
    tree.Set("photo", "common.mediamode.config.0:camid", "1")
        .Set("photo", "common.mediamode.config.0:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_2160P")
        .Set("photo", "photosource.0:enable", "yes")
        .Set("photo", "photosource.0:vcappipehdl", "2")
        .Set("photo", "photosource.0:pipechnhdl", "3")
        .Set("photo", "photosource.0:vpsshdl", "4")
        .Set("photo", "photosource.0:vporthdl", "5")
        .Set("photo", "photosource.0:venchdl", "6")
        .Set("photo", "photosource.0:thumbnail_hdl", "-7")
        .Set("photo", "phototype.0:type", "-1")
        .Set("photo", "phototype.0.single:outputformat", "8")
        .Set("photo", "phototype.0.lapse:interval_time", "-9")
        .Set("photo", "phototype.0.burst:mediamode", "QX_PARAM_MEDIAMODE_1080P_60")
        .Set("photo", "phototype.0.burst:burst_type", "12")
        .Set("photo", "osd:base_font_h", "10");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kPhotoWorkModeTable,
                           std::string(8, '\0') + std::string("\x0a\0\0\0", 4) +
                               std::string(4296, '\0') +
                               std::string("\1\0\0\0\x30\0\0\0"
                                           "\1\0\0\0\2\0\0\0\3\0\0\0\4\0\0\0\5\0\0\0\6\0\0\0"
                                           "\xf9\xff\xff\xff"
                                           "\xff\xff\xff\xff\x08\0\0\0\xf7\xff\xff\xff"
                                           "\x0b\0\0\0\x0c\0\0\0",
                                           56) +
                               std::string(12, '\0'),
                           result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: Photo mediamode Configure:\n",
            "PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_PHOTO_2160P] Enum[48]\n",
            "PDT_INIPARAM_LoadCamMediaModeCfg: common.mediamode.config.0,CAMID[1] mediaMode[48]\n",
            "PDT_INIPARAM_LoadPhotoCfg: Photo PhotoSrc\n",
            "PDT_INIPARAM_LoadPhotoAttr: photosource:enable[1],vcappipehdl[2],pipechnhdl[3],"
            "vpsshdl[4],vporthdl[5],venchdl[6],vencThmHdl[-7]\n",
            "PDT_INIPARAM_LoadPhotoCfg: Photo type\n",
            "PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_1080P_60] Enum[11]\n",
            "PDT_INIPARAM_LoadPhotoBurstAttr: MediaMode[11], BurstType[12:0-3_1,1-5_1,2-10_1,"
            "3-15_1,4-30_1,5-20_2,6-30_2,7-30_3]\n",
            "PDT_INIPARAM_LoadPhotoCfg: photo type cfg: type[4294967295], single_outputformat[8], "
            "lapse_interval[4294967287]",
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: Photo Osd\n",
            "PDT_INIPARAM_LoadOsdCfg: s32OsdCnt[0] BaseFontSize[0,10] BaseRes[0,0]\n"));
}

TEST(Photo, UnknownBurstMediaModeFails) {
    const LoadResult result =
        LoadTree(EmptyTree().Set("photo", "phototype.0.burst:mediamode", "QX_PARAM"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre(
            "PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[QX_PARAM]\n",
            "PDT_INIPARAM_LoadPhotoBurstAttr: [phototype.0.burst:mediamode] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadPhotoCfg: [LoadPhotoBurstAttr] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg] failed[0xFFFFFFFF]\n"));
}

TEST(Photo, UnknownMediaModeNamesItsNode) {
    const LoadResult result =
        LoadTree(EmptyTree().Set("photo", "common.mediamode.config.0:mediamode", "no"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[no]\n",
                            "PDT_INIPARAM_LoadCamMediaModeCfg: "
                            "[common.mediamode.config.0:mediamode] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadPhotoWorkModeCfg: [common.mediamode.config.0] "
                            "failed[0xFFFFFFFF]\n"));
}

TEST(Photo, BurstTypeGoesByItsReadersName) {
    const LoadResult result =
        LoadTree(EmptyTree().Set("photo", "phototype.0.burst:burst_type", "-2147483649"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadIntValueByNodePrefix: [phototype.0.burst:burst_type] "
            "failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadPhotoBurstAttr: [LoadIntValueByNodePrefix] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadPhotoCfg: [LoadPhotoBurstAttr] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg] failed[0xFFFFFFFF]\n"));
}

TEST(Photo, SourcesAndKindsHaveTheirLabels) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("photo", "photosource.0:venchdl", "9999999999")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [photosource.0:venchdl] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoAttr: [venchdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoCfg: [PhotoSrc] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("photo", "phototype.0.lapse:interval_time", "9999999999"))
                     .output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [phototype.0.lapse:interval_time] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoCfg: [interval_time] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("photo", "osd:osdcnt", "9999999999")).output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [osd:osdcnt] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadOsdCfg: [osdcnt] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Osd] failed[0xFFFFFFFF]\n"));
}

TEST(Photo, BurstNodeThatDoesNotFitHasAnOddLabel) {
    PhotoBurstCfg cfg = {};
    Status status = 0;
    const std::string output = CaptureStdout([&] {
        status = PDT_INIPARAM_LoadPhotoBurstAttr("photo", std::string(118, 'n').c_str(), &cfg);
    });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadPhotoBurstAttr: [ret = ret = sprintf_s] failed\n"));
}

TEST(Photo, BurstNodeThatJustFitsIsQueried) {
    const RegisteredProduct product(EmptyTree());
    PhotoBurstCfg cfg = {};
    Status status = 0;
    const std::string output = CaptureStdout([&] {
        status = PDT_INIPARAM_LoadPhotoBurstAttr("photo", std::string(117, 'n').c_str(), &cfg);
    });
    // ":mediamode" fits, ":burst_type" does not.
    EXPECT_EQ(status, -1);
    EXPECT_THAT(
        ErrorsOf(output),
        ElementsAre(
            "PDT_INIPARAM_LoadIntValueByNodePrefix: [sprintf_s] failed\n",
            "PDT_INIPARAM_LoadPhotoBurstAttr: [LoadIntValueByNodePrefix] failed[0xFFFFFFFF]\n"));
}

TEST(Photo, AbsentBurstMediaModeKeepsTheField) {
    const RegisteredProduct product(EmptyTree());
    PhotoBurstCfg cfg = {.mediaMode = static_cast<MediaMode>(5), .type = 6};
    CaptureStdout(
        [&] { EXPECT_EQ(PDT_INIPARAM_LoadPhotoBurstAttr("photo", "phototype.0.burst", &cfg), 0); });
    EXPECT_EQ(cfg.mediaMode, 5);
    EXPECT_EQ(cfg.type, 0);
}

}  // namespace
}  // namespace paramgen::testing
