#include "paramtool/layout_id.h"

#include <gtest/gtest.h>

#include <string>

#include "manual/layout_data.h"

namespace paramgen::paramtool {
namespace {

TEST(LayoutId, IsThatOfTheLayout) {
    EXPECT_EQ(kLayoutId, manual::LayoutId());
    EXPECT_EQ(std::string(kLayoutId).size(), 16U);
}

}  // namespace
}  // namespace paramgen::paramtool
