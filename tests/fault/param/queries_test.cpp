// The loaders while a query fails.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fault/param/queries.h"
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

}  // namespace
}  // namespace paramgen::testing
