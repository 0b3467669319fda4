#include "param/camera/vproc_comm.h"

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
    return PDT_INIPARAM_LoadCamVprocCommCfg("m", 0, static_cast<VprocCommCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 304, Load);
}

std::vector<std::string> ErrorsOfBad(const std::string& key) {
    const LoadResult result = LoadTree(EmptyModule().Set("m", key, "-2147483649"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

// The rows of a group, in reading order.
const std::vector<WordRow> kGroupRows = {
    {0, "bool", "enable"},         {4, "i32", "vpsshdl"},       {8, "i32", "vcappipehdl"},
    {12, "i32", "pipechnhdl"},     {16, "i32", "pixelformat"},  {40, "bool", "isLdcV1"},
    {44, "bool", "ldcEnable"},     {20, "bool", "nrenable"},    {28, "i32", "type", "nrType"},
    {32, "i32", "nrcompressmode"}, {36, "i32", "nrmotionmode"},
};
const std::vector<WordRow> kVportRows = {
    {0, "bool", "enable"},       {4, "i32", "vporthdl"},         {8, "i32", "rotate"},
    {16, "bool", "mirror"},      {12, "bool", "flip"},           {20, "i32", "cropenable"},
    {32, "i32", "video_format"}, {24, "bool", "buffershare"},    {28, "bool", "ctrlbydisp"},
    {36, "i32", "pixelformat"},  {40, "bool", "lowdelayenable"}, {44, "u32", "lowdelayline"},
};
const std::vector<WordRow> kExtVportRows = {
    {0, "bool", "enable"},          {4, "i32", "vporthdl"},      {8, "i32", "bindvporthdl"},
    {16, "i32", "video_format"},    {20, "i32", "pixelformat"},  {12, "i32", "cropenable"},
    {24, "bool", "lowdelayenable"}, {28, "u32", "lowdelayline"},
};

TEST(VprocComm, TableIsTheBlocksLayout) {
    std::vector<std::string> expected = DescribeWords(0, "vpss.0", kGroupRows);
    for (std::size_t port = 0; port < 4; ++port) {
        Append(&expected,
               DescribeWords(48 + 48 * port, "vpss.0.vport." + std::to_string(port), kVportRows));
    }
    for (std::size_t port = 0; port < 2; ++port) {
        Append(&expected, DescribeWords(240 + 32 * port, "vpss.0.extvport." + std::to_string(port),
                                        kExtVportRows));
    }
    expected.emplace_back("24 4 bytes nobody - - - -");
    EXPECT_EQ(DescribeTable(kVprocCommTable, "m", "", {0}), expected);
}

TEST(VprocComm, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVprocCommTable, "m", "", {0}),
               .size = 304,
               .load = Load,
               .base = EmptyModule()});
}

TEST(VprocComm, ModuleWithoutProcessingGivesZeros) {
    ProductTree tree;
    tree.Set("m", "vcap.dev:enable", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVprocCommTable, std::string(304, '\0'), result.record));
}

TEST(VprocComm, NeitherPortFourNorExtendedPortTwoNorGroupOneIsRead) {
    ProductTree tree;
    for (const std::string node :
         {"vpss.0.vport.4", "vpss.0.extvport.2", "vpss.1", "vpss.1.vport.0", "vpss.1.extvport.0"}) {
        for (const std::string item : {"enable", "vporthdl", "vpsshdl", "cropenable"}) {
            tree.Set("m", node + ":" + item, "1");
        }
    }
    EXPECT_EQ(LoadTree(tree).record, std::string(304, '\0'));
}

ProductTree BlockByHand() {
    ProductTree tree;
    tree.Set("m", "vpss.0:enable", "1")
        .Set("m", "vpss.0:vpsshdl", "2")
        .Set("m", "vpss.0:vcappipehdl", "-3")
        .Set("m", "vpss.0:pipechnhdl", "4")
        .Set("m", "vpss.0:pixelformat", "1")
        .Set("m", "vpss.0:isLdcV1", "0")
        .Set("m", "vpss.0:ldcEnable", "1")
        .Set("m", "vpss.0:nrenable", "1")
        .Set("m", "vpss.0:type", "5")
        .Set("m", "vpss.0:nrcompressmode", "6")
        .Set("m", "vpss.0:nrmotionmode", "7")
        .Set("m", "vpss.0.vport.1:enable", "1")
        .Set("m", "vpss.0.vport.1:vporthdl", "11")
        .Set("m", "vpss.0.vport.1:rotate", "3")
        .Set("m", "vpss.0.vport.1:mirror", "0")
        .Set("m", "vpss.0.vport.1:flip", "1")
        .Set("m", "vpss.0.vport.1:cropenable", "12")
        .Set("m", "vpss.0.vport.1:video_format", "2")
        .Set("m", "vpss.0.vport.1:buffershare", "1")
        .Set("m", "vpss.0.vport.1:ctrlbydisp", "0")
        .Set("m", "vpss.0.vport.1:pixelformat", "1")
        .Set("m", "vpss.0.vport.1:lowdelayenable", "1")
        .Set("m", "vpss.0.vport.1:lowdelayline", "-1")
        .Set("m", "vpss.0.extvport.1:enable", "1")
        .Set("m", "vpss.0.extvport.1:vporthdl", "21")
        .Set("m", "vpss.0.extvport.1:bindvporthdl", "-22")
        .Set("m", "vpss.0.extvport.1:video_format", "1")
        .Set("m", "vpss.0.extvport.1:pixelformat", "1")
        .Set("m", "vpss.0.extvport.1:cropenable", "23")
        .Set("m", "vpss.0.extvport.1:lowdelayenable", "0")
        .Set("m", "vpss.0.extvport.1:lowdelayline", "24");
    return tree;
}

TEST(VprocComm, WholeBlockByHand) {
    std::string expected(304, '\0');
    const char group[] =
        "\x01\0\0\0\x02\0\0\0\xfd\xff\xff\xff\x04\0\0\0"  // up to the feeding channel
        "\x01\0\0\0\x01\0\0\0\0\0\0\0"                    // format, noise reduction, reserved
        "\x05\0\0\0\x06\0\0\0\x07\0\0\0"                  // noise reduction
        "\0\0\0\0\x01\0\0\0";                             // lens
    expected.replace(0, 48, std::string(group, 48));
    const char port[] =
        "\x01\0\0\0\x0b\0\0\0\x03\0\0\0\x01\0\0\0\0\0\0\0"  // up to flip and mirror
        "\x0c\0\0\0\x01\0\0\0\0\0\0\0"                      // crop, shared, by display
        "\x02\0\0\0\x01\0\0\0\x01\0\0\0\xff\xff\xff\xff";   // formats, low delay
    expected.replace(96, 48, std::string(port, 48));
    const char extPort[] =
        "\x01\0\0\0\x15\0\0\0\xea\xff\xff\xff\x17\0\0\0"
        "\x01\0\0\0\x01\0\0\0\0\0\0\0\x18\0\0\0";
    expected.replace(272, 32, std::string(extPort, 32));
    const LoadResult result = LoadTree(BlockByHand());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVprocCommTable, expected, result.record));
}

/// The echo of a port without keys.
std::vector<std::string> VportEcho(int port) {
    const std::string number = std::to_string(port);
    return {"PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[" + number +
                "] attr,enable[0],vporthdl[0],rotate[0],isMirror[0]\n",
            "PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[" + number +
                "] attr,isFlip[0], buffershare[0], cropenable[0]\n",
            "PDT_INIPARAM_LoadCamVportCommCfg: video_format[0,0-LINEAR,1-TILE,2-TILE64], "
            "pixelformat[0,0-yuv420,1-yuv422] \n",
            "PDT_INIPARAM_LoadCamVportCommCfg: lowdelayenable[0] lineCnt[0]\n"};
}

TEST(VprocComm, EchoesNoiseReductionThenGroupThenPorts) {
    std::vector<std::string> expected = {
        "PDT_INIPARAM_LoadCamVprocNrAttr: nr attr, "
        "nrmotionmode[7],nrcompressmode[6],nrType[5] \n",
        "PDT_INIPARAM_LoadCamVprocCommArg: vpss[0] attr, "
        "enable[1],vpsshdl[2],vcappipehdl[-3],pipeChnHdl[4],pixelformat[1] nrEnable[1]\n",
    };
    Append(&expected, VportEcho(0));
    Append(&expected,
           {"PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[1] "
            "attr,enable[1],vporthdl[11],rotate[3],isMirror[0]\n",
            "PDT_INIPARAM_LoadCamVportCommCfg: vpss[0]vport[1] attr,isFlip[1], buffershare[1], "
            "cropenable[12]\n",
            "PDT_INIPARAM_LoadCamVportCommCfg: video_format[2,0-LINEAR,1-TILE,2-TILE64], "
            "pixelformat[1,0-yuv420,1-yuv422] \n",
            "PDT_INIPARAM_LoadCamVportCommCfg: lowdelayenable[1] lineCnt[4294967295]\n"});
    Append(&expected, VportEcho(2));
    Append(&expected, VportEcho(3));
    Append(&expected, {"PDT_INIPARAM_LoadExtVportCommCfg: vpss[0]vport[0] "
                       "attr,enable[0],vporthdl[0],bindvporthdl[0], cropenable[0]\n",
                       "PDT_INIPARAM_LoadExtVportCommCfg: vpss[0]vport[1] "
                       "attr,enable[1],vporthdl[21],bindvporthdl[-22], cropenable[23]\n"});
    EXPECT_EQ(EchoOf(LoadTree(BlockByHand()).output), expected);
}

TEST(VprocComm, BadGroupValueGoesByItsKey) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0:pipechnhdl"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0:pipechnhdl] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommArg: [pipechnhdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [VprocCommArg] failed[0xFFFFFFFF]\n"));
}

TEST(VprocComm, NoiseReductionTypeGoesByAnotherName) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0:type"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0:type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocNrAttr: [nrType] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommArg: [VprocNrAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [VprocCommArg] failed[0xFFFFFFFF]\n"));
}

TEST(VprocComm, BadPortValueGoesByItsKey) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.vport.3:video_format"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0.vport.3:video_format] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVportCommCfg: [video_format] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [vport config] failed[0xFFFFFFFF]\n"));
}

TEST(VprocComm, BadLowDelayOfAPortGoesUpThroughItsPair) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.vport.0:lowdelayline"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vpss.0.vport.0:lowdelayline] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVportLowDelayInfo: [lowdelayline] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVportCommCfg: [lowdelayinfo] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [vport config] failed[0xFFFFFFFF]\n"));
}

TEST(VprocComm, BadExtendedPortValueGoesByItsKey) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.extvport.1:cropenable"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0.extvport.1:cropenable] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadExtVportCommCfg: [cropenable] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [extport config] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.extvport.0:lowdelayline"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vpss.0.extvport.0:lowdelayline] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadExtVportCommCfg: [lowdelayline] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [extport config] failed[0xFFFFFFFF]\n"));
}

TEST(VprocComm, MissingModuleFailsAtTheFirstKey) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [vpss.0:enable] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVprocCommArg: [enable] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVprocCommCfg: [VprocCommArg] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
