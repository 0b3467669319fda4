#include "param/devmng/devmng.h"

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

using ::testing::ElementsAre;

Status Load(void* record) {
    return PDT_INIPARAM_LoadDevMngConf(static_cast<DevMngCfg*>(record));
}

ProductTree EmptyTree() {
    return ProductTree().AddModule("devmng");
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 420, Load);
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(DevMng, TableIsTheSectionsLayout) {
    EXPECT_THAT(
        DescribeTable(kDevMngTable, "devmng"),
        ElementsAre("0 64 text reader devmng devinfo:software_version - devinfo:software_version",
                    "64 64 text reader devmng devinfo:model - devinfo:model",
                    "128 128 text reader devmng storagemng:mount_path - storagemng:mount_path",
                    "256 128 text reader devmng storagemng:dev_path - storagemng:dev_path",
                    "384 4 i32 constant - - 0 -", "388 4 u32 constant - - 0 -",
                    "392 4 i32 reader devmng gsensor:sensitivity 0 gsensor:sensitivity",
                    "396 4 i32 reader devmng parking:sensitivity 0 parking:sensitivity",
                    "400 4 i32 constant - - 0 -",
                    "404 4 bool reader devmng keytone:enable 0 keytone:enable",
                    "408 4 bool reader devmng bootsound:enable 0 bootsound:enable",
                    "412 4 i32 reader devmng language:system_language 0 language:system_language",
                    "416 4 bool reader devmng buzzer:enable 0 buzzer:enable"));
}

TEST(DevMng, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kDevMngTable, "devmng"),
               .size = 420,
               .load = Load,
               .base = EmptyTree()});
}

TEST(DevMng, WholeSectionByHand) {
    ProductTree tree;
    tree.Set("devmng", "devinfo:software_version", "1.2.3")
        .Set("devmng", "devinfo:model", "\"Dash Cam\"")
        .Set("devmng", "storagemng:mount_path", "/mnt/sd")
        .Set("devmng", "storagemng:dev_path", "/dev/mmcblk0p1")
        .Set("devmng", "gsensor:sensitivity", "2")
        .Set("devmng", "parking:sensitivity", "-3")
        .Set("devmng", "keytone:enable", "1")
        .Set("devmng", "bootsound:enable", "no")
        .Set("devmng", "language:system_language", "258")
        .Set("devmng", "buzzer:enable", "True");
    std::string expected(420, '\0');
    expected.replace(0, 5, "1.2.3");
    expected.replace(64, 8, "Dash Cam");
    expected.replace(128, 7, "/mnt/sd");
    expected.replace(256, 14, "/dev/mmcblk0p1");
    expected.replace(392, 4, std::string("\x02\x00\x00\x00", 4));
    expected.replace(396, 4, std::string("\xfd\xff\xff\xff", 4));
    expected.replace(404, 4, std::string("\x01\x00\x00\x00", 4));
    expected.replace(412, 4, std::string("\x02\x01\x00\x00", 4));
    expected.replace(416, 4, std::string("\x01\x00\x00\x00", 4));
    const LoadResult result = LoadTree(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kDevMngTable, expected, result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadStringValue: devinfo:software_version [1.2.3]\n",
                            "PDT_INIPARAM_LoadStringValue: devinfo:model [Dash Cam]\n",
                            "PDT_INIPARAM_LoadDevInfo: software version[1.2.3], model[Dash Cam]\n",
                            "PDT_INIPARAM_LoadStringValue: storagemng:mount_path [/mnt/sd]\n",
                            "PDT_INIPARAM_LoadStringValue: storagemng:dev_path [/dev/mmcblk0p1]\n",
                            "PDT_INIPARAM_LoadStorageCfg: mount path[/mnt/sd], device "
                            "path[/dev/mmcblk0p1], mediumType[0] devPortNo[0]\n",
                            "PDT_INIPARAM_LoadGsensorCfg: gsensor sensitivity[2]\n",
                            "PDT_INIPARAM_LoadGsensorCfg: gsensor parking sensitivity[-3]\n",
                            "PDT_INIPARAM_LoadSysCfg: keytone enable[1]\n",
                            "PDT_INIPARAM_LoadSysCfg: bootsound enable[0]\n",
                            "PDT_INIPARAM_LoadSysCfg: system language[258]\n",
                            "PDT_INIPARAM_LoadSysCfg: buzzer enable[1]\n"));
}

TEST(DevMng, OnlyTextsSetLeavesNumbersZero) {
    ProductTree tree;
    tree.Set("devmng", "devinfo:software_version", "v")
        .Set("devmng", "devinfo:model", "m")
        .Set("devmng", "storagemng:mount_path", "p")
        .Set("devmng", "storagemng:dev_path", "d");
    EXPECT_EQ(LoadTree(tree).record.substr(384), std::string(36, '\0'));
}

TEST(DevMng, MediumTypeAndPortAreNeverRead) {
    ProductTree tree = EmptyTree();
    tree.Set("devmng", "storagemng:medium_type", "7").Set("devmng", "storagemng:dev_port_no", "9");
    EXPECT_EQ(LoadTree(tree).record.substr(384, 8), std::string(8, '\0'));
}

TEST(DevMng, LongestVersionFitsAndOneMoreFails) {
    EXPECT_EQ(LoadTree(EmptyTree().Set("devmng", "devinfo:software_version", std::string(63, 'v')))
                  .record.substr(0, 64),
              std::string(63, 'v') + '\0');
    const LoadResult result =
        LoadTree(EmptyTree().Set("devmng", "devinfo:software_version", std::string(64, 'v')));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n",
                    "PDT_INIPARAM_LoadDevInfo: [devinfo:software_version] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadDevMngConf: [devinfo] failed[0xFFFFFFFF]\n"));
}

TEST(DevMng, EachBlockHasItsLabel) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("devmng", "storagemng:dev_path", std::string(128, 'd')))
                     .output),
        ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n",
                    "PDT_INIPARAM_LoadStorageCfg: [storagemng:dev_path] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadDevMngConf: [storage] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("devmng", "parking:sensitivity", "2147483648")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [parking:sensitivity] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadGsensorCfg: [parking:sensitivity] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadDevMngConf: [gsensor config] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsOf(
            LoadTree(EmptyTree().Set("devmng", "language:system_language", "-2147483649")).output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [language:system_language] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadSysCfg: [language:system_language] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadDevMngConf: [system config] failed[0xFFFFFFFF]\n"));
}

TEST(DevMng, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadStringValue: [devinfo:software_version] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadDevInfo: [devinfo:software_version] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadDevMngConf: [devinfo] failed[0xA1418046]\n"));
}

TEST(DevMng, NullSectionIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadDevMngConf(nullptr); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadDevMngConf: pointer[param] is null\n"));
}

}  // namespace
}  // namespace paramgen::testing
