#include "param/camera/venc_spec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    return PDT_INIPARAM_LoadCamVencSpecCfg("mode", static_cast<VencSpecCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 188, Load);
}

/// A product in which encoders 0 to `count` - 1 exist.
ProductTree Encoders(int count) {
    ProductTree tree;
    tree.AddModule("mode");
    for (int i = 0; i < count; ++i) {
        tree.Set("mode", "venc." + std::to_string(i) + ":res_width", "16");
    }
    return tree;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(VencSpec, TableIsTheRecordsLayout) {
    Lines expected;
    for (std::size_t i = 0; i < 5; ++i) {
        AppendLines(&expected, SpecLines(
                                   {
                                       {0, "4 u32 query", "res_width", "0", ":"},
                                       {4, "4 u32 reader", "res_height", "0", "="},
                                       {8, "4 u32 reader", "bufsize", "0", "="},
                                       {12, "4 u32 reader", "gop", "0", "="},
                                       {16, "4 i32 reader", "src_framerate", "0", "="},
                                       {20, "4 i32 reader", "dst_framerate", "0", "="},
                                       {28, "4 u32 reader", "h265bitrate", "0", "="},
                                       {24, "4 u32 reader", "h264bitrate", "0", "="},
                                       {32, "4 u32 reader", "stat_time", "0", "="},
                                   },
                                   4 + 36 * i, "mode", "venc." + std::to_string(i)));
    }
    expected.push_back("0 4 u32 loader - - - -");
    expected.push_back("184 4 bytes nobody - - - -");
    EXPECT_EQ(DescribeTable(kVencSpecTable, "mode"), expected);
}

TEST(VencSpec, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVencSpecTable, "mode"),
               .size = 188,
               .load = Load,
               .base = Encoders(5)});
}

TEST(VencSpec, EveryRowOfOneEncoderLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVencSpecAttrTable, "mode", "", {3}),
               .size = 36,
               .load =
                   [](void* record) {
                       std::int32_t exists = 0;
                       return PDT_INIPARAM_LoadCamVencSpecAttr(
                           "mode", 3, static_cast<VencSpecAttr*>(record), &exists);
                   },
               .base = Encoders(0)});
}

TEST(VencSpec, WholeRecordByHand) {
    ProductTree tree;
    tree.Set("mode", "venc.0:res_width", "3840")
        .Set("mode", "venc.0:res_height", "2160")
        .Set("mode", "venc.0:bufsize", "6220800")
        .Set("mode", "venc.0:gop", "60")
        .Set("mode", "venc.0:src_framerate", "-1")
        .Set("mode", "venc.0:dst_framerate", "30")
        .Set("mode", "venc.0:h264bitrate", "40000")
        .Set("mode", "venc.0:h265bitrate", "25000")
        .Set("mode", "venc.0:stat_time", "2")
        .Set("mode", "venc.1:res_height", "7")
        .Set("mode", "venc.2:res_width", "9");
    std::string expected(188, '\0');
    expected.replace(0, 4, std::string("\x01\0\0\0", 4));
    expected.replace(4, 4, std::string("\x00\x0f\0\0", 4));
    expected.replace(8, 4, std::string("\x70\x08\0\0", 4));
    expected.replace(12, 4, std::string("\x00\xec\x5e\0", 4));
    expected.replace(16, 4, std::string("\x3c\0\0\0", 4));
    expected.replace(20, 4, "\xff\xff\xff\xff");
    expected.replace(24, 4, std::string("\x1e\0\0\0", 4));
    expected.replace(28, 4, std::string("\x40\x9c\0\0", 4));
    expected.replace(32, 4, std::string("\xa8\x61\0\0", 4));
    expected.replace(36, 4, std::string("\x02\0\0\0", 4));
    expected.replace(44, 4, std::string("\x07\0\0\0", 4));
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVencSpecTable, expected, result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVencSpecAttr: venc[0] spec attr, "
                    "res_width[3840],res_height[2160],bufsize[6220800]\n",
                    "PDT_INIPARAM_LoadCamVencSpecAttr: "
                    "gop[60],src_framerate[4294967295],dst_framerate[30],h265bitrate[25000],"
                    "h264bitrate[40000] statTime[2S]\n",
                    "PDT_INIPARAM_LoadCamVencSpecAttr: venc[1] spec attr, "
                    "res_width[0],res_height[7],bufsize[0]\n",
                    "PDT_INIPARAM_LoadCamVencSpecAttr: "
                    "gop[0],src_framerate[0],dst_framerate[0],h265bitrate[0],"
                    "h264bitrate[0] statTime[0S]\n",
                    "PDT_INIPARAM_LoadCamVencSpecCfg: \033[1;33mvenc comm  cnt[1] \n\033[m"));
}

TEST(VencSpec, FirstEncoderWithoutWidthIsLoadedButNotCounted) {
    const LoadResult result = LoadTree(Encoders(3)
                                           .Set("mode", "venc.3:gop", "25")
                                           .Set("mode", "venc.4:res_width", "640")
                                           .Set("mode", "venc.4:gop", "50"));
    EXPECT_EQ(WordAt(result.record, 0), Word(3));
    EXPECT_EQ(WordAt(result.record, 4 + 36 * 3 + 12), Word(25));
    EXPECT_EQ(result.record.substr(4 + 36 * 4), std::string(40, '\0'));
}

TEST(VencSpec, CountGoesFromNoneToFive) {
    for (int count = 0; count <= 5; ++count) {
        EXPECT_EQ(WordAt(LoadTree(Encoders(count)).record, 0), Word(count));
    }
}

TEST(VencSpec, EmptyWidthCounts) {
    const LoadResult result = LoadTree(Encoders(0).Set("mode", "venc.0:res_width", "\"\""));
    EXPECT_EQ(WordAt(result.record, 0), Word(1));
    EXPECT_EQ(WordAt(result.record, 4), Word(0));
}

TEST(VencSpec, LaterEncodersAreNotCounted) {
    const LoadResult result = LoadTree(Encoders(5).Set("mode", "venc.5:res_width", "640"));
    EXPECT_EQ(WordAt(result.record, 0), Word(5));
    EXPECT_EQ(WordAt(result.record, 184), Word(0));
}

TEST(VencSpec, BadWidthIsLabelledWithItsKey) {
    const LoadResult result = LoadTree(Encoders(2).Set("mode", "venc.1:res_width", "2147483648"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVencSpecAttr: [venc.1:res_width] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencSpecCfg: [venc spec] failed[0xFFFFFFFF]\n"));
    EXPECT_EQ(WordAt(result.record, 0), Word(1));
}

TEST(VencSpec, BadBitRateIsLabelledWithItsBareKey) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(Encoders(1).Set("mode", "venc.0:h265bitrate", "2147483648")).output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [venc.0:h265bitrate] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencSpecAttr: [h265bitrate] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencSpecCfg: [venc spec] failed[0xFFFFFFFF]\n"));
}

TEST(VencSpec, H265IsReadBeforeH264) {
    EXPECT_EQ(LineAt(ErrorsOf(LoadTree(Encoders(1)
                                           .Set("mode", "venc.0:h264bitrate", "2147483648")
                                           .Set("mode", "venc.0:h265bitrate", "2147483648"))
                                  .output),
                     1),
              "PDT_INIPARAM_LoadCamVencSpecAttr: [h265bitrate] failed[0xFFFFFFFF]\n");
}

TEST(VencSpec, MissingModuleFailsAtTheQuestionForTheWidth) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVencSpecAttr: [venc.0:res_width] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVencSpecCfg: [venc spec] failed[0xA1418046]\n"));
    EXPECT_NE(result.output.find("func:ZV_CONFACCESS_IsConfItemExist,line:630,"
                                 "Error Code: [0xA1418046]\n\n"),
              std::string::npos);
}

}  // namespace
}  // namespace paramgen::testing
