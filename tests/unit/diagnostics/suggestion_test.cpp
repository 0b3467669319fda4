#include "diagnostics/suggestion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace paramgen::diagnostics {
namespace {

TEST(EditDistance, CountsLettersAndSwaps) {
    EXPECT_EQ(EditDistance("luma", "luma", 9), 0U);
    EXPECT_EQ(EditDistance("luma", "LUMA", 9), 0U);
    EXPECT_EQ(EditDistance("lumma", "luma", 9), 1U);
    EXPECT_EQ(EditDistance("lma", "luma", 9), 1U);
    EXPECT_EQ(EditDistance("lumx", "luma", 9), 1U);
    EXPECT_EQ(EditDistance("ulma", "luma", 9), 1U);
    EXPECT_EQ(EditDistance("", "luma", 9), 4U);
    EXPECT_EQ(EditDistance("contrast", "luma", 3), 4U);
}

TEST(Nearest, SuggestsWhatIsNearAndNothingElse) {
    const std::vector<std::string> keys = {"luma", "contrast", "hue", "saturation", "max_qp"};
    EXPECT_EQ(Nearest("luma_", keys), "luma");
    EXPECT_EQ(Nearest("satruation", keys), "saturation");
    EXPECT_EQ(Nearest("qp_max", keys), "max_qp");
    EXPECT_EQ(Nearest("HUE", keys), "hue");
    EXPECT_EQ(Nearest("brightness", keys), "");
    EXPECT_EQ(Nearest("x", keys), "");
    EXPECT_EQ(Nearest("abc", keys), "");
}

}  // namespace
}  // namespace paramgen::diagnostics
