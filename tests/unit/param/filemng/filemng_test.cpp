#include "param/filemng/filemng.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

Status Load(void* record) {
    return PDT_INIPARAM_LoadFileMngConf(static_cast<FileMngCfg*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule("devmng").AddModule("filemng");
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 1444, Load);
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(FileMng, TableIsTheSectionsLayout) {
    std::vector<std::string> expected = {
        "0 128 text reader devmng storagemng:mount_path - storagemng:mount_path",
        "128 4 bool reader filemng common.repair:enable 0 common.repair:enable",
        "132 4 bool reader filemng common.repair:parse_extra_mdat 0 common.repair:parse_extra_mdat",
        "136 128 text reader filemng common.repair:repair_rootdir - common.repair:repair_rootdir",
        "264 128 text reader filemng common.repair:repair_topdirname - "
        "common.repair:repair_topdirname",
        "392 4 u32 reader filemng dtcf:pre_alloc_cnt 0 dtcf:pre_alloc_cnt",
        "396 4 u32 reader filemng dtcf:pre_alloc_cnt 0 dtcf:pre_alloc_cnt",
        "400 4 u32 reader filemng dtcf:pre_alloc_unit 0 dtcf:pre_alloc_unit",
        "404 4 u32 reader filemng dtcf:pre_alloc_unit 0 dtcf:pre_alloc_unit",
        "408 4 i32 reader filemng dtcf:share_percent 0 dtcf:share_percent",
        "412 4 u32 reader filemng dtcf:warning_stage 0 dtcf:warning_stage",
        "416 4 u32 reader filemng dtcf:guaranteed_stage 0 dtcf:guaranteed_stage",
        "420 128 text reader filemng dtcf:rootdir - dtcf:rootdir",
    };
    for (int i = 0; i < 14; ++i) {
        const std::string key = "dtcf.dir.name:dir_name" + std::to_string(i);
        expected.push_back(std::to_string(548 + 64 * i) + " 64 text loader filemng " + key + " - " +
                           key);
    }
    EXPECT_EQ(DescribeTable(kFileMngTable, "filemng"), expected);
}

TEST(FileMng, EveryRowLoadsItsOwnBytes) {
    RowSubject subject = {.fields = WalkTable(kFileMngTable, "filemng"),
                          .size = 1444,
                          .load = Load,
                          .base = EmptyTree()};
    // A pre-allocation key fills two members, so it has a test of its own below.
    subject.unreachable = {"dtcf:pre_alloc_cnt", "dtcf:pre_alloc_unit"};
    CheckRows(subject);
}

TEST(FileMng, PreAllocationFillsBothEntries) {
    const std::string three = std::string("\3\0\0\0\3\0\0\0", 8);
    std::string expected(1444, '\0');
    expected.replace(392, 8, three);
    EXPECT_EQ(LoadTree(EmptyTree().Set("filemng", "dtcf:pre_alloc_cnt", "3")).record, expected);
    expected = std::string(1444, '\0');
    expected.replace(400, 8, three);
    EXPECT_EQ(LoadTree(EmptyTree().Set("filemng", "dtcf:pre_alloc_unit", "3")).record, expected);
    for (const std::string key : {"dtcf:pre_alloc_cnt", "dtcf:pre_alloc_unit"}) {
        EXPECT_THAT(
            ErrorsOf(LoadTree(EmptyTree().Set("filemng", key, "3000000000")).output),
            ElementsAre(
                "PDT_INIPARAM_LoadUintValueByNodePrefix: [" + key + "] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_FILEMNG_LoadDTCFCfg: [" + key + "] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_LoadFileMngConf: [dtcf] failed[0xFFFFFFFF]\n"));
    }
}

TEST(FileMng, WholeSectionByHand) {
    ProductTree tree;
    tree.Set("devmng", "storagemng:mount_path", "/mnt/sd")
        .Set("filemng", "storagemng:mount_path", "/not/this")
        .Set("filemng", "common.repair:enable", "1")
        .Set("filemng", "common.repair:parse_extra_mdat", "yes")
        .Set("filemng", "common.repair:repair_rootdir", "repair")
        .Set("filemng", "common.repair:repair_topdirname", "top")
        .Set("filemng", "dtcf:pre_alloc_cnt", "3")
        .Set("filemng", "dtcf:pre_alloc_unit", "64")
        .Set("filemng", "dtcf:share_percent", "-5")
        .Set("filemng", "dtcf:warning_stage", "1024")
        .Set("filemng", "dtcf:guaranteed_stage", "512")
        .Set("filemng", "dtcf:rootdir", "DCIM")
        .Set("filemng", "dtcf.dir.name:dir_name0", "normal")
        .Set("filemng", "dtcf.dir.name:dir_name5", "\"\"")
        .Set("filemng", "dtcf.dir.name:dir_name13", "gps");
    std::string expected(1444, '\0');
    expected.replace(0, 7, "/mnt/sd");
    expected.replace(128, 8, std::string("\x01\0\0\0\x01\0\0\0", 8));
    expected.replace(136, 6, "repair");
    expected.replace(264, 3, "top");
    expected.replace(392, 8, std::string("\x03\0\0\0\x03\0\0\0", 8));
    expected.replace(400, 8, std::string("\x40\0\0\0\x40\0\0\0", 8));
    expected.replace(408, 4, "\xfb\xff\xff\xff");
    expected.replace(412, 4, std::string("\0\x04\0\0", 4));
    expected.replace(416, 4, std::string("\0\x02\0\0", 4));
    expected.replace(420, 4, "DCIM");
    expected.replace(548, 6, "normal");
    expected.replace(548 + 13 * 64, 3, "gps");
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kFileMngTable, expected, result.record));

    std::vector<std::string> echo = {
        "PDT_INIPARAM_LoadStringValue: storagemng:mount_path [/mnt/sd]\n",
        "PDT_INIPARAM_FILEMNG_LoadCommCfg: mount path[/mnt/sd] \n",
        "PDT_INIPARAM_LoadStringValue: common.repair:repair_rootdir [repair]\n",
        "PDT_INIPARAM_LoadStringValue: common.repair:repair_topdirname [top]\n",
        "PDT_INIPARAM_FILEMNG_LoadCommCfg: repair enable[1], parse extra mdat[1], repair root "
        "dir[repair], topdirname[top]\n",
        "PDT_INIPARAM_FILEMNG_LoadDTCFCfg: dtcf, pre_alloc_cnt[3],pre_alloc_unit[64]\n",
        "PDT_INIPARAM_FILEMNG_LoadDTCFCfg: dtcf, pre_alloc_cnt[3],pre_alloc_unit[64]\n",
        "PDT_INIPARAM_LoadStringValue: dtcf:rootdir [DCIM]\n",
    };
    for (int i = 0; i < 14; ++i) {
        const std::string name = i == 0 ? "normal" : i == 13 ? "gps" : "";
        echo.push_back("PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg: dtcf, DirName[" +
                       std::to_string(i) + "]:" + name + " \n");
    }
    echo.emplace_back(
        "PDT_INIPARAM_FILEMNG_LoadDTCFCfg: dtcf, "
        "share_percent[-5],warning_stage[1024],guaranteed_stage[512] RootDir[DCIM]\n");
    EXPECT_EQ(EchoOf(result.output), echo);
}

TEST(FileMng, TwoQuotesEmptyTheDirectoryName) {
    DtcfCfg dtcf;
    std::fill_n(&dtcf.dirNames[0][0], sizeof dtcf.dirNames, 'x');
    EXPECT_EQ(PDT_INIPARAM_FILEMNG_GetDirNames("\"\"", 5, &dtcf), 0);
    EXPECT_EQ(std::string(dtcf.dirNames[5], 64), std::string(64, '\0'));
    EXPECT_EQ(dtcf.dirNames[4][63], 'x');
    EXPECT_EQ(dtcf.dirNames[6][0], 'x');
}

TEST(FileMng, AbsentDirectoryNameLeavesItsSlot) {
    DtcfCfg dtcf;
    std::fill_n(&dtcf.dirNames[0][0], sizeof dtcf.dirNames, 'x');
    EXPECT_EQ(PDT_INIPARAM_FILEMNG_GetDirNames(nullptr, 5, &dtcf), 0);
    EXPECT_EQ(std::string(dtcf.dirNames[5], 64), std::string(64, 'x'));
}

TEST(FileMng, LongestDirectoryNameFitsAndOneMoreFails) {
    ProductTree tree = EmptyTree();
    tree.Set("filemng", "dtcf.dir.name:dir_name13", std::string(63, 'n'));
    EXPECT_EQ(LoadTree(tree).record.substr(1380), std::string(63, 'n') + '\0');
    tree.Set("filemng", "dtcf.dir.name:dir_name13", std::string(64, 'n'));
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_FILEMNG_GetDirNames: [sprintf_s] failed\n",
                            "PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg: get dir name failed!\n",
                            "PDT_INIPARAM_FILEMNG_LoadDTCFCfg: [dtcf:rootdir] failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadFileMngConf: [dtcf] failed[0xFFFFFFFF]\n"));
}

TEST(FileMng, DirectoryNameQueryFailsUnderItsItem) {
    DtcfCfg dtcf = {};
    const RegisteredProduct product(EmptyTree());
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg("absent", &dtcf); });
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg: [dtcf.dir.name:dir_name0] "
                            "failed[0xA1418046]\n"));
}

TEST(FileMng, CommonPartHasItsLabel) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(ProductTree().AddModule("filemng")).output),
        ElementsAre("PDT_INIPARAM_LoadStringValue: [storagemng:mount_path] failed[0xA1418046]\n",
                    "PDT_INIPARAM_FILEMNG_LoadCommCfg: [storagemng:mount_path] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadFileMngConf: [filemng comm] failed[0xA1418046]\n"));
}

TEST(FileMng, NullSectionIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadFileMngConf(nullptr); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadFileMngConf: pointer[param] is null\n"));
}

}  // namespace
}  // namespace paramgen::testing
