// The loaders while a query fails.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fault/param/queries.h"
#include "param/camera/camera.h"
#include "param/camera/ldc.h"
#include "param/camera/vcap_spec.h"
#include "param/devmng/devmng.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FailingQueries, SwitchesOfTheSystemAreReadInTheirOrder) {
    const RegisteredProduct product(ProductTree().AddModule("devmng"));
    const char* const kSwitches[] = {"keytone:enable", "bootsound:enable", "buzzer:enable"};
    int number = 0;
    for (const std::string key : kSwitches) {
        SysCfg cfg = {};
        Status status = 0;
        FailBoolQuery(++number);
        const std::string output =
            CaptureStdout([&] { status = PDT_INIPARAM_LoadSysCfg("devmng", &cfg); });
        EXPECT_EQ(status, -1);
        EXPECT_THAT(ErrorsOf(output),
                    ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [" + key +
                                    "] failed[0xFFFFFFFF]\n",
                                "PDT_INIPARAM_LoadSysCfg: [" + key + "] failed[0xFFFFFFFF]\n"));
    }
    FailBoolQuery(0);
}

TEST(FailingQueries, ComponentMaskThatCannotBeReadStopsTheLoader) {
    const RegisteredProduct product(ProductTree().Set("m", "vcap.dev:componentmask1", "7"));
    for (const char* number : {"0", "1"}) {
        VcapSpecCfg cfg = {};
        Status status = 0;
        FailTextQuery(*number - '0' + 1);
        const std::string output = CaptureStdout([&] {
            status = PDT_INIPARAM_LoadCamVcapSpecCfg("m", static_cast<MediaMode>(0), &cfg);
        });
        EXPECT_EQ(status, -1);
        EXPECT_THAT(ErrorsOf(output), ElementsAre(std::string("PDT_INIPARAM_LoadCamVcapSpecCfg: "
                                                              "[vcap.dev:componentmask") +
                                                  number + "] failed[0xFFFFFFFF]\n"));
    }
    FailTextQuery(0);
}

/// The errors of `load` while the `number`th question whether a module exists fails.
template <class Load>
std::vector<std::string> ErrorsOfFailedModuleQuery(int number, Load load) {
    Status status = 0;
    FailModuleQuery(number);
    const std::string output = CaptureStdout([&] { status = load(); });
    FailModuleQuery(0);
    EXPECT_EQ(status, -1);
    return ErrorsOf(output);
}

TEST(FailingQueries, OptionalModuleOfACameraIsNamed) {
    const RegisteredProduct product(ProductTree()
                                        .AddModule("cam0_comm")
                                        .AddModule("cam0_comm_record")
                                        .AddModule("cam0_comm_photo"));
    int number = 0;
    for (const std::string module : {"cam0_comm_playback", "cam0_mediamode0", "cam0_mediamode1",
                                     "cam0_mediamode2", "cam0_mediamode3", "cam0_mediamode4"}) {
        const auto camera = std::make_unique<CamMediaCfg>();
        EXPECT_THAT(
            ErrorsOfFailedModuleQuery(
                ++number, [&] { return PDT_INIPARAM_LoadCamMediaCfg(camera.get(), 1); }),
            ElementsAre("PDT_INIPARAM_LoadCamMediaCfg: [" + module + "] failed[0xFFFFFFFF]\n"));
    }
}

TEST(FailingQueries, SearchedLensModuleIsNamed) {
    const RegisteredProduct product(ProductTree().AddModule("devmng"));
    int number = 0;
    for (const std::string module : {"cam0_ldccfg_0", "cam0_ldccfg_1"}) {
        ++number;
        VcapLDCAttr attr = {};
        const std::string failed = ": [" + module + "] failed[0xFFFFFFFF]\n";
        EXPECT_THAT(ErrorsOfFailedModuleQuery(number,
                                              [&] {
                                                  return PDT_INITPARAM_LoadCorrespondingVcapLDCAttr(
                                                      static_cast<MediaMode>(0), &attr);
                                              }),
                    ElementsAre("PDT_INITPARAM_LoadCorrespondingVcapLDCAttr" + failed));
        EXPECT_THAT(ErrorsOfFailedModuleQuery(number,
                                              [&] {
                                                  return PDT_INIPARAM_LoadCamVportSpecLDCCfg(
                                                      static_cast<MediaMode>(0), &attr);
                                              }),
                    ElementsAre("PDT_INIPARAM_LoadCamVportSpecLDCCfg" + failed));
    }
}

}  // namespace
}  // namespace paramgen::testing
