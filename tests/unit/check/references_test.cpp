// The references between values of the example, written down from its files by hand.

#include "check/reference_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "compile/session.h"
#include "layout/layout.h"

namespace paramgen::check {
namespace {

const std::vector<Reference>& OfTheExample() {
    static const std::vector<Reference> references =
        ReferencesOf(compile::Compile(std::string(PARAMGEN_EXAMPLES) + "/dashcam"));
    return references;
}

/// The keys that a key refers to, in the order of the list.
std::vector<std::string> From(const std::string& name) {
    std::vector<std::string> names;
    for (const Reference& reference : OfTheExample()) {
        if (layout::Text(reference.from) == name) {
            names.push_back(layout::Text(reference.to));
        }
    }
    return names;
}

using Names = std::vector<std::string>;

TEST(References, OfHandlesLeadToTheTargetOfTheRightParent) {
    EXPECT_EQ(From("workmode_record/photosource.0:vcappipehdl"),
              Names{"cam0_comm_record/vcap.pipe.0:vcappipehdl"});
    EXPECT_EQ(From("workmode_record/photosource.0:pipechnhdl"),
              Names{"cam0_comm_record/vcap.pipe.0.chn.0:pipechnhdl"});
    EXPECT_EQ(From("workmode_record/photosource.0:vpsshdl"),
              Names{"cam0_comm_record/vpss.0:vpsshdl"});
    EXPECT_EQ(From("workmode_record/photosource.0:vporthdl"),
              Names{"cam0_comm_record/vpss.0.vport.3:vporthdl"});
    EXPECT_EQ(From("workmode_record/photosource.0:thumbnail_hdl"),
              Names{"cam0_comm_record/venc.3:venchdl"});
    EXPECT_EQ(From("cam0_comm_record/vpss.0.extvport.1:bindvporthdl"),
              Names{"cam0_comm_record/vpss.0.vport.3:vporthdl"});
    EXPECT_EQ(From("cam0_comm_record/venc.4:chnhdl_0"),
              Names{"cam0_comm_record/vpss.0.extvport.0:vporthdl"});
}

TEST(References, OfModesLeadToTheModuleThatServesThem) {
    EXPECT_EQ(
        From("workmode_record/common.mediamode.config.0:mediamode"),
        (Names{"cam0_mediamode0/common:mediamode", "valueset/cam.0.mediamode.record:value0"}));
    EXPECT_EQ(From("cam0_ldccfg_1/common:mediamode"), Names{"cam0_mediamode4/common:mediamode"});
}

TEST(References, OfLimitsLeadFromTheLowerToTheUpper) {
    EXPECT_EQ(From("media_common/venc.video.main.h264.cbr:min_qp"),
              Names{"media_common/venc.video.main.h264.cbr:max_qp"});
}

TEST(References, EndAtKeysThatAreThere) {
    const std::vector<Reference>& all = OfTheExample();
    ASSERT_FALSE(all.empty());
    for (const Reference& reference : all) {
        EXPECT_NE(layout::FindKey(reference.to.module, reference.to.section, reference.to.key),
                  nullptr)
            << layout::Text(reference.to);
        EXPECT_NE(std::string(reference.reason), "");
    }
}

}  // namespace
}  // namespace paramgen::check
