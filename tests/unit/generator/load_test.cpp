#include "generator/load.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "confaccess/confaccess.h"
#include "log/console_log.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;

/// Result of loading a product. The configuration is released afterwards if it is still registered.
struct Loaded {
    std::uint32_t status;
    std::string output;
    bool leftRegistered;
};

Loaded LoadTree(const ProductTree& tree) {
    const TempDir directory;
    tree.WriteTo(directory);
    const WorkingDirectory here(directory.path());
    ConsoleLogSetup(1, 0, kConsoleDebug);
    Status status = 0;
    Loaded loaded = {};
    loaded.output = CaptureStdout([&] { status = PDT_INIPARAM_LoadCfg(); });
    loaded.status = static_cast<std::uint32_t>(status);
    CaptureStdout([&] { loaded.leftRegistered = ZV_CONFACCESS_Deinit("productini") == 0; });
    return loaded;
}

TEST(Load, SuccessReleasesTheConfiguration) {
    const Loaded loaded = LoadTree(SmallestProduct());
    EXPECT_EQ(loaded.status, 0U) << loaded.output;
    EXPECT_FALSE(loaded.leftRegistered);
}

TEST(Load, RegistrationFailsUnderTheEntryPath) {
    const Loaded loaded = LoadTree(ProductTree());
    EXPECT_EQ(loaded.status, 0xA1418050U);
    EXPECT_THAT(ErrorsOf(loaded.output),
                ElementsAre("PDT_INIPARAM_LoadCfg: [./config_cfgaccess_entry.ini] "
                            "failed[0xA1418050]\n"));
    EXPECT_FALSE(loaded.leftRegistered);
}

TEST(Load, SectionsAreLoadedInOrder) {
    // Several sections must fail; the first one in the load order does.
    ProductTree tree;
    tree.AddModule("none");
    for (const char* module :
         {"devmng", "filemng", "media_common", "workmode_common", "valueset", "cam0_comm"}) {
        const std::string error = ErrorsOf(LoadTree(tree).output).back();
        const std::map<std::string, std::string> labels = {{"devmng", "DevMng Conf"},
                                                           {"filemng", "FileMng Conf"},
                                                           {"media_common", "Media Common Conf"},
                                                           {"workmode_common", "WorkMode Conf"},
                                                           {"valueset", "ValueSet Conf"},
                                                           {"cam0_comm", "VideoMode Conf"}};
        EXPECT_EQ(error, "PDT_INIPARAM_LoadCfg: [" + labels.at(module) + "] failed[0xA1418046]\n");
        tree.AddModule(module);
        if (std::string(module) == "workmode_common") {
            tree.AddModule("workmode_photo").AddModule("workmode_record");
        }
    }
}

TEST(Load, EachSectionHasItsLabel) {
    // Without its module a section fails.
    const struct {
        const char* module;
        const char* label;
    } sections[] = {
        {"devmng", "DevMng Conf"},
        {"filemng", "FileMng Conf"},
        {"media_common", "Media Common Conf"},
        {"workmode_common", "WorkMode Conf"},
        {"valueset", "ValueSet Conf"},
        {"cam0_comm", "VideoMode Conf"},
    };
    for (const auto& section : sections) {
        const Loaded loaded = LoadTree(SmallestProduct().RemoveModule(section.module));
        EXPECT_EQ(loaded.status, 0xA1418046U) << section.module;
        ASSERT_FALSE(ErrorsOf(loaded.output).empty());
        EXPECT_EQ(
            ErrorsOf(loaded.output).back(),
            "PDT_INIPARAM_LoadCfg: [" + std::string(section.label) + "] failed[0xA1418046]\n");
        EXPECT_TRUE(loaded.leftRegistered) << section.module;
    }
}

TEST(Load, SizesAreTold) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    EXPECT_THAT(EchoOf(CaptureStdout(PDT_INIPARAM_DebugParamCfg)),
                ElementsAre("PDT_INIPARAM_DebugParamCfg: Param Size[29928]\n",
                            "PDT_INIPARAM_DebugParamCfg: MediaComm Size[716]\n",
                            "PDT_INIPARAM_DebugParamCfg: WorkModeCfg Size[8912]\n",
                            "PDT_INIPARAM_DebugParamCfg: FileMngCfg Size[1444]\n",
                            "PDT_INIPARAM_DebugParamCfg: DevMngCfg Size[420]\n",
                            "PDT_INIPARAM_DebugParamCfg: ValueSetCfg Size[5576]\n",
                            "PDT_INIPARAM_DebugParamCfg: CAM  UnitSize[12832], Cnt[1]\n",
                            "PDT_INIPARAM_DebugParamCfg: CAM MediaMode Comm Size[1164]\n",
                            "PDT_INIPARAM_DebugParamCfg: CAM MediaMode Spec UnitSize[1864], "
                            "Cnt[5]\n"));
}

}  // namespace
}  // namespace paramgen::testing
