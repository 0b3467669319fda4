#include "param/workmode/osd.h"

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

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadOsdCfg("mode", "osd", static_cast<OsdCfg*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule("mode");
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 4308, Load);
}

std::string Entry(int i) {
    return "osd." + std::to_string(i);
}

std::string Display(int i, int j) {
    return Entry(i) + ".display." + std::to_string(j);
}

/// A product in which every overlay and every display is counted.
ProductTree FullTree() {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "osd:osdcnt", "16");
    for (int i = 0; i < 16; ++i) {
        tree.Set("mode", Entry(i) + ":dispnum", "4");
    }
    return tree;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(Osd, TableIsTheBlocksLayout) {
    std::vector<std::string> expected = {
        "0 4 u32 reader mode osd:osdcnt 0 osdcnt",
        "4 4 u32 reader mode osd:base_font_w 0 base_font_w",
        "8 4 u32 reader mode osd:base_font_h 0 base_font_h",
        "12 4 u32 reader mode osd:base_res_w 0 base_res_w",
        "16 4 u32 reader mode osd:base_res_h 0 base_res_h",
    };
    for (int i = 0; i < 16; ++i) {
        const int start = 20 + 268 * i;
        const auto add = [&](int offset, const std::string& what, const std::string& key,
                             const std::string& behind) {
            expected.push_back(std::to_string(start + offset) + " " + what + " reader mode " +
                               Entry(i) + ":" + key + " " + behind);
        };
        expected.push_back(std::to_string(start + 4) + " 4 i32 loader mode " + Entry(i) +
                           ":type 4 type");  // the loader itself gives its failure a label
        add(8, "4 i32", "timefmt", "0 timefmt");
        add(20, "64 text", "string", "- string");
        add(12, "4 u32", "color", "0 color");
        add(16, "4 u32", "bg_color", "0 bg_color");
        add(84, "4 u32", "bmp_width", "0 bmp_width");
        add(88, "4 u32", "bmp_height", "0 bmp_height");
        add(0, "4 u32", "dispnum", "0 dispnum");
        for (int j = 0; j < 4; ++j) {
            const int display = start + 92 + 44 * j;
            const auto addShown = [&](int offset, const std::string& kind, const std::string& key) {
                expected.push_back(std::to_string(display + offset) + " 4 " + kind +
                                   " reader mode " + Display(i, j) + ":" + key + " 0 " + key);
            };
            addShown(0, "bool", "show");
            addShown(4, "i32", "bind_module");
            addShown(8, "i32", "modhdl");
            addShown(12, "i32", "chnhdl");
            addShown(28, "i32", "start_x");
            addShown(32, "i32", "start_y");
            addShown(16, "u32", "fg_alpha");
            addShown(20, "u32", "bg_alpha");
            addShown(40, "u32", "batch");
            expected.push_back(std::to_string(display + 24) + " 4 bytes nobody - - - -");
            expected.push_back(std::to_string(display + 36) + " 4 bytes nobody - - - -");
        }
    }
    EXPECT_EQ(DescribeTable(kOsdTable, "mode", "osd"), expected);
}

/// The rows of the block's own members, and of its first and last overlays and displays.
std::vector<WalkedField> SampledFields() {
    std::vector<WalkedField> sample;
    for (const WalkedField& walked : WalkTable(kOsdTable, "mode", "osd")) {
        const bool isSampled = walked.offset < 20 + 268 || walked.offset >= 20 + 268 * 15;
        if (isSampled) {
            sample.push_back(walked);
        }
    }
    return sample;
}

TEST(Osd, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = SampledFields(), .size = 4308, .load = Load, .base = FullTree()});
}

TEST(Osd, OneOverlayByHand) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "osd:osdcnt", "2")
        .Set("mode", "osd:base_font_w", "32")
        .Set("mode", "osd:base_font_h", "64")
        .Set("mode", "osd:base_res_w", "3840")
        .Set("mode", "osd:base_res_h", "2160")
        .Set("mode", "osd.0:type", "-1")
        .Set("mode", "osd.0:timefmt", "2")
        .Set("mode", "osd.0:string", "\"Front  camera\"")
        .Set("mode", "osd.0:color", "16777215")
        .Set("mode", "osd.0:bg_color", "-2")
        .Set("mode", "osd.0:bmp_width", "456")
        .Set("mode", "osd.0:bmp_height", "48")
        .Set("mode", "osd.0:dispnum", "2")
        .Set("mode", "osd.0.display.1:show", "yes")
        .Set("mode", "osd.0.display.1:bind_module", "2")
        .Set("mode", "osd.0.display.1:modhdl", "-1")
        .Set("mode", "osd.0.display.1:chnhdl", "5")
        .Set("mode", "osd.0.display.1:start_x", "-480")
        .Set("mode", "osd.0.display.1:start_y", "64")
        .Set("mode", "osd.0.display.1:fg_alpha", "128")
        .Set("mode", "osd.0.display.1:bg_alpha", "32")
        .Set("mode", "osd.0.display.1:batch", "9");
    std::string expected(4308, '\0');
    const auto put = [&](std::size_t offset, const char* bytes) {
        expected.replace(offset, 4, bytes, 4);
    };
    put(0, "\x02\0\0\0");
    put(4, "\x20\0\0\0");
    put(8, "\x40\0\0\0");
    put(12, "\x00\x0f\0\0");
    put(16, "\x70\x08\0\0");
    put(20, "\x02\0\0\0");
    put(24, "\xff\xff\xff\xff");
    put(28, "\x02\0\0\0");
    put(32, "\xff\xff\xff\0");
    put(36, "\xfe\xff\xff\xff");
    expected.replace(40, 13, "Front  camera");
    put(104, "\xc8\x01\0\0");
    put(108, "\x30\0\0\0");
    put(156, "\x01\0\0\0");
    put(160, "\x02\0\0\0");
    put(164, "\xff\xff\xff\xff");
    put(168, "\x05\0\0\0");
    put(172, "\x80\0\0\0");
    put(176, "\x20\0\0\0");
    put(184, "\x20\xfe\xff\xff");
    put(188, "\x40\0\0\0");
    put(196, "\x09\0\0\0");
    put(292, "\x04\0\0\0");  // the type of an overlay without this key
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kOsdTable, expected, result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadOsdCfg: s32OsdCnt[2] BaseFontSize[32,64] BaseRes[3840,2160]\n",
            "PDT_INIPARAM_LoadOsdContent: osd.0 type[-1]\n",
            "PDT_INIPARAM_LoadOsdContent: timefmt[2]\n",
            "PDT_INIPARAM_LoadStringValue: osd.0:string [Front  camera]\n",
            "PDT_INIPARAM_LoadOsdContent: color[16777215] bg_color[-2]\n",
            "PDT_INIPARAM_LoadOsdContent: bmp_width[456] bmp_height[48]\n",
            "PDT_INIPARAM_LoadOsdContent: dispnum[2]\n",
            "PDT_INIPARAM_LoadOsdContent: osd.1 type[4]\n",
            "PDT_INIPARAM_LoadOsdContent: timefmt[0]\n",
            "PDT_INIPARAM_LoadStringValue: osd.1:string []\n",
            "PDT_INIPARAM_LoadOsdContent: color[0] bg_color[0]\n",
            "PDT_INIPARAM_LoadOsdContent: bmp_width[0] bmp_height[0]\n",
            "PDT_INIPARAM_LoadOsdContent: dispnum[0]\n",
            "PDT_INIPARAM_LoadOsdDispAttr: osd.0.display.0:\nshow[0] bind_mod[0] mod[0] chn[0] "
            "(0,0) fg[0] bg[0] batch[0]\n",
            "PDT_INIPARAM_LoadOsdDispAttr: osd.0.display.1:\nshow[1] bind_mod[2] mod[4294967295] "
            "chn[5] (-480,64) fg[128] bg[32] batch[9]\n"));
}

TEST(Osd, NoOverlaysLeaveEverythingZero) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "osd.0:type", "1").Set("mode", "osd.0:dispnum", "1");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kOsdTable, std::string(4308, '\0'), result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadOsdCfg: s32OsdCnt[0] BaseFontSize[0,0] "
                            "BaseRes[0,0]\n"));
}

TEST(Osd, EntriesBeyondTheCountStayZeroEvenTheirType) {
    const LoadResult result =
        LoadTree(EmptyTree().Set("mode", "osd:osdcnt", "1").Set("mode", "osd.1:type", "3"));
    EXPECT_EQ(result.record.substr(24, 4), std::string("\4\0\0\0", 4));
    EXPECT_EQ(result.record.substr(28), std::string(4280, '\0'));
}

TEST(Osd, TwentyOverlaysAreCountedSixteenLoaded) {
    for (const std::string count : {"16", "17", "20", "2147483647", "-1"}) {
        ProductTree tree = EmptyTree();
        tree.Set("mode", "osd:osdcnt", count);
        for (int i = 0; i < 20; ++i) {
            tree.Set("mode", Entry(i) + ":timefmt", std::to_string(100 + i));
        }
        const LoadResult result = LoadTree(tree);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.record.substr(0, 4), LittleEndian(std::stol(count), 4));
        for (std::size_t i = 0; i < 16; ++i) {
            EXPECT_EQ(result.record.substr(20 + 268 * i + 8, 4),
                      LittleEndian(100 + static_cast<int>(i), 4));
        }
        EXPECT_EQ(result.output.find("osd.16"), std::string::npos);
        EXPECT_NE(result.output.find("osd.15:string []"), std::string::npos);
    }
}

TEST(Osd, SixDisplaysAreCountedFourLoaded) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "osd:osdcnt", "2").Set("mode", "osd.0:dispnum", "6");
    for (int j = 0; j < 6; ++j) {
        tree.Set("mode", Display(0, j) + ":batch", std::to_string(100 + j));
    }
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.record.substr(20, 4), std::string("\6\0\0\0", 4));
    for (std::size_t j = 0; j < 4; ++j) {
        EXPECT_EQ(result.record.substr(20 + 92 + 44 * j + 40, 4),
                  LittleEndian(100 + static_cast<int>(j), 4));
    }
    EXPECT_EQ(result.record.substr(288, 4), std::string(4, '\0'));
    EXPECT_EQ(result.output.find("display.4"), std::string::npos);
}

TEST(Osd, ReservedWordsOfDisplaysAreZero) {
    ProductTree tree = FullTree();
    for (int i = 0; i < 16; ++i) {
        for (int j = 0; j < 4; ++j) {
            for (const char* key : {":bg_alpha", ":start_x", ":start_y", ":batch"}) {
                tree.Set("mode", Display(i, j) + key, "-1");
            }
        }
    }
    const LoadResult result = LoadTree(tree);
    for (std::size_t i = 0; i < 16; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            const std::size_t display = 20 + 268 * i + 92 + 44 * j;
            EXPECT_EQ(result.record.substr(display + 24, 4), std::string(4, '\0'));
            EXPECT_EQ(result.record.substr(display + 36, 4), std::string(4, '\0'));
        }
    }
}

TEST(Osd, LongestTextFitsAndOneMoreFails) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "osd:osdcnt", "1").Set("mode", "osd.0:string", std::string(63, 't'));
    EXPECT_EQ(LoadTree(tree).record.substr(40, 64), std::string(63, 't') + '\0');
    tree.Set("mode", "osd.0:string", std::string(64, 't'));
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n",
                            "PDT_INIPARAM_LoadOsdContent: [string] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadOsdCfg: [osd content] failed[0xFFFFFFFF]\n"));
}

TEST(Osd, FailuresTellTheirBlock) {
    EXPECT_THAT(ErrorsOf(LoadTree(EmptyTree().Set("mode", "osd:base_res_h", "4294967296")).output),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [osd:base_res_h] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadOsdCfg: [base_res_h] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(LoadTree(FullTree().Set("mode", "osd.3:type", "4294967296")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [osd.3:type] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadOsdContent: [osdType] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadOsdCfg: [osd content] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(LoadTree(FullTree().Set("mode", "osd.3.display.1:modhdl", "4294967296")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [osd.3.display.1:modhdl] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadOsdDispAttr: [modhdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadOsdCfg: [osd display] failed[0xFFFFFFFF]\n"));
}

TEST(Osd, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [osd:osdcnt] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadOsdCfg: [osdcnt] failed[0xA1418046]\n"));
}

TEST(Osd, NodesThatDoNotFitFailBeforeAnyQuery) {
    const auto cfg = std::make_unique<OsdCfg>();
    cfg->count = 1;
    cfg->entries[0].displayCount = 1;
    Status status = 0;
    std::string output = CaptureStdout([&] {
        status = PDT_INIPARAM_LoadOsdContent("mode", std::string(126, 'n').c_str(), cfg.get());
    });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output), ElementsAre("PDT_INIPARAM_LoadOsdContent: [sprintf_s] failed\n"));
    for (const std::size_t length : {126U, 116U}) {  // with ".0", and with ".0.display.0": 128
        output = CaptureStdout([&] {
            status =
                PDT_INIPARAM_LoadOsdDispAttr("mode", std::string(length, 'n').c_str(), cfg.get());
        });
        EXPECT_EQ(status, -1);
        EXPECT_THAT(ErrorsOf(output),
                    ElementsAre("PDT_INIPARAM_LoadOsdDispAttr: [sprintf_s] failed\n"));
    }
}

}  // namespace
}  // namespace paramgen::testing
