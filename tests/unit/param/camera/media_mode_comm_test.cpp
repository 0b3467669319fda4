#include "param/camera/media_mode_comm.h"

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
    return PDT_INIPARAM_LoadMediaModeCommCfg("m", static_cast<CamMediaModeCommCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 1164, Load);
}

Status LoadCrop(void* record) {
    return PDT_INIPARAM_LoadCamDispCropCfg("m", static_cast<DispCropCfg*>(record));
}

std::vector<std::string> ErrorsOfBad(const std::string& key) {
    const LoadResult result = LoadTree(EmptyModule().Set("m", key, "2147483648"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

TEST(DispCrop, TableIsTheRecordsLayout) {
    EXPECT_THAT(DescribeTable(kDispCropTable, "m"),
                ElementsAre("0 4 bool reader m disp.window.crop:enable 0 disp.window.crop:enable",
                            "4 4 u32 reader m disp.window.crop:max_h 0 disp.window.crop:max_h",
                            "8 4 u32 reader m disp.window.crop:cur_h 0 disp.window.crop:cur_h",
                            "12 4 i32 reader m disp.window.crop:mode 0 disp.window.crop:mode"));
}

TEST(DispCrop, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kDispCropTable, "m"),
               .size = 16,
               .load = LoadCrop,
               .base = EmptyModule()});
}

TEST(DispCrop, IsEchoedWithNumbersAsSigned) {
    ProductTree tree;
    tree.Set("m", "disp.window.crop:enable", "true")
        .Set("m", "disp.window.crop:max_h", "432")
        .Set("m", "disp.window.crop:cur_h", "-1")
        .Set("m", "disp.window.crop:mode", "-2");
    const LoadResult result = RunLoad(tree, 16, LoadCrop);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kDispCropTable,
                           std::string("\1\0\0\0\xb0\1\0\0\xff\xff\xff\xff\xfe\xff\xff\xff", 16),
                           result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamDispCropCfg:    window crop enable[1] maxH[432], "
                            "curH[-1], cropMod[-2]\n"));
}

TEST(DispCrop, ModeStaysWhenItCannotBeRead) {
    ProductTree tree;
    tree.Set("m", "disp.window.crop:mode", "99999999999").Set("m", "disp.window.crop:cur_h", "8");
    const RegisteredProduct product(tree);
    DispCropCfg cfg = {};
    cfg.mode = 6;
    CaptureStdout([&] { EXPECT_EQ(LoadCrop(&cfg), -1); });
    EXPECT_EQ(cfg.mode, 6);
    EXPECT_EQ(cfg.currentHeight, 8U);
}

TEST(MediaModeComm, BlocksLieOneBehindTheOther) {
    std::vector<WalkedField> expected = WalkTable(kVcapCommTable, "m");
    for (const auto& part : {WalkTable(kVprocCommTable, "m", "", {0}, 440),
                             WalkTable(kCamVencCommTable, "m", "", {}, 744),
                             WalkTable(kDispCropTable, "m", "", {}, 1148)}) {
        expected.insert(expected.end(), part.begin(), part.end());
    }
    std::vector<std::string> lines;
    for (const WalkedField& walked : expected) {
        lines.push_back(Describe(walked));
    }
    EXPECT_EQ(DescribeTable(kCamMediaModeCommTable, "m"), lines);
}

TEST(MediaModeComm, EachLoaderFillsItsOwnBlock) {
    ProductTree tree;
    tree.Set("m", "vcap.dev:enable", "1")
        .Set("m", "vcap.pipe.3.chn.0:ldcEnable", "1")
        .Set("m", "vpss.0:enable", "1")
        .Set("m", "vpss.0.extvport.1:lowdelayline", "2")
        .Set("m", "venc.0:enable", "1")
        .Set("m", "venc.0.intraRefresh:reqIQp", "3")
        .Set("m", "disp.window.crop:enable", "1")
        .Set("m", "disp.window.crop:mode", "4");
    std::string expected(1164, '\0');
    PutWord(&expected, 0, 1);
    PutWord(&expected, 280, 1);
    PutWord(&expected, 440, 1);
    PutWord(&expected, 740, 2);
    PutWord(&expected, 744, 1);
    PutWord(&expected, 748, 1);
    PutWord(&expected, 824, 3);
    PutWord(&expected, 1148, 1);
    PutWord(&expected, 1160, 4);
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaModeCommTable, expected, result.record));
}

TEST(MediaModeComm, EmptyModuleGivesZeros) {
    const LoadResult result = LoadTree(EmptyModule());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaModeCommTable, std::string(1164, '\0'), result.record));
}

TEST(MediaModeComm, EmptyModulesWholeEcho) {
    std::vector<std::string> expected = {
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev comm attr  enable[0],vcapdevhdl[0] "
        "wdr_mode[0]\n",
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev comm attr  input_mode[0] interface_mode[0] "
        "datasequce[0] inputdatatype[0]\n",
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev AIBNR attr  enable[0]  masterpipe[0] "
        "modelpath[]\n",
    };
    for (const std::string pipe : {"0", "1", "2", "3"}) {
        Append(&expected,
               {"PDT_INIPARAM_LoadCamVcapPipeCommCfg: pipe[" + pipe +
                    "] comm attr, vcappipehdl[0], pipetype[0], lowdelayenable[0], "
                    "lowdelayline[0]\n",
                "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: pipe[" + pipe +
                    "]  chn[0] comm attr, enable[0], pipechnhdl[0], pixelformat[0, "
                    "0-yuv420,1-yuv422] \n",
                "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: "
                "rotate[0],isMirror[0],isFlip[0],brightness[0],saturation[0] \n",
                "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo: lowdelayenable[0] lowdelayline[0] "
                "isLdcV1[0] ldcEnable[0]\n"});
    }
    Append(&expected,
           {"PDT_INIPARAM_LoadCamVprocNrAttr: nr attr, "
            "nrmotionmode[0],nrcompressmode[0],nrType[0] \n",
            "PDT_INIPARAM_LoadCamVprocCommArg: vpss[0] attr, "
            "enable[0],vpsshdl[0],vcappipehdl[0],pipeChnHdl[0],pixelformat[0] nrEnable[0]\n"});
    for (const std::string port : {"0", "1", "2", "3"}) {
        Append(&expected,
               {"PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[" + port +
                    "] attr,enable[0],vporthdl[0],rotate[0],isMirror[0]\n",
                "PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[" + port +
                    "] attr,isFlip[0], buffershare[0], cropenable[0]\n",
                "PDT_INIPARAM_LoadCamVportCommCfg: video_format[0,0-LINEAR,1-TILE,2-TILE64], "
                "pixelformat[0,0-yuv420,1-yuv422] \n",
                "PDT_INIPARAM_LoadCamVportCommCfg: lowdelayenable[0] lineCnt[0]\n"});
    }
    for (const std::string port : {"0", "1"}) {
        expected.push_back("PDT_INIPARAM_LoadExtVportCommCfg: vpss[0]vport[" + port +
                           "] attr,enable[0],vporthdl[0],bindvporthdl[0], cropenable[0]\n");
    }
    Append(&expected,
           {"PDT_PARAM_LoadCamVencBindSrcAttr: bindMod[0] bindCnt[0]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: venc[0] attr, enable[0],venchdl[0]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: payload[0,0-h264,1-h265,2-mjpeg,3-jpeg,4-aac] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: rcmode[0,0-cbr,1-vbr] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: type[0,0-main video,1-sub video,2-single "
            "snap,3-sub snap] \n",
            "PDT_INIPARAM_LoadVencChnIntraFreshCfg: venc[0] intraRefresh attr, "
            "refreshEnable[0],intraRefreshMode[0,0-row,1-col],refreshNum[0],reqIQp[0] \n",
            "PDT_INIPARAM_LoadCamVencCommCfg: \033[1;33mvenc comm  venccnt[0] \n\033[m",
            "PDT_INIPARAM_LoadCamDispCropCfg:    window crop enable[0] maxH[0], curH[0], "
            "cropMod[0]\n"});
    EXPECT_EQ(EchoOf(LoadTree(EmptyModule()).output), expected);
}

TEST(MediaModeComm, EachBlockHasItsLabel) {
    EXPECT_EQ(ErrorsOfBad("vcap.dev:wdr_mode").back(),
              "PDT_INIPARAM_LoadMediaModeCommCfg: [vcap comm] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(ErrorsOfBad("vpss.0:vpsshdl").back(),
              "PDT_INIPARAM_LoadMediaModeCommCfg: [vproc comm] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(ErrorsOfBad("venc.0:venchdl").back(),
              "PDT_INIPARAM_LoadMediaModeCommCfg: [venc comm] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(ErrorsOfBad("disp.window.crop:mode").back(),
              "PDT_INIPARAM_LoadMediaModeCommCfg: [crop config] failed[0xFFFFFFFF]\n");
}

TEST(MediaModeComm, WholeChainsOfFailures) {
    EXPECT_THAT(
        ErrorsOfBad("venc.0:type"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [venc.0:type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommAttr: [type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [venc comm] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("disp.window.crop:max_h"),
        ElementsAre(
            "PDT_INIPARAM_LoadUintValueByNodePrefix: [disp.window.crop:max_h] "
            "failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamDispCropCfg: [disp.window.crop:max_h] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadMediaModeCommCfg: [crop config] failed[0xFFFFFFFF]\n"));
}

TEST(MediaModeComm, FailureOfABlockKeepsLaterOnesFromLoading) {
    ProductTree tree;
    tree.Set("m", "vcap.dev:vcapdevhdl", "5")
        .Set("m", "vpss.0:vpsshdl", "99999999999")
        .Set("m", "venc.0:enable", "1")
        .Set("m", "disp.window.crop:enable", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, -1);
    std::string expected(1164, '\0');
    PutWord(&expected, 4, 5);
    EXPECT_TRUE(SameRecord(kCamMediaModeCommTable, expected, result.record));
}

}  // namespace
}  // namespace paramgen::testing
