#include "manual/words.h"

#include <gtest/gtest.h>

namespace paramgen::manual {
namespace {

TEST(Words, TypesAndMembers) {
    EXPECT_EQ(SnakeCase("GsensorCfg"), "gsensor_cfg");
    EXPECT_EQ(SnakeCase("devMng"), "dev_mng");
    EXPECT_EQ(SnakeCase("LDCV1Attr"), "ldcv1_attr");
    EXPECT_EQ(SnakeCase("H26xRateControl"), "h26x_rate_control");
    EXPECT_EQ(SnakeCase("ValueItem<unsigned int>"), "value_item_unsigned_int");
    EXPECT_EQ(SnakeCase("QX_PARAM_1080P_30"), "qx_param_1080p_30");
    EXPECT_EQ(SnakeCase("NAMES_"), "names");
    EXPECT_EQ(SnakeCase(""), "");
}

}  // namespace
}  // namespace paramgen::manual
