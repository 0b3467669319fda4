#include "param/camera/vb_spec.h"

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
using ::testing::IsEmpty;

Status Load(void* record) {
    return PDT_INIPARAM_LoadCamVBSpecCfg("mode", static_cast<VBSpecCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 136, Load);
}

ProductTree Pools(const std::string& count) {
    return ProductTree().Set("mode", "vb:max_poolcnt", count);
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(VBSpec, TableIsTheRecordsLayout) {
    Lines expected = {"0 4 u32 reader mode vb:max_poolcnt 0 vb:max_poolcnt",
                      "4 4 bytes nobody - - - -"};
    for (std::size_t i = 0; i < 8; ++i) {
        AppendLines(&expected, SpecLines(
                                   {
                                       {0, "8 u64 query", "blk_size", "0", ":"},
                                       {8, "4 u32 query", "blk_count", "0", ":"},
                                       {12, "4 bytes nobody", "-", "-", "-"},
                                   },
                                   8 + 16 * i, "mode", "vb.pool." + std::to_string(i)));
    }
    EXPECT_EQ(DescribeTable(kVBSpecTable, "mode"), expected);
}

TEST(VBSpec, EveryRowLoadsItsOwnBytes) {
    CheckRows(
        {.fields = WalkTable(kVBSpecTable, "mode"), .size = 136, .load = Load, .base = Pools("8")});
}

TEST(VBSpec, NothingSetIsAllZero) {
    const LoadResult result = LoadTree(ProductTree().AddModule("mode"));
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVBSpecTable, std::string(136, '\0'), result.record));
    EXPECT_THAT(EchoOf(result.output), IsEmpty());
}

TEST(VBSpec, WholeRecordByHand) {
    const LoadResult result = LoadTree(Pools("2")
                                           .Set("mode", "vb.pool.0:blk_size", "-1")
                                           .Set("mode", "vb.pool.0:blk_count", "3")
                                           .Set("mode", "vb.pool.1:blk_size", "305419896")
                                           .Set("mode", "vb.pool.1:blk_count", "-2")
                                           .Set("mode", "vb.pool.2:blk_size", "7")
                                           .Set("mode", "vb_depth.pool.0:blk_size", "8"));
    std::string expected(136, '\0');
    expected.replace(0, 4, std::string("\x02\0\0\0", 4));
    expected.replace(8, 8, "\xff\xff\xff\xff\xff\xff\xff\xff");
    expected.replace(16, 4, std::string("\x03\0\0\0", 4));
    expected.replace(24, 8, std::string("\x78\x56\x34\x12\0\0\0\0", 8));
    expected.replace(32, 4, "\xfe\xff\xff\xff");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVBSpecTable, expected, result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: Pool[0] "
                            "BlkSize[18446744073709551615Bytes] Count[3]\n",
                            "PDT_INIPARAM_LoadCamVBSpecCfg: Pool[1] BlkSize[305419896Bytes] "
                            "Count[4294967294]\n"));
}

TEST(VBSpec, EightPoolsAreLoaded) {
    const LoadResult result = LoadTree(Pools("8").Set("mode", "vb.pool.7:blk_size", "-2147483648"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(120, 8), std::string("\0\0\0\x80\xff\xff\xff\xff", 8));
    EXPECT_EQ(EchoOf(result.output).size(), 8U);
}

TEST(VBSpec, NinePoolsAreRefusedAndTheCountStays) {
    const LoadResult result = LoadTree(Pools("9").Set("mode", "vb.pool.0:blk_size", "1"));
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record, Padded("\x09", 136));
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: Invalid VB MaxPoolCnt[9 beyond 8]\n"));
    EXPECT_THAT(EchoOf(result.output), IsEmpty());
}

TEST(VBSpec, NegativeCountIsTooMany) {
    const LoadResult result = LoadTree(Pools("-1"));
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record, Padded("\xff\xff\xff\xff", 136));
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: Invalid VB MaxPoolCnt[4294967295 beyond 8]\n"));
}

TEST(VBSpec, BadCountIsLabelledWithItsKey) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(Pools("2147483648")).output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vb:max_poolcnt] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVBSpecCfg: [vb:max_poolcnt] failed[0xFFFFFFFF]\n"));
}

TEST(VBSpec, BadPoolEndsTheLoaderThere) {
    const LoadResult result = LoadTree(Pools("3")
                                           .Set("mode", "vb.pool.0:blk_size", "16")
                                           .Set("mode", "vb.pool.1:blk_size", "32")
                                           .Set("mode", "vb.pool.1:blk_count", "2147483648")
                                           .Set("mode", "vb.pool.2:blk_size", "48"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: [vb.pool.1:blk_count] failed[0xFFFFFFFF]\n"));
    std::string expected = Padded("\x03", 136);
    expected[8] = 16;
    expected[24] = 32;
    EXPECT_TRUE(SameRecord(kVBSpecTable, expected, result.record));
    EXPECT_EQ(EchoOf(result.output).size(), 1U);
}

TEST(VBSpec, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vb:max_poolcnt] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVBSpecCfg: [vb:max_poolcnt] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
