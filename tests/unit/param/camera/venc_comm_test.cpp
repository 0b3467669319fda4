#include "param/camera/venc_comm.h"

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
    return PDT_INIPARAM_LoadCamVencCommCfg("m", static_cast<CamVencCommCfg*>(record));
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 404, Load);
}

/// A product with `count` encoders that are on and have no other key.
ProductTree Encoders(int count) {
    ProductTree tree = EmptyModule();
    for (int venc = 0; venc < count; ++venc) {
        tree.Set("m", "venc." + std::to_string(venc) + ":enable", "1");
    }
    return tree;
}

/// The record of that product: the count, and encoders that are on.
std::string EncodersOn(int count) {
    std::string record(404, '\0');
    PutWord(&record, 0, count);
    for (std::size_t venc = 0; venc < static_cast<std::size_t>(count); ++venc) {
        PutWord(&record, 4 + 80 * venc, 1);
    }
    return record;
}

// The rows of an encoder, in reading order.
const std::vector<WordRow> kBindRows = {
    {12, "i32", "bindedmod"}, {16, "u32", "bindcnt"},  {20, "i32", "modhdl_0"},
    {24, "i32", "modhdl_1"},  {28, "i32", "modhdl_2"}, {32, "i32", "modhdl_3"},
    {36, "i32", "chnhdl_0"},  {40, "i32", "chnhdl_1"}, {44, "i32", "chnhdl_2"},
    {48, "i32", "chnhdl_3"},
};
const std::vector<WordRow> kStreamRows = {
    {52, "i32", "payload"},
    {8, "bool", "isByFrame"},
    {56, "i32", "rcmode"},
    {60, "i32", "type"},
};
const std::vector<WordRow> kIntraRefreshRows = {
    {64, "bool", "refreshEnable"},
    {68, "i32", "intraRefreshMode"},
    {72, "u32", "refreshNum"},
    {76, "u32", "reqIQp"},
};

TEST(VencComm, TableIsTheBlocksLayout) {
    std::vector<std::string> expected = {"0 4 u32 loader - - - -"};
    for (std::size_t venc = 0; venc < 5; ++venc) {
        const std::size_t start = 4 + 80 * venc;
        const std::string node = "venc." + std::to_string(venc);
        Append(&expected,
               DescribeWords(start, node, {{0, "bool", "enable", node + ":enable"}}, "query"));
        Append(&expected, DescribeWords(start, node, {{4, "i32", "venchdl"}}));
        Append(&expected, DescribeWords(start, node, kBindRows));
        Append(&expected, DescribeWords(start, node, kStreamRows));
        Append(&expected, DescribeWords(start, node + ".intraRefresh", kIntraRefreshRows));
    }
    EXPECT_EQ(DescribeTable(kCamVencCommTable, "m"), expected);
}

TEST(VencComm, EveryRowLoadsItsOwnBytes) {
    RowSubject subject = {.fields = WalkTable(kCamVencCommTable, "m"),
                          .size = 404,
                          .load = Load,
                          .base = EmptyModule()};
    CheckAbsentKeys(subject);
    // Every row is read only when all encoders exist and have all bindings. The keys for that are
    // tested below.
    subject.base = Encoders(5);
    for (int venc = 0; venc < 5; ++venc) {
        const std::string node = "venc." + std::to_string(venc);
        subject.base.Set("m", node + ":bindcnt", "4");
        subject.unreachable.insert(node + ":bindcnt");
    }
    CheckSetKeys(subject);
    CheckBadValues(subject);
}

TEST(VencComm, EnableIsABooleanOfItsOwnEncoder) {
    for (int venc = 0; venc < 5; ++venc) {
        const std::string key = "venc." + std::to_string(venc) + ":enable";
        ProductTree tree = Encoders(5);
        tree.Set("m", key, "no");
        std::string expected = EncodersOn(5);
        PutWord(&expected, 4 + 80 * static_cast<std::size_t>(venc), 0);
        EXPECT_EQ(LoadTree(tree).record, expected) << key;
    }
}

TEST(VencComm, FirstEncoderWithoutItsKeyIsLoadedButNotCounted) {
    ProductTree tree = Encoders(2);
    for (const std::string venc : {"2", "3", "4"}) {
        tree.Set("m", "venc." + venc + ":venchdl", "9");
    }
    tree.Set("m", "venc.3:enable", "1").Set("m", "venc.4:enable", "1");
    std::string expected = EncodersOn(2);
    PutWord(&expected, 4 + 80 * 2 + 4, 9);
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamVencCommTable, expected, result.record));
    EXPECT_EQ(EchoOf(result.output).back(),
              "PDT_INIPARAM_LoadCamVencCommCfg: \033[1;33mvenc comm  venccnt[2] \n\033[m");
}

TEST(VencComm, NoEncoderIsCountedWithoutTheFirstKey) {
    ProductTree tree;
    tree.Set("m", "venc.0:venchdl", "7").Set("m", "venc.1:enable", "1");
    std::string expected(404, '\0');
    PutWord(&expected, 8, 7);
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamVencCommTable, expected, result.record));
    EXPECT_EQ(EchoOf(result.output).back(),
              "PDT_INIPARAM_LoadCamVencCommCfg: \033[1;33mvenc comm  venccnt[0] \n\033[m");
}

TEST(VencComm, EncoderThatIsOffCounts) {
    ProductTree tree;
    tree.Set("m", "venc.0:enable", "0");
    std::string expected(404, '\0');
    PutWord(&expected, 0, 1);
    EXPECT_EQ(LoadTree(tree).record, expected);
}

TEST(VencComm, ThereIsNoSixthEncoder) {
    EXPECT_EQ(LoadTree(Encoders(6)).record, EncodersOn(5));
}

TEST(VencComm, CountStartsFromZero) {
    const RegisteredProduct product(Encoders(1));
    CamVencCommCfg cfg = {};
    cfg.count = 9;
    CaptureStdout([&] { EXPECT_EQ(Load(&cfg), 0); });
    EXPECT_EQ(cfg.count, 1U);
}

TEST(VencComm, FourBindingsAreReadAtMost) {
    ProductTree tree = Encoders(1);
    tree.Set("m", "venc.0:bindcnt", "6");
    for (int binding = 0; binding < 6; ++binding) {
        const std::string number = std::to_string(binding);
        tree.Set("m", "venc.0:modhdl_" + number, "1" + number);
        tree.Set("m", "venc.0:chnhdl_" + number, "2" + number);
    }
    std::string expected = EncodersOn(1);
    PutWord(&expected, 20, 6);
    for (std::size_t binding = 0; binding < 4; ++binding) {
        PutWord(&expected, 24 + 4 * binding, 10 + static_cast<int>(binding));
        PutWord(&expected, 40 + 4 * binding, 20 + static_cast<int>(binding));
    }
    EXPECT_EQ(LoadTree(tree).record, expected);
    // A negative count is read as a large one.
    PutWord(&expected, 20, -1);
    EXPECT_EQ(LoadTree(tree.Set("m", "venc.0:bindcnt", "-1")).record, expected);
}

TEST(VencComm, BindingsBeyondTheCountAreNotRead) {
    ProductTree tree = Encoders(1);
    for (int binding = 0; binding < 4; ++binding) {
        tree.Set("m", "venc.0:modhdl_" + std::to_string(binding), "5");
        tree.Set("m", "venc.0:chnhdl_" + std::to_string(binding), "6");
    }
    EXPECT_EQ(LoadTree(tree).record, EncodersOn(1));
    std::string expected = EncodersOn(1);
    PutWord(&expected, 20, 1);
    PutWord(&expected, 24, 5);
    PutWord(&expected, 40, 6);
    EXPECT_EQ(LoadTree(tree.Set("m", "venc.0:bindcnt", "1")).record, expected);
}

ProductTree EncoderByHand() {
    ProductTree tree;
    tree.Set("m", "venc.0:enable", "yes")
        .Set("m", "venc.0:venchdl", "-2")
        .Set("m", "venc.0:isByFrame", "1")
        .Set("m", "venc.0:bindedmod", "3")
        .Set("m", "venc.0:bindcnt", "2")
        .Set("m", "venc.0:modhdl_0", "4")
        .Set("m", "venc.0:chnhdl_0", "5")
        .Set("m", "venc.0:modhdl_1", "-6")
        .Set("m", "venc.0:chnhdl_1", "7")
        .Set("m", "venc.0:payload", "1")
        .Set("m", "venc.0:rcmode", "8")
        .Set("m", "venc.0:type", "2")
        .Set("m", "venc.0.intraRefresh:refreshEnable", "1")
        .Set("m", "venc.0.intraRefresh:intraRefreshMode", "9")
        .Set("m", "venc.0.intraRefresh:refreshNum", "258")
        .Set("m", "venc.0.intraRefresh:reqIQp", "-1");
    return tree;
}

TEST(VencComm, WholeEncoderByHand) {
    std::string expected(404, '\0');
    const char encoder[] =
        "\x01\0\0\0"                                         // the count
        "\x01\0\0\0\xfe\xff\xff\xff\x01\0\0\0"               // up to the frames
        "\x03\0\0\0\x02\0\0\0"                               // bound to
        "\x04\0\0\0\xfa\xff\xff\xff\0\0\0\0\0\0\0\0"         // modules
        "\x05\0\0\0\x07\0\0\0\0\0\0\0\0\0\0\0"               // channels
        "\x01\0\0\0\x08\0\0\0\x02\0\0\0"                     // payload, rate, type
        "\x01\0\0\0\x09\0\0\0\x02\x01\0\0\xff\xff\xff\xff";  // intra refresh
    expected.replace(0, 84, std::string(encoder, 84));
    const LoadResult result = LoadTree(EncoderByHand());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kCamVencCommTable, expected, result.record));
}

TEST(VencComm, EchoesBindingThenEncoderThenRefreshThenCount) {
    EXPECT_THAT(
        EchoOf(LoadTree(EncoderByHand()).output),
        ElementsAre(
            "PDT_PARAM_LoadCamVencBindSrcAttr: bindMod[3] bindCnt[2]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: venc[0] attr, enable[1],venchdl[-2]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: "
            "payload[1,0-h264,1-h265,2-mjpeg,3-jpeg,4-aac] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: rcmode[8,0-cbr,1-vbr] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: type[2,0-main video,1-sub video,2-single "
            "snap,3-sub snap] \n",
            "PDT_INIPARAM_LoadVencChnIntraFreshCfg: venc[0] intraRefresh attr, "
            "refreshEnable[1],intraRefreshMode[9,0-row,1-col],refreshNum[258],reqIQp[-1] \n",
            "PDT_PARAM_LoadCamVencBindSrcAttr: bindMod[0] bindCnt[0]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: venc[1] attr, enable[0],venchdl[0]\n",
            "PDT_INIPARAM_LoadCamVencCommAttr: "
            "payload[0,0-h264,1-h265,2-mjpeg,3-jpeg,4-aac] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: rcmode[0,0-cbr,1-vbr] \n",
            "PDT_INIPARAM_LoadCamVencCommAttr: type[0,0-main video,1-sub video,2-single "
            "snap,3-sub snap] \n",
            "PDT_INIPARAM_LoadVencChnIntraFreshCfg: venc[1] intraRefresh attr, "
            "refreshEnable[0],intraRefreshMode[0,0-row,1-col],refreshNum[0],reqIQp[0] \n",
            "PDT_INIPARAM_LoadCamVencCommCfg: \033[1;33mvenc comm  venccnt[1] \n\033[m"));
}

std::vector<std::string> ErrorsOfBad(const std::string& key) {
    const LoadResult result =
        LoadTree(Encoders(5).Set("m", "venc.1:bindcnt", "4").Set("m", key, "2147483648"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

TEST(VencComm, BadValueGoesByItsKey) {
    EXPECT_THAT(
        ErrorsOfBad("venc.4:rcmode"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [venc.4:rcmode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommAttr: [rcmode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n"));
}

TEST(VencComm, BadBindingGoesUpThroughTheBinding) {
    EXPECT_THAT(
        ErrorsOfBad("venc.1:bindcnt"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [venc.1:bindcnt] failed[0xFFFFFFFF]\n",
                    "PDT_PARAM_LoadCamVencBindSrcAttr: [bindcnt] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommAttr: [bindSrc] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n"));
    for (const std::string item : {"modhdl_0", "chnhdl_0", "modhdl_3", "chnhdl_3"}) {
        EXPECT_THAT(
            ErrorsOfBad("venc.1:" + item),
            ElementsAre(
                "PDT_INIPARAM_LoadIntValueByNodePrefix: [venc.1:" + item + "] failed[0xFFFFFFFF]\n",
                "PDT_PARAM_LoadCamVencBindSrcAttr: [" + item + "] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_LoadCamVencCommAttr: [bindSrc] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n"));
    }
}

TEST(VencComm, BindingsAreReadPairByPair) {
    ProductTree tree = Encoders(1);
    tree.Set("m", "venc.0:bindcnt", "4")
        .Set("m", "venc.0:modhdl_0", "1")
        .Set("m", "venc.0:modhdl_1", "2")
        .Set("m", "venc.0:chnhdl_0", "99999999999");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record.substr(24, 8), LittleEndian(1, 4) + LittleEndian(0, 4));
}

TEST(VencComm, BadRefreshGoesUpThroughTheRefresh) {
    EXPECT_THAT(
        ErrorsOfBad("venc.0.intraRefresh:refreshNum"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [venc.0.intraRefresh:refreshNum] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadVencChnIntraFreshCfg: [refreshNum] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommAttr: [intraRefresh] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n"));
}

TEST(VencComm, MissingModuleFailsAtTheQuestionForTheKey) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadCamVencCommAttr: [venc.0:enable] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
