#include "param/workmode/workmode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

/// Loads a product into a section that ends where its memory does.
LoadResult LoadTree(const ProductTree& tree) {
    const RegisteredProduct product(tree);
    const auto section = std::make_unique<WorkModeCfg>();
    LoadResult result = {};
    result.output =
        CaptureStdout([&] { result.status = PDT_INIPARAM_LoadWorkModeConf(section.get()); });
    result.record.assign(reinterpret_cast<const char*>(section.get()), 8912);
    return result;
}

ProductTree EmptyTree() {
    return ProductTree()
        .AddModule("workmode_common")
        .AddModule("workmode_photo")
        .AddModule("workmode_record");
}

TEST(WorkMode, TableIsTheSectionsLayout) {
    const std::vector<std::string> lines = DescribeTable(kWorkModeTable, "");
    EXPECT_EQ(lines[0],
              "0 4 i32 query workmode_common common:poweron_workmode 0 common:poweron_workmode");
    EXPECT_EQ(lines[1], "4 4 bytes nobody - - - -");
    EXPECT_EQ(lines[2],
              "8844 4 i32 reader workmode_photo common.mediamode.config.0:camid 0 "
              "wifi.info:enable");
    EXPECT_THAT(lines, Contains("4536 4 u32 reader workmode_photo osd:osdcnt 0 osdcnt"));
    EXPECT_THAT(lines, Contains("8900 12 bytes nobody - - - -"));
    EXPECT_THAT(lines, Contains("4316 4 i32 reader workmode_record common.mediamode.config.0:camid "
                                "0 wifi.info:enable"));
    EXPECT_THAT(lines, Contains("8 4 u32 reader workmode_record osd:osdcnt 0 osdcnt"));
    EXPECT_THAT(lines, Contains("4492 4 i32 loader workmode_record normal.0:thmhdl0 0 thmhdl0"));
    std::size_t covered = 0;
    for (const WalkedField& walked : WalkTable(kWorkModeTable, "")) {
        covered += walked.field->size;
    }
    EXPECT_EQ(covered, 8912U);
}

TEST(WorkMode, OnlyThePowerOnModeSet) {
    const LoadResult result =
        LoadTree(EmptyTree().Set("workmode_common", "common:poweron_workmode", "1"));
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kWorkModeTable, std::string("\1\0\0\0", 4) + std::string(8908, '\0'),
                           result.record));
}

TEST(WorkMode, PowerOnModeIsNotChecked) {
    EXPECT_EQ(LoadTree(EmptyTree().Set("workmode_common", "common:poweron_workmode", "-7"))
                  .record.substr(0, 8),
              std::string("\xf9\xff\xff\xff\0\0\0\0", 8));
}

TEST(WorkMode, SectionByHand) {
    ProductTree tree = EmptyTree();
    tree.Set("workmode_common", "common:poweron_workmode", "258")
        .Set("workmode_photo", "osd:osdcnt", "1")
        .Set("workmode_photo", "osd.0:string", "photo")
        .Set("workmode_photo", "common.mediamode.config.0:mediamode", "QX_PARAM_MEDIAMODE_PLAYBACK")
        .Set("workmode_photo", "photosource.0:enable", "1")
        .Set("workmode_photo", "phototype.0.burst:burst_type", "7")
        .Set("workmode_record", "osd:osdcnt", "1")
        .Set("workmode_record", "osd.0:string", "record")
        .Set("workmode_record", "common.mediamode.config.0:camid", "9")
        .Set("workmode_record", "record.common:pre_alloc_unit", "32")
        .Set("workmode_record", "photosource.0:enable", "1")
        .Set("workmode_record", "normal.0:slowrec_playfps", "15");
    std::string expected(8912, '\0');
    const auto put = [&](std::size_t offset, const char* bytes) {
        expected.replace(offset, 4, bytes, 4);
    };
    put(0, "\2\1\0\0");
    put(8, "\1\0\0\0");
    put(32, "\4\0\0\0");
    expected.replace(48, 6, "record");
    put(4316, "\x09\0\0\0");
    put(4336, "\x20\0\0\0");
    put(4344, "\1\0\0\0");
    put(4528, "\x0f\0\0\0");
    put(4536, "\1\0\0\0");
    put(4560, "\4\0\0\0");
    expected.replace(4576, 5, "photo");
    put(8848, "\x35\0\0\0");
    put(8852, "\1\0\0\0");
    put(8896, "\7\0\0\0");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kWorkModeTable, expected, result.record));
}

TEST(WorkMode, EchoOfTheFrame) {
    std::vector<std::string> frame;
    for (const std::string& text : EchoOf(LoadTree(EmptyTree()).output)) {
        if (text.find("PDT_INIPARAM_LoadWorkModeConf: ") == 0 ||
            text.find("PDT_INIPARAM_LoadCommWorkModeCfg: ") == 0 ||
            text.find("PDT_INIPARAM_LoadPhotoWorkModeCfg: ") == 0 ||
            text.find("PDT_INIPARAM_LoadRecWorkModeConf: ") == 0) {
            frame.push_back(text);
        }
    }
    EXPECT_THAT(
        frame,
        ElementsAre(
            "PDT_INIPARAM_LoadWorkModeConf: WorkMode Common Configure:\n",
            "PDT_INIPARAM_LoadCommWorkModeCfg: poweron_workmode[0; 0:normal record, 1:photo]\n",
            "PDT_INIPARAM_LoadWorkModeConf: \n\n",
            "PDT_INIPARAM_LoadWorkModeConf: WorkMode Photo Media Configure:\n",
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: Photo mediamode Configure:\n",
            "PDT_INIPARAM_LoadPhotoWorkModeCfg: Photo Osd\n", "PDT_INIPARAM_LoadWorkModeConf: \n\n",
            "PDT_INIPARAM_LoadWorkModeConf: rec Configure:\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: WorkMode Record Media Configure:\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: \n\n", "PDT_INIPARAM_LoadRecWorkModeConf: \n\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: \n\n", "PDT_INIPARAM_LoadWorkModeConf: \n\n"));
}

TEST(WorkMode, FailuresTellTheirPart) {
    EXPECT_THAT(
        ErrorsOf(
            LoadTree(EmptyTree().Set("workmode_common", "common:poweron_workmode", "9999999999"))
                .output),
        ElementsAre(
            "PDT_INIPARAM_LoadCommWorkModeCfg: [common:poweron_workmode] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadWorkModeConf: [Common] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(
            LoadTree(EmptyTree().Set("workmode_photo", "phototype.0:type", "9999999999")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [phototype.0:type] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoCfg: [type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadPhotoWorkModeCfg: [Photo cfg] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadWorkModeConf: [PhotoMedia] failed[0xFFFFFFFF]\n"));
}

TEST(WorkMode, RecordSettingsGoByThePlaybackLabel) {
    EXPECT_THAT(
        ErrorsOf(
            LoadTree(EmptyTree().Set("workmode_record", "record.common:thm_type", "9999999999"))
                .output),
        ElementsAre("PDT_INIPARAM_LoadRecCommCfg: [record.common:thm_type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: [RecComm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadWorkModeConf: [PLAYBACK] failed[0xFFFFFFFF]\n"));
}

TEST(WorkMode, MissingModulesFailInLoadOrder) {
    ProductTree tree = EmptyTree();
    tree.RemoveModule("workmode_record");
    LoadResult result = LoadTree(tree);
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                Contains("PDT_INIPARAM_LoadWorkModeConf: [PLAYBACK] failed[0xA1418046]\n"));
    tree.RemoveModule("workmode_photo");
    result = LoadTree(tree);
    EXPECT_THAT(ErrorsOf(result.output),
                Contains("PDT_INIPARAM_LoadWorkModeConf: [PhotoMedia] failed[0xA1418046]\n"));
    tree.RemoveModule("workmode_common").AddModule("other");
    result = LoadTree(tree);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCommWorkModeCfg: [common:poweron_workmode] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadWorkModeConf: [Common] failed[0xA1418046]\n"));
}

TEST(WorkMode, NullSectionIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadWorkModeConf(nullptr); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadWorkModeConf: pointer[param] is null\n"));
}

// Thumbnail handles: the first is at 4492, the section ends at 8912, so there is room for 1105.

/// A product with `count` thumbnail handles, numbered from 1000, and values around them.
ProductTree ThumbnailTree(int count) {
    ProductTree tree = EmptyTree();
    tree.Set("workmode_record", "normal.0:thmcnt", std::to_string(count))
        .Set("workmode_record", "normal.0:filecnt", "2")
        .Set("workmode_record", "normal.0:playfps", "30")
        .Set("workmode_record", "normal.0:slowrec_playfps", "15")
        .Set("workmode_record", "normal.0.filenum.0.fileattr:recvbuf_size", "77")
        .Set("workmode_record", "normal.0.filenum.1.fileattr:recvbuf_size", "78")
        .Set("workmode_photo", "osd:base_font_w", "32")
        .Set("workmode_photo", "phototype.0.burst:burst_type", "7");
    for (int i = 0; i < count; ++i) {
        tree.Set("workmode_record", "normal.0:thmhdl" + std::to_string(i),
                 std::to_string(1000 + i));
    }
    return tree;
}

/// The section for that product: handles overwrite the bytes behind their array, and receive buffer
/// sizes overwrite handles.
std::string ThumbnailSection(int count) {
    std::string bytes(8912, '\0');
    const auto put = [&](std::size_t offset, int value) {
        bytes.replace(offset, 4, LittleEndian(value, 4));
    };
    put(4540, 32);
    put(8896, 7);
    put(4516, 30);
    put(4528, 15);
    put(4404, 2);
    put(4488, count);
    for (int i = 0; i < count; ++i) {
        put(4492 + 4 * static_cast<std::size_t>(i), 1000 + i);
    }
    put(4508, 77);
    put(4512, 78);
    return bytes;
}

TEST(WorkMode, ThumbnailHandlesRunOnInsideTheSection) {
    for (const int count : {0, 1, 2, 4, 5, 6, 7, 11, 12, 1104, 1105}) {
        SCOPED_TRACE(count);
        const LoadResult result = LoadTree(ThumbnailTree(count));
        EXPECT_EQ(result.status, 0);
        EXPECT_TRUE(result.record == ThumbnailSection(count));
        const std::string last = "PDT_INIPARAM_LoadRecFilesAttr: thmhdl" +
                                 std::to_string(count - 1) + "[" + std::to_string(999 + count) +
                                 "] \n";
        if (count != 0) {
            EXPECT_THAT(EchoOf(result.output), Contains(last));
        }
    }
}

TEST(WorkMode, ThumbnailHandlesBeyondTheSectionAreRefused) {
    const struct {
        const char* count;
        const char* asRead;
    } counts[] = {{"1106", "1106"},
                  {"1107", "1107"},
                  {"2147483647", "2147483647"},
                  {"-1", "4294967295"},
                  {"-2147483648", "2147483648"}};
    for (const auto& [count, asRead] : counts) {
        const LoadResult result = LoadTree(EmptyTree()
                                               .Set("workmode_record", "normal.0:filecnt", "1")
                                               .Set("workmode_record", "normal.0:thmcnt", count)
                                               .Set("workmode_record", "normal.0:thmhdl0", "5"));
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(
            ErrorsOf(result.output),
            ElementsAre("PDT_INIPARAM_LoadRecFilesAttr: [normal.0:thmcnt] count[" +
                            std::string(asRead) + "] is beyond the section\n",
                        "PDT_INIPARAM_LoadRecAttr: [RecFilesAttr] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadRecWorkModeConf: [Normal record] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadWorkModeConf: [PLAYBACK] failed[0xFFFFFFFF]\n"));
        EXPECT_EQ(result.output.find("thmhdl"), std::string::npos);
        EXPECT_EQ(result.output.find("thmcnt[" + std::string(asRead)), std::string::npos);
        EXPECT_EQ(result.record.substr(4492, 4), std::string(4, '\0'));
    }
}

}  // namespace
}  // namespace paramgen::testing
