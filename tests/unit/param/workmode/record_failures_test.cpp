// Failures of the record work mode, and counts that are larger than its arrays.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/workmode/record_load.h"

namespace paramgen::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// The ERROR records of a load with one key too large.
std::vector<std::string> ErrorsWith(const ProductTree& base, const std::string& key) {
    ProductTree tree = base;
    return ErrorsOf(LoadTree(tree.Set("workmode_record", key, "9999999999")).output);
}

TEST(Record, FailuresTellTheirBlock) {
    EXPECT_THAT(
        ErrorsWith(EmptyTree(), "record.common:repaire_unit"),
        ElementsAre(
            "PDT_INIPARAM_LoadRecCommCfg: [record.common:repaire_unit] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: [RecComm] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith(EmptyTree(), "photosource.0:vpsshdl"),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [photosource.0:vpsshdl] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadPhotoAttr: [vpsshdl] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadRecWorkModeConf: [PhotoSrc] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsWith(EmptyTree(), "normal.0:record_type"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [normal.0:record_type] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecAttr: [record_type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsWith(EmptyTree(), "normal.0:thmcnt"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [normal.0:thmcnt] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecFilesAttr: [thmcnt] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
}

TEST(Record, FailuresTellTheirMediaSettings) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(With("common.mediamode.config.0:mediamode", "x")).output),
        ElementsAre(
            "PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[x]\n",
            "PDT_INIPARAM_LoadCamMediaModeCfg: [common.mediamode.config.0:mediamode] "
            "failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadRecMediaCfg: [common.mediamode.config.0] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: [RecMedia] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith(EmptyTree(), "osd:base_res_w"),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [osd:base_res_w] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadOsdCfg: [base_res_w] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadRecMediaCfg: [Osd] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadRecWorkModeConf: [RecMedia] failed[0xFFFFFFFF]\n"));
}

TEST(Record, FailuresTellTheirHandle) {
    EXPECT_THAT(
        ErrorsWith(FullTree(), "normal.0:thmhdl3"),
        ElementsAre("PDT_INIPARAM_LoadRecFilesAttr: [normal.0:thmhdl3] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
    for (const std::string key : {"venc_hdl1", "recbuffer_time0", "aenc_hdl0"}) {
        const std::string item = "normal.0.filenum.1.fileattr:" + key;
        EXPECT_THAT(
            ErrorsWith(FullTree(), item),
            ElementsAre("PDT_INIPARAM_LoadRecFileAttr: [" + item + "] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadRecFilesAttr: [fileattr] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
    }
    EXPECT_THAT(
        ErrorsWith(FullTree(), "normal.0.filenum.0.fileattr:thumbnail_hdl"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: "
                    "[normal.0.filenum.0.fileattr:thumbnail_hdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecFileAttr: [thumbnail_hdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecFilesAttr: [fileattr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsWith(FullTree(), "normal.0.filenum.1.fileattr:recvbuf_size"),
        ElementsAre("PDT_INIPARAM_LoadRecFilesAttr: [normal.0.filenum.1.fileattr:recvbuf_size] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n"));
}

TEST(Record, CountsOfFilesAndEncodersBeyondTheirRoom) {
    for (const std::string count : {"3", "2147483647", "-1"}) {
        ProductTree tree = FullTree();
        tree.Set("workmode_record", "normal.0:filecnt", count)
            .Set("workmode_record", "normal.0.filenum.1.fileattr:venccnt", count)
            .Set("workmode_record", "normal.0.filenum.1.fileattr:aenccnt", count);
        const LoadResult result = LoadTree(tree);
        EXPECT_EQ(result.status, 0);
        const std::string stored = LittleEndian(std::stol(count), 4);
        EXPECT_EQ(result.record.substr(4396, 4), stored);
        EXPECT_EQ(result.record.substr(4440, 4), stored);
        EXPECT_EQ(result.record.substr(4444, 4), stored);
        EXPECT_EQ(result.output.find("filenum.2"), std::string::npos);
        EXPECT_EQ(result.output.find("venc_hdl2"), std::string::npos);
        EXPECT_EQ(result.output.find("aenc_hdl1"), std::string::npos);
    }
}

TEST(Record, NodesThatDoNotFit) {
    RecAttrCfg attr = {};
    RecFileCfg file = {};
    Status status = 0;
    std::string output;
    const auto run = [&](const ProductTree& tree, const auto& load) {
        const RegisteredProduct product(tree);
        output = CaptureStdout([&] { status = load(); });
        EXPECT_EQ(status, -1);
    };
    // ":thmcnt" fits, ".filenum.0.fileattr" does not.
    const std::string node(112, 'n');
    run(With(node + ":filecnt", "1"), [&] {
        return PDT_INIPARAM_LoadRecFilesAttr("workmode_record", node.c_str(), &attr,
                                             std::as_writable_bytes(std::span(&attr, 1)));
    });
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadRecFilesAttr: [sprintf_s] failed\n"));
    // ":venccnt" fits, ":recbuffer_time0" does not.
    const std::string fileNode(115, 'f');
    run(With(fileNode + ":venccnt", "1"),
        [&] { return PDT_INIPARAM_LoadRecFileAttr("workmode_record", fileNode.c_str(), &file); });
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadRecFileAttr: [sprintf_s] failed\n"));
    // ":thmhdl9" fits, ":thmhdl10" does not.
    const std::string longest(119, 'l');
    run(With(longest + ":thmcnt", "11"), [&] {
        return PDT_INIPARAM_LoadRecFilesAttr(
            "workmode_record", longest.c_str(), &attr,
            std::as_writable_bytes(std::span(&attr, 1)).subspan(116));
    });
    EXPECT_THAT(EchoOf(output), Contains("PDT_INIPARAM_LoadRecFilesAttr: thmhdl9[0] \n"));
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadRecFilesAttr: [sprintf_s] failed\n"));
}

TEST(Record, NullRecordIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadRecWorkModeConf(nullptr, {}); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadRecWorkModeConf: pointer[param] is null\n"));
}

}  // namespace
}  // namespace paramgen::testing
