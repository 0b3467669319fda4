#include "param/camera/vcap_comm.h"

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
    return PDT_INIPARAM_LoadCamVcapCommCfg("m", static_cast<VcapCommCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 440, Load);
}

std::vector<std::string> ErrorsOfBad(const std::string& key) {
    const LoadResult result = LoadTree(EmptyModule().Set("m", key, "2147483648"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

// The rows of a pipe, and of a channel, in reading order.
const std::vector<WordRow> kPipeRows = {
    {0, "i32", "vcappipehdl"},
    {4, "i32", "pipetype"},
    {8, "bool", "lowdelayenable"},
    {12, "u32", "lowdelayline"},
};
const std::vector<WordRow> kChnRows = {
    {0, "bool", "enable"},       {4, "i32", "pipechnhdl"},  {8, "i32", "pixelformat"},
    {12, "i32", "rotate"},       {20, "bool", "mirror"},    {16, "bool", "flip"},
    {24, "i32", "brightness"},   {28, "i32", "saturation"}, {32, "bool", "lowdelayenable"},
    {36, "u32", "lowdelayline"}, {40, "bool", "isLdcV1"},   {44, "bool", "ldcEnable"},
};

TEST(VcapComm, TableIsTheBlocksLayout) {
    std::vector<std::string> expected = {
        "0 4 bool reader m vcap.dev:enable 0 vcap.dev:enable",
        "4 4 i32 reader m vcap.dev:vcapdevhdl 0 vcap.dev:vcapdevhdl",
        "8 4 i32 reader m vcap.dev:wdr_mode 0 vcap.dev:wdr_mode",
        "12 4 i32 reader m vcap.dev:input_mode 0 vcap.dev:input_mode",
        "16 4 i32 reader m vcap.dev:interface_mode 0 vcap.dev:interface_mode",
        "20 4 i32 reader m vcap.dev:datasequce 0 vcap.dev:datasequce",
        "24 4 i32 reader m vcap.dev:inputdatatype 0 vcap.dev:inputdatatype",
        "284 4 bytes nobody - - - -",
        "288 4 bytes nobody - - - -",
        "292 4 bytes nobody - - - -",
        "296 12 bytes nobody - - - -",
        "308 132 bytes nobody - - - -",
    };
    for (std::size_t pipe = 0; pipe < 4; ++pipe) {
        const std::string node = "vcap.pipe." + std::to_string(pipe);
        Append(&expected, DescribeWords(28 + 64 * pipe, node, kPipeRows));
        Append(&expected, DescribeWords(44 + 64 * pipe, node + ".chn.0", kChnRows));
    }
    EXPECT_EQ(DescribeTable(kVcapCommTable, "m"), expected);
}

TEST(VcapComm, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVcapCommTable, "m"),
               .size = 440,
               .load = Load,
               .base = EmptyModule()});
}

TEST(VcapComm, ModuleWithoutCaptureGivesZeros) {
    ProductTree tree;
    tree.Set("m", "vpss.0:enable", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVcapCommTable, std::string(440, '\0'), result.record));
}

ProductTree BlockByHand() {
    ProductTree tree;
    tree.Set("m", "vcap.dev:enable", "yes")
        .Set("m", "vcap.dev:vcapdevhdl", "1")
        .Set("m", "vcap.dev:wdr_mode", "2")
        .Set("m", "vcap.dev:input_mode", "3")
        .Set("m", "vcap.dev:interface_mode", "-4")
        .Set("m", "vcap.dev:datasequce", "5")
        .Set("m", "vcap.dev:inputdatatype", "6")
        .Set("m", "vcap.pipe.0:vcappipehdl", "-1")
        .Set("m", "vcap.pipe.2:vcappipehdl", "21")
        .Set("m", "vcap.pipe.2:pipetype", "22")
        .Set("m", "vcap.pipe.2:lowdelayenable", "1")
        .Set("m", "vcap.pipe.2:lowdelayline", "540")
        .Set("m", "vcap.pipe.2.chn.0:enable", "1")
        .Set("m", "vcap.pipe.2.chn.0:pipechnhdl", "31")
        .Set("m", "vcap.pipe.2.chn.0:pixelformat", "1")
        .Set("m", "vcap.pipe.2.chn.0:rotate", "3")
        .Set("m", "vcap.pipe.2.chn.0:mirror", "0")
        .Set("m", "vcap.pipe.2.chn.0:flip", "1")
        .Set("m", "vcap.pipe.2.chn.0:brightness", "52")
        .Set("m", "vcap.pipe.2.chn.0:saturation", "-56")
        .Set("m", "vcap.pipe.2.chn.0:lowdelayenable", "0")
        .Set("m", "vcap.pipe.2.chn.0:lowdelayline", "-1")
        .Set("m", "vcap.pipe.2.chn.0:isLdcV1", "T")
        .Set("m", "vcap.pipe.2.chn.0:ldcEnable", "y");
    return tree;
}

TEST(VcapComm, WholeBlockByHand) {
    std::string expected(440, '\0');
    const char device[] =
        "\x01\0\0\0\x01\0\0\0\x02\0\0\0\x03\0\0\0\xfc\xff\xff\xff\x05\0\0\0\x06\0\0\0";
    expected.replace(0, 28, std::string(device, 28));
    expected.replace(28, 4, "\xff\xff\xff\xff");
    const char pipe[] = "\x15\0\0\0\x16\0\0\0\x01\0\0\0\x1c\x02\0\0";
    expected.replace(156, 16, std::string(pipe, 16));
    const char chn[] =
        "\x01\0\0\0\x1f\0\0\0\x01\0\0\0\x03\0\0\0"       // up to the rotation
        "\x01\0\0\0\0\0\0\0\x34\0\0\0\xc8\xff\xff\xff"   // flip, mirror, colours
        "\0\0\0\0\xff\xff\xff\xff\x01\0\0\0\x01\0\0\0";  // low delay, lens
    expected.replace(172, 48, std::string(chn, 48));
    const LoadResult result = LoadTree(BlockByHand());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVcapCommTable, expected, result.record));
}

/// The echo of a pipe that has no keys except for its handle.
std::vector<std::string> PipeEcho(int pipe, int handle) {
    const std::string number = std::to_string(pipe);
    return {"PDT_INIPARAM_LoadCamVcapPipeCommCfg: pipe[" + number + "] comm attr, vcappipehdl[" +
                std::to_string(handle) + "], pipetype[0], lowdelayenable[0], lowdelayline[0]\n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: pipe[" + number +
                "]  chn[0] comm attr, enable[0], pipechnhdl[0], "
                "pixelformat[0, 0-yuv420,1-yuv422] \n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: "
            "rotate[0],isMirror[0],isFlip[0],brightness[0],saturation[0] \n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo: lowdelayenable[0] lowdelayline[0] "
            "isLdcV1[0] ldcEnable[0]\n"};
}

TEST(VcapComm, EchoesDeviceThenEachPipe) {
    std::vector<std::string> expected = {
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev comm attr  enable[1],vcapdevhdl[1] "
        "wdr_mode[2]\n",
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev comm attr  input_mode[3] interface_mode[-4] "
        "datasequce[5] inputdatatype[6]\n",
        "PDT_INIPARAM_LoadCamVcapCommCfg: vcap dev AIBNR attr  enable[0]  masterpipe[0] "
        "modelpath[]\n",
    };
    Append(&expected, PipeEcho(0, -1));
    Append(&expected, PipeEcho(1, 0));
    Append(&expected,
           {"PDT_INIPARAM_LoadCamVcapPipeCommCfg: pipe[2] comm attr, vcappipehdl[21], "
            "pipetype[22], lowdelayenable[1], lowdelayline[540]\n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: pipe[2]  chn[0] comm attr, enable[1], "
            "pipechnhdl[31], pixelformat[1, 0-yuv420,1-yuv422] \n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: "
            "rotate[3],isMirror[0],isFlip[1],brightness[52],saturation[-56] \n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo: lowdelayenable[0] lowdelayline[-1] "
            "isLdcV1[1] ldcEnable[1]\n"});
    Append(&expected, PipeEcho(3, 0));
    EXPECT_EQ(EchoOf(LoadTree(BlockByHand()).output), expected);
}

TEST(VcapComm, NeitherChannelOneNorPipeFourIsRead) {
    ProductTree tree;
    for (const std::string node : {"vcap.pipe.0.chn.1", "vcap.pipe.4", "vcap.pipe.4.chn.0"}) {
        for (const std::string item : {"enable", "vcappipehdl", "pipechnhdl", "brightness"}) {
            tree.Set("m", node + ":" + item, "1");
        }
    }
    EXPECT_EQ(LoadTree(tree).record, std::string(440, '\0'));
}

TEST(VcapComm, NoKeyFillsTheModelsNoiseReduction) {
    VcapCommCfg cfg = {};
    EXPECT_EQ(PDT_INIPARAM_LoadCamVcapAibnrAttr("m", &cfg), 0);
    EXPECT_EQ(PDT_INIPARAM_LoadCamVcapAibnrModelAttr("m", &cfg), 0);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&cfg), 440), std::string(440, '\0'));
}

TEST(VcapComm, BadDeviceValueGoesByItsFullKey) {
    for (const std::string item : {"vcapdevhdl", "wdr_mode", "input_mode", "interface_mode",
                                   "datasequce", "inputdatatype"}) {
        const std::string failed = ": [vcap.dev:" + item + "] failed[0xFFFFFFFF]\n";
        EXPECT_THAT(ErrorsOfBad("vcap.dev:" + item),
                    ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix" + failed,
                                "PDT_INIPARAM_LoadCamVcapCommCfg" + failed));
    }
}

TEST(VcapComm, BadPipeValueGoesByItsKey) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.3:pipetype"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.3:pipetype] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeCommCfg: [pipetype] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapCommCfg: [VcapPipeComm] failed[0xFFFFFFFF]\n"));
}

TEST(VcapComm, BadChannelValueGoesByThePartsName) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.1.chn.0:saturation"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.1.chn.0:saturation] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne: [saturation] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeChnCommCfg: "
                    "[PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeCommCfg: [VcapPipeChnComm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapCommCfg: [VcapPipeComm] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.0.chn.0:lowdelayline"),
        ElementsAre(
            "PDT_INIPARAM_LoadUintValueByNodePrefix: [vcap.pipe.0.chn.0:lowdelayline] "
            "failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo: [lowdelayline] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapPipeChnCommCfg: "
            "[PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapPipeCommCfg: [VcapPipeChnComm] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapCommCfg: [VcapPipeComm] failed[0xFFFFFFFF]\n"));
}

TEST(VcapComm, MissingModuleFailsAtTheFirstKey) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [vcap.dev:enable] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVcapCommCfg: [vcap.dev:enable] failed[0xA1418046]\n"));
}

TEST(VcapComm, WhatWasReadBeforeAFailureStays) {
    const LoadResult result = LoadTree(EmptyModule()
                                           .Set("m", "vcap.dev:vcapdevhdl", "7")
                                           .Set("m", "vcap.pipe.0.chn.0:rotate", "x1")
                                           .Set("m", "vcap.pipe.1:vcappipehdl", "8")
                                           .Set("m", "vcap.pipe.1:pipetype", "99999999999")
                                           .Set("m", "vcap.pipe.2:vcappipehdl", "9"));
    EXPECT_EQ(result.status, -1);
    std::string expected(440, '\0');
    PutWord(&expected, 4, 7);
    PutWord(&expected, 92, 8);
    EXPECT_TRUE(SameRecord(kVcapCommTable, expected, result.record));
}

}  // namespace
}  // namespace paramgen::testing
