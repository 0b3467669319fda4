#include "param/camera/media_mode_spec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/media_mode_block.h"
#include "unit/param/camera/spec_rows.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadMediaModeSpecCfg(kMediaModeModule,
                                             static_cast<CamMediaModeSpecCfg*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule(kMediaModeModule);
}

ProductTree With(const std::string& key, const std::string& value) {
    return EmptyTree().Set(kMediaModeModule, key, value);
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 1864, Load);
}

/// `lines` of `DescribeTable` for a record that begins at `offset`.
Lines MovedTo(std::size_t offset, const Lines& lines) {
    Lines moved;
    for (const std::string& line : lines) {
        const std::size_t blank = line.find(' ');
        moved.push_back(std::to_string(offset + std::stoul(line.substr(0, blank))) +
                        line.substr(blank));
    }
    return moved;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(MediaModeSpec, TableIsTheBlocksLayout) {
    Lines expected = {"0 4 name loader cam0_mediamode1 common:mediamode - common:mediamode"};
    for (std::size_t i = 0; i < 4; ++i) {
        AppendLines(&expected, SpecLines({{0, "4 i32 query", "vcappipe_hdl", "0", ":"},
                                          {4, "4 i32 query", "vivpssmode", "6", ":"}},
                                         4 + 8 * i, kMediaModeModule,
                                         "common.vcap.pipe." + std::to_string(i)));
    }
    expected.push_back("36 4 bytes nobody - - - -");
    // The rows of these are compared with literal lines in their own tests.
    AppendLines(&expected, MovedTo(40, DescribeTable(kVBSpecTable, kMediaModeModule)));
    AppendLines(&expected, MovedTo(176, DescribeTable(kVcapSpecTable, kMediaModeModule)));
    AppendLines(&expected, MovedTo(1212, DescribeTable(kVpssSpecTable, kMediaModeModule, "", {0})));
    AppendLines(&expected, MovedTo(1676, DescribeTable(kVencSpecTable, kMediaModeModule)));
    EXPECT_EQ(DescribeTable(kCamMediaModeSpecTable, kMediaModeModule), expected);
}

TEST(MediaModeSpec, EveryRowLoadsItsOwnBytes) {
    RowSubject subject = {.fields = WalkTable(kCamMediaModeSpecTable, kMediaModeModule),
                          .size = 1864,
                          .load = Load,
                          .base = With("vb:max_poolcnt", "8")};
    for (int i = 0; i < 5; ++i) {
        subject.base.Set(kMediaModeModule, "venc." + std::to_string(i) + ":res_width", "16");
    }
    subject.probes = {{"vcap.dev:componentmask0", {"258", std::string("\2\1\0\0", 4)}},
                      {"vcap.dev:componentmask1", {"2147483647", "\xff\xff\xff\x7f"}}};
    subject.unreachable = LdcKeys(subject.fields);
    CheckRows(subject);
}

TEST(MediaModeSpec, WholeBlockByHand) {
    Block block;
    block.tree.Set(kMediaModeModule, "common:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_8000P");
    block.bytes.replace(0, 4, Word(52));
    block.Number(4, "common.vcap.pipe.0:vcappipe_hdl", 31);
    block.Number(8, "common.vcap.pipe.0:vivpssmode", 32);
    block.Number(12, "common.vcap.pipe.1:vcappipe_hdl", 33);
    block.Number(16, "common.vcap.pipe.1:vivpssmode", 34);
    block.Number(20, "common.vcap.pipe.2:vcappipe_hdl", -35);
    block.Number(24, "common.vcap.pipe.2:vivpssmode", 36);
    block.Number(28, "common.vcap.pipe.3:vcappipe_hdl", 37);
    block.Number(32, "common.vcap.pipe.3:vivpssmode", -38);
    PutPools(&block);
    PutDevice(&block);
    PutPipe(&block, 0, 252);
    PutPipe(&block, 1, 492);
    PutPipe(&block, 2, 732);
    PutPipe(&block, 3, 972);
    PutGroup(&block);
    PutPort(&block, "vpss.0.vport.0", 400, 1244);
    PutPort(&block, "vpss.0.vport.1", 410, 1292);
    PutPort(&block, "vpss.0.vport.2", 420, 1340);
    PutPort(&block, "vpss.0.vport.3", 430, 1388);
    PutPort(&block, "vpss.0.extvport.0", 440, 1436);
    PutPort(&block, "vpss.0.extvport.1", 450, 1484);
    block.bytes.replace(1676, 4, Word(5));
    PutEncoder(&block, 0, 1680);
    PutEncoder(&block, 1, 1716);
    PutEncoder(&block, 2, 1752);
    PutEncoder(&block, 3, 1788);
    PutEncoder(&block, 4, 1824);

    const LoadResult result = LoadTree(block.tree);
    EXPECT_EQ(result.status, 0);
    ASSERT_EQ(result.record.size(), block.bytes.size());
    for (std::size_t i = 0; i < block.bytes.size(); i += 4) {
        EXPECT_EQ(WordAt(result.record, i), WordAt(block.bytes, i)) << "at " << i;
    }
}

TEST(MediaModeSpec, NothingSetIsZeroButForItsDefaults) {
    const LoadResult result = LoadTree(EmptyTree());
    std::string expected(1864, '\0');
    for (const std::size_t mode : {8U, 16U, 24U, 32U}) {
        expected[mode] = 6;
    }
    for (const std::size_t threshold : {468U, 708U, 948U, 1188U}) {
        expected[threshold] = static_cast<char>(200);
    }
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamMediaModeSpecTable, expected, result.record));
}

TEST(MediaModeSpec, EchoBeginsWithTheModeAndThePipes) {
    const LoadResult result =
        LoadTree(With("common:mediamode", "QX_PARAM_MEDIAMODE_1440P_30_WDR")
                     .Set(kMediaModeModule, "common.vcap.pipe.1:vcappipe_hdl", "1")
                     .Set(kMediaModeModule, "common.vcap.pipe.3:vcappipe_hdl", "-1")
                     .Set(kMediaModeModule, "common.vcap.pipe.3:vivpssmode", "3")
                     .Set(kMediaModeModule, "vb:max_poolcnt", "1"));
    Lines echo = EchoOf(result.output);
    // Then come the sensor and, at the end, the last encoder and the count.
    ASSERT_GT(echo.size(), 10U);
    EXPECT_EQ(echo[6],
              "PDT_INIPARAM_LoadCamVcapSnsCfg: vcapdev  sensor attr, "
              "sensor_mode[0],sensor_width[0],sensor_height[0],data_type[0] wdr_mode[0] \n");
    EXPECT_EQ(LastLine(echo),
              "PDT_INIPARAM_LoadCamVencSpecCfg: \033[1;33mvenc comm  cnt[0] \n\033[m");
    echo.resize(6);
    EXPECT_THAT(
        echo,
        ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_1440P_30_WDR] "
                    "Enum[18]\n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: vcap.pipe[0] vivpssmode, "
                    "vcappipe_hdl[0], vivpssmode[6] \n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: vcap.pipe[1] vivpssmode, "
                    "vcappipe_hdl[1], vivpssmode[6] \n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: vcap.pipe[2] vivpssmode, "
                    "vcappipe_hdl[0], vivpssmode[6] \n",
                    "PDT_INIPARAM_LoadMediaModeSpecCfg: vcap.pipe[3] vivpssmode, "
                    "vcappipe_hdl[-1], vivpssmode[3] \n",
                    "PDT_INIPARAM_LoadCamVBSpecCfg: Pool[0] BlkSize[0Bytes] Count[0]\n"));
}

TEST(MediaModeSpec, BlocksFollowOneAnotherInTheEcho) {
    std::vector<std::string> functions;
    for (const LogRecord& record : ParseRecords(LoadTree(With("vb:max_poolcnt", "2")).output)) {
        if (functions.empty() || functions.back() != record.function) {
            functions.push_back(record.function);
        }
    }
    std::vector<std::string> expected = {
        "PDT_INIPARAM_LoadMediaModeSpecCfg", "PDT_INIPARAM_LoadCamVBSpecCfg",
        "PDT_INIPARAM_LoadCamVcapSnsCfg", "PDT_INIPARAM_LoadCamVcapSpecCfg"};
    for (int pipe = 0; pipe < 4; ++pipe) {
        AppendLines(
            &expected,
            {"PDT_INIPARAM_LoadCamVcapPipeSpecCfg", "PDT_INIPARAM_LoadCamVcapIspPubAttr",
             "PDT_INIPARAM_LoadCamVcapPipeSpecCfg", "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg",
             "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr"});
    }
    AppendLines(&expected,
                {"PDT_INIPARAM_LoadCamVpssSpecAttr", "PDT_INIPARAM_LoadCamVportSpecLDCCfg",
                 "PDT_INIPARAM_LoadCamVportSpecCfg", "PDT_INIPARAM_LoadCamVencSpecAttr",
                 "PDT_INIPARAM_LoadCamVencSpecCfg"});
    EXPECT_EQ(functions, expected);
}

TEST(MediaModeSpec, WithoutItsModeTheBlockIsStillLoaded) {
    const LoadResult result = LoadTree(
        With("common.vcap.pipe.0:vivpssmode", "2").Set(kMediaModeModule, "venc.0:gop", "25"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(WordAt(result.record, 0), Word(0));
    EXPECT_EQ(WordAt(result.record, 8), Word(2));
    EXPECT_EQ(WordAt(result.record, 1692), Word(25));
}

TEST(MediaModeSpec, AbsentModeKeepsWhatIsThere) {
    const LoadResult result = RunLoad(EmptyTree(), 1864, [](void* record) {
        static_cast<CamMediaModeSpecCfg*>(record)->mediaMode = static_cast<MediaMode>(7);
        return Load(record);
    });
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(WordAt(result.record, 0), Word(7));
}

TEST(MediaModeSpec, CorrectionIsThatOfTheBlocksMode) {
    ProductTree tree = With("common:mediamode", "QX_PARAM_MEDIAMODE_720P_60");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30")
        .Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "5")
        .Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_60")
        .Set("cam0_ldccfg_1", "LDCV1Attr:xratio", "6");
    const std::string record = LoadTree(tree).record;
    for (const std::size_t ldc : {320U, 560U, 800U, 1040U, 1532U}) {
        EXPECT_EQ(WordAt(record, ldc + 8), Word(6));
    }
}

TEST(MediaModeSpec, UnknownModeIsRefused) {
    const LoadResult result = LoadTree(With("common:mediamode", "qx_param_mediamode_720p_60"));
    EXPECT_EQ(result.status, -1);
    EXPECT_TRUE(SameRecord(kCamMediaModeSpecTable, std::string(1864, '\0'), result.record));
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre(
            "PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[qx_param_mediamode_720p_60]\n",
            "PDT_INIPARAM_LoadMediaModeSpecCfg: [common:mediamode] failed[0xFFFFFFFF]\n"));
}

TEST(MediaModeSpec, MissingModuleFailsAtTheFirstPipeOnly) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadMediaModeSpecCfg: [common.vcap.pipe.0:vcappipe_hdl] "
                            "failed[0xA1418046]\n"));
}

/// The last record of the chain of failures of a module whose `key` is bad.
std::string LastErrorOfBad(const std::string& key, const std::string& value = "2147483648") {
    const LoadResult result = LoadTree(With(key, value));
    EXPECT_EQ(result.status, -1);
    return LastLine(ErrorsOf(result.output));
}

TEST(MediaModeSpec, EachBlockHasItsLabel) {
    const std::string loader = "PDT_INIPARAM_LoadMediaModeSpecCfg: [";
    EXPECT_EQ(LastErrorOfBad("common.vcap.pipe.3:vivpssmode"),
              loader + "common.vcap.pipe.3:vivpssmode] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("vb:max_poolcnt"), loader + "VB config] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("vb:max_poolcnt", "9"), loader + "VB config] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("vcap.dev:sensor_type"), loader + "vcap attr] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("vcap.dev:componentmask0", "-1"),
              loader + "vcap attr] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("vpss.0:max_width"), loader + "vproc config] failed[0xFFFFFFFF]\n");
    EXPECT_EQ(LastErrorOfBad("venc.0:gop"), loader + "venc config] failed[0xFFFFFFFF]\n");
}

TEST(MediaModeSpec, TooManyPoolsEndTheBlock) {
    const LoadResult result =
        LoadTree(With("vb:max_poolcnt", "9").Set(kMediaModeModule, "vcap.dev:sensor_type", "5"));
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamVBSpecCfg: Invalid VB MaxPoolCnt[9 beyond 8]\n",
                            "PDT_INIPARAM_LoadMediaModeSpecCfg: [VB config] failed[0xFFFFFFFF]\n"));
    EXPECT_EQ(WordAt(result.record, 40), Word(9));
    EXPECT_EQ(result.record.substr(44), std::string(1820, '\0'));
}

}  // namespace
}  // namespace paramgen::testing
