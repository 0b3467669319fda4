// Failures of the capture settings of a media mode.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/spec_rows.h"
#include "unit/param/camera/vcap_spec_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

/// The chain of failures of a module whose `key` is bad.
Lines ErrorsOfBad(const std::string& key) {
    const LoadResult result = LoadTree(With(key, "2147483648"));
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

TEST(VcapSpec, BadSensorHasItsLabel) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.dev:wdr_mode"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.dev:wdr_mode] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSnsCfg: [vcap.dev:wdr_mode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapSnsAttr] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadDeviceIsLabelledWithItsFullKey) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.dev:cacheLine"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vcap.dev:cacheLine] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [vcap.dev:cacheLine] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadFrameRateOfAPipe) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.2:dst_framerate"),
        ElementsAre(
            "PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.2:dst_framerate] "
            "failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapPipeFrameRateCfg: [dst_framerate] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [framerate] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadBypassModeOfAPipe) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.0:pipe_bypassmode"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.0:pipe_bypassmode] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [pipe_bypassmode] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadMirrorModeOfAPipe) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.3:isp_mirrorflip"),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.pipe.3:isp_mirrorflip] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapIspPubAttr: [isp_mirrorflip] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [IspPubAttr] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadSingleValueOfAPipe) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.1:earlyline"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vcap.pipe.1:earlyline] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSingleValue: [earlyline] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [Vcap Single value] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadChannelOfAPipe) {
    EXPECT_THAT(
        ErrorsOfBad("vcap.pipe.1.chl.0:MotionDenoiseIsoThresh"),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: "
                    "[vcap.pipe.1.chl.0:MotionDenoiseIsoThresh] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg: [MotionDenoiseIsoThresh] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [VcapPipeChnSpec] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, BadCorrectionOfAChannel) {
    EXPECT_THAT(
        ErrorsOf(LoadTree(EmptyTree().Set("cam0_ldccfg_0", "common:mediamode", "?")).output),
        ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[?]\n",
                    "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: [common:mediamode] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg: [LDC total attr] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [VcapPipeChnSpec] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

TEST(VcapSpec, SingleValuesAreReadInTheirOwnOrder) {
    const std::vector<std::string> order = {"frameinterrupt_type", "bnr_buffer_num", "earlyline",
                                            "scene_param_idx"};
    ProductTree tree = EmptyTree();
    for (std::size_t i = order.size(); i-- > 0;) {
        tree.Set("mode", "vcap.pipe.0:" + order[i], "2147483648");
        EXPECT_EQ(LineAt(ErrorsOf(LoadTree(tree).output), 1),
                  "PDT_INIPARAM_LoadCamVcapSingleValue: [" + order[i] + "] failed[0xFFFFFFFF]\n");
    }
}

TEST(VcapSpec, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadTree(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [vcap.dev:sensor_type] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVcapSnsCfg: [vcap.dev:sensor_type] failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapSnsAttr] failed[0xA1418046]\n"));
}

TEST(VcapSpec, MissingModuleAtTheFrameRateOfTheImageProcessor) {
    const LoadResult result = RunLoad(ProductTree().AddModule("other"), 20, [](void* record) {
        return PDT_INIPARAM_LoadCamVcapIspPubAttr("mode", "vcap.pipe.0",
                                                  static_cast<VcapIspPubAttr*>(record));
    });
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamVcapIspPubAttr: [vcap.pipe.0:isp_framerate] "
                            "failed[0xA1418046]\n"));
}

TEST(VcapSpec, MissingModuleAtAPipeAndAtItsChannel) {
    EXPECT_THAT(ErrorsOf(RunLoad(ProductTree().AddModule("other"), 240,
                                 [](void* record) {
                                     return PDT_INIPARAM_LoadCamVcapPipeSpecCfg(
                                         "mode", 3, static_cast<MediaMode>(7),
                                         static_cast<VcapPipeSpecCfg*>(record));
                                 })
                             .output),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [vcap.pipe.3:enable] "
                            "failed[0xA1418046]\n",
                            "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [enable] failed[0xA1418046]\n"));
    EXPECT_THAT(
        ErrorsOf(RunLoad(ProductTree().AddModule("other"), 172,
                         [](void* record) {
                             return PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg(
                                 "mode", 3, 0, static_cast<MediaMode>(7),
                                 static_cast<VcapPipeChnSpecCfg*>(record));
                         })
                     .output),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [vcap.pipe.3.chl.0:dst_width] "
                    "failed[0xA1418046]\n",
                    "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg: [dst_width] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
