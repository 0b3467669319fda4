#include "param/camera/vproc_spec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/spec_rows.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadCamVpssSpecAttr("mode", 0, static_cast<MediaMode>(7),
                                            static_cast<VpssSpecAttr*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule("mode");
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 464, Load);
}

/// The rows of a port's record at `offset`.
Lines PortLines(std::size_t offset, const std::string& node) {
    return SpecLines(
        {
            {0, "4 u32 reader", "res_width", "0", "="},
            {4, "4 u32 reader", "res_height", "0", "="},
            {8, "8 bytes nobody", "-", "-", "-"},
            {16, "4 i32 reader", "src_framerate", "0", "="},
            {20, "4 i32 reader", "dst_framerate", "0", "="},
            {24, "4 u32 reader", "wrapbufline", "0", "="},
            {28, "4 i32 reader", "crop_start_x", "0", "="},
            {32, "4 i32 reader", "crop_start_y", "0", "="},
            {36, "4 u32 reader", "crop_width", "0", "="},
            {40, "4 u32 reader", "crop_height", "0", "="},
            {44, "4 u32 constant", "-", "0", "-"},
        },
        offset, "mode", node);
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(VprocSpec, TableIsTheRecordsLayout) {
    Lines expected = SpecLines(
        {
            {0, "4 u32 reader", "max_width", "0", "="},
            {4, "4 u32 reader", "max_height", "0", "="},
            {8, "4 i32 reader", "src_framerate", "0", "="},
            {12, "4 i32 reader", "dst_framerate", "0", "="},
            {16, "4 i32 reader", "crop_start_x", "0", "="},
            {20, "4 i32 reader", "crop_start_y", "0", "="},
            {24, "4 u32 reader", "crop_width", "0", "="},
            {28, "4 u32 reader", "crop_height", "0", "="},
        },
        0, "mode", "vpss.0");
    AppendLines(&expected, LdcLines(320));
    AppendLines(&expected, PortLines(32, "vpss.0.vport.0"));
    AppendLines(&expected, PortLines(80, "vpss.0.vport.1"));
    AppendLines(&expected, PortLines(128, "vpss.0.vport.2"));
    AppendLines(&expected, PortLines(176, "vpss.0.vport.3"));
    AppendLines(&expected, PortLines(224, "vpss.0.extvport.0"));
    AppendLines(&expected, PortLines(272, "vpss.0.extvport.1"));
    EXPECT_EQ(DescribeTable(kVpssSpecTable, "mode", "", {0}), expected);
}

TEST(VprocSpec, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVpssSpecTable, "mode", "", {0}),
               .size = 464,
               .load = Load,
               .base = EmptyTree().Set("cam0_ldccfg_0", "common:mediamode",
                                       "QX_PARAM_MEDIAMODE_1080P_30")});
}

TEST(VprocSpec, WholeRecordByHand) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "vpss.0:max_width", "3840")
        .Set("mode", "vpss.0:max_height", "2160")
        .Set("mode", "vpss.0:src_framerate", "60")
        .Set("mode", "vpss.0:dst_framerate", "-1")
        .Set("mode", "vpss.0:crop_start_x", "-2")
        .Set("mode", "vpss.0:crop_start_y", "4")
        .Set("mode", "vpss.0:crop_width", "3836")
        .Set("mode", "vpss.0:crop_height", "2152")
        .Set("mode", "vpss.0.vport.1:res_width", "1024")
        .Set("mode", "vpss.0.vport.1:res_height", "576")
        .Set("mode", "vpss.0.vport.1:src_framerate", "30")
        .Set("mode", "vpss.0.vport.1:dst_framerate", "25")
        .Set("mode", "vpss.0.vport.1:wrapbufline", "128")
        .Set("mode", "vpss.0.vport.1:crop_start_x", "6")
        .Set("mode", "vpss.0.vport.1:crop_start_y", "-8")
        .Set("mode", "vpss.0.vport.1:crop_width", "1012")
        .Set("mode", "vpss.0.vport.1:crop_height", "560")
        .Set("mode", "vpss.0.extvport.1:crop_height", "90")
        .Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30")
        .Set("cam0_ldccfg_1", "LDCV3Attr:coef_intp_ratio", "35");
    std::string expected;
    for (const int word : {3840, 2160, 60, -1, -2, 4, 3836, 2152}) {
        expected += Word(word);
    }
    expected += std::string(48, '\0');
    for (const int word : {1024, 576, 0, 0, 30, 25, 128, 6, -8, 1012, 560, 0}) {
        expected += Word(word);
    }
    expected += std::string(3 * 48 + 40, '\0') + Word(90) + Word(0) + std::string(140, '\0');
    expected += Word(35);
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVpssSpecTable, expected, result.record));
}

TEST(VprocSpec, EchoIsInReadingOrder) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "vpss.0:max_width", "-1")
        .Set("mode", "vpss.0:crop_start_x", "-2")
        .Set("mode", "vpss.0.vport.3:dst_framerate", "-6")
        .Set("mode", "vpss.0.vport.3:wrapbufline", "7")
        .Set("mode", "vpss.0.extvport.0:crop_start_y", "-711");
    Lines echo = {
        "PDT_INIPARAM_LoadCamVpssSpecAttr: vpss[0] spec attr, "
        "max_width[4294967295],max_height[0],src_framerate[0],dst_framerate[0] \n",
        "PDT_INIPARAM_LoadCamVpssSpecAttr: vpss.0 "
        "attr,crop_start_x[4294967294],crop_start_y[0],crop_width[0],crop_height[0] \n",
        "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[0] LDCv1 v3Configure:\n",
        "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[1] LDCv1 v3Configure:\n",
    };
    for (const std::string node : {"vpss.0.vport.0", "vpss.0.vport.1", "vpss.0.vport.2",
                                   "vpss.0.vport.3", "vpss.0.extvport.0", "vpss.0.extvport.1"}) {
        const bool isThird = node == "vpss.0.vport.3";
        echo.push_back("PDT_INIPARAM_LoadCamVportSpecCfg: " + node +
                       " attr,res_width[0],res_height[0],src_framerate[0],dst_framerate[" +
                       (isThird ? "-6],wrapBufLine[7] \n" : "0],wrapBufLine[0] \n"));
        echo.push_back("PDT_INIPARAM_LoadCamVportSpecCfg: " + node +
                       " attr,crop_start_x[0],crop_start_y[" +
                       (node == "vpss.0.extvport.0" ? "4294966585" : "0") +
                       "],crop_width[0],crop_height[0] \n");
    }
    EXPECT_EQ(EchoOf(LoadTree(tree).output), echo);
}

TEST(VprocSpec, PortsKeepTheirReservedWords) {
    VpssSpecAttr attr;
    std::memset(&attr, 0x55, sizeof attr);
    const RegisteredProduct product(EmptyTree());
    CaptureStdout([&] { EXPECT_EQ(Load(&attr), 0); });
    for (const VportSpecCfg& port : attr.vports) {
        EXPECT_EQ(port.reserved[0], std::byte{0x55});
        EXPECT_EQ(port.zero, 0U);
    }
    for (const VportSpecCfg& port : attr.extVports) {
        EXPECT_EQ(port.reserved[7], std::byte{0x55});
        EXPECT_EQ(port.zero, 0U);
    }
}

TEST(VprocSpec, OtherModesCorrectionIsNotTaken) {
    ProductTree tree = EmptyTree();
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30")
        .Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "5");
    EXPECT_EQ(LoadTree(tree).record.substr(320), std::string(144, '\0'));
}

/// The chain of failures of a module whose `key` is bad.
Lines ErrorsOfBad(const std::string& key) {
    const LoadResult result = LoadTree(EmptyTree().Set("mode", key, "2147483648"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

TEST(VprocSpec, BadGroupIsLabelledWithItsBareKey) {
    EXPECT_THAT(ErrorsOfBad("vpss.0:crop_width"),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vpss.0:crop_width] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadCamVpssSpecAttr: [crop_width] failed[0xFFFFFFFF]\n"));
}

TEST(VprocSpec, BadPortsHaveTheirLabels) {
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.vport.2:crop_start_y"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vpss.0.vport.2:crop_start_y] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVportSpecCfg: [crop_start_y] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVpssSpecAttr: [vport spec config] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOfBad("vpss.0.extvport.1:wrapbufline"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vpss.0.extvport.1:wrapbufline] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVportSpecCfg: [wrapbufline] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVpssSpecAttr: [ext vport spec config] "
                    "failed[0xFFFFFFFF]\n"));
}

TEST(VprocSpec, BadCorrectionComesBeforeThePorts) {
    ProductTree tree = EmptyTree();
    tree.Set("cam0_ldccfg_0", "common:mediamode", "?")
        .Set("mode", "vpss.0.vport.0:res_width", "2147483648");
    EXPECT_THAT(
        ErrorsOf(LoadTree(tree).output),
        ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[?]\n",
                    "PDT_INIPARAM_LoadCamVportSpecLDCCfg: [common:mediamode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVpssSpecAttr: [ldcV1 ldcV3 CFG] failed[0xFFFFFFFF]\n"));
}

TEST(VprocSpec, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vpss.0:max_width] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCamVpssSpecAttr: [max_width] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
