#include "param/media_common/media_common.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(MediaCommon, NullSectionIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadMediaCommConf(nullptr); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadMediaCommConf: pointer[param] is null\n"));
    EXPECT_THAT(EchoOf(output), IsEmpty());
}

TEST(MediaCommon, MissingModuleFailsWithItsCode) {
    const LoadResult result = LoadSection(ProductTree().AddModule("other"));
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.video.main:scene_mode", "A1418046"),
                    Failed("LoadMediaCommVideoEncAttr", "scene_mode", "A1418046"),
                    Failed("LoadMediaCommVencCommConf", "MainVideoEnc", "A1418046"),
                    Failed("LoadMediaCommConf", "LoadMediaCommVencCommConf", "A1418046")));
}

TEST(MediaCommon, EncodersHaveTheirLabels) {
    EXPECT_THAT(ChainOf("venc.video.sub:scene_mode"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.video.sub:scene_mode"),
                            Failed("LoadMediaCommVideoEncAttr", "scene_mode"),
                            Failed("LoadMediaCommVencCommConf", "SubVideoEnc"),
                            Failed("LoadMediaCommConf", "LoadMediaCommVencCommConf")));
    EXPECT_THAT(ChainOf("venc.snap.single:receivemode"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.snap.single:receivemode"),
                            Failed("LoadMediaCommSnapEncAttr", "receivemode"),
                            Failed("LoadMediaCommVencCommConf", "SingSnapAttr"),
                            Failed("LoadMediaCommConf", "LoadMediaCommVencCommConf")));
    EXPECT_THAT(ChainOf("venc.snap.sub:quality_factor"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.snap.sub:quality_factor"),
                            Failed("LoadMediaCommSnapEncAttr", "quality_factor"),
                            Failed("LoadMediaCommVencCommConf", "SubSnapAttr"),
                            Failed("LoadMediaCommConf", "LoadMediaCommVencCommConf")));
    EXPECT_THAT(
        ChainOf("venc.hierarchical.qp:frame_num3"),
        ElementsAre(Failed("LoadMediaCommVencHierarchicalQp", "venc.hierarchical.qp:frame_num3"),
                    Failed("LoadMediaCommVencCommConf", "HierarchicalQp"),
                    Failed("LoadMediaCommConf", "LoadMediaCommVencCommConf")));
}

TEST(MediaCommon, LiveSourceGoesByItsNode) {
    EXPECT_THAT(ChainOf("venc.live.src.0:modhdl"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.live.src.0:modhdl"),
                            Failed("LoadVideoModCfg", "modhdl"),
                            Failed("LoadMediaCommConf", "venc.live.src.0")));
}

TEST(MediaCommon, DevicesHaveTheirLabels) {
    EXPECT_THAT(ChainOf("disp.0:disphdl"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "disp.0:disphdl"),
                            Failed("LoadMediaCommDispCfg", "disphdl"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_THAT(
        ChainOf("acapture.0:handle"),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "acapture.0:handle"),
                    Failed("LoadMediaCommAcapCfg", "handle"), Failed("LoadMediaCommConf", "Acap")));
    EXPECT_THAT(ChainOf("aenc.0:aenchdl"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "aenc.0:aenchdl"),
                            Failed("LoadMediaCommAencCfg", "aenchdl"),
                            Failed("LoadMediaCommConf", "Aenc")));
    EXPECT_THAT(
        ChainOf("ao.0:volume"),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "ao.0:volume"),
                    Failed("LoadMediaCommAoCfg", "volume"), Failed("LoadMediaCommConf", "Ao")));
}

TEST(MediaCommon, OnlyFixedWordsAreSetWithoutKeys) {
    const LoadResult result = LoadSection(MediaTree());
    EXPECT_EQ(result.status, 0);
    std::string expected(716, '\0');
    expected[140] = 85;
    expected[144] = 75;
    expected[288] = 85;
    expected[292] = 75;
    expected[680] = 6;  // work mode of the audio output
    EXPECT_TRUE(SameRecord(kMediaCommTable, expected, result.record));
}

TEST(MediaCommon, OnlyTheFirstOfEachDeviceIsRead) {
    const std::string before = LoadSection(MediaTree()).record;
    ProductTree tree = MediaTree();
    for (const char* key :
         {"venc.live.src.1:modhdl", "disp.1:disphdl", "disp.0.SRC.1:modhdl",
          "disp.0.playbackwindow.1:wndhdl", "acapture.1:handle", "acapture.0.chnl.2:handle",
          "aenc.1:aenchdl", "ao.1:volume", "ao.0.chnl.2:handle",
          "venc.snap.single:largethumbnail2_width", "venc.hierarchical.qp:qp_delta4"}) {
        tree.Set("media_common", key, "99999999999");
    }
    const LoadResult result = LoadSection(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kMediaCommTable, before, result.record));
}

TEST(MediaCommon, FirstFailureStopsTheSection) {
    ProductTree tree = MediaTree("venc.live.src.0:chnhdl", "99999999999");
    tree.Set("media_common", "venc.video.main:scene_mode", "2")
        .Set("media_common", "venc.live.src.0:modhdl", "7")
        .Set("media_common", "disp.0:disphdl", "5");
    const LoadResult result = LoadSection(tree);
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record[0], 2);
    EXPECT_EQ(result.record[408], 7);
    EXPECT_EQ(result.record.substr(416), std::string(300, '\0'));
    EXPECT_EQ(EchoOf(result.output).back(),
              "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum3[0]\n");
}

}  // namespace
}  // namespace paramgen::testing
