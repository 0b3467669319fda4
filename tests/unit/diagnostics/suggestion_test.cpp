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

TEST(OnlyEnding, NamesTheOneWithTheseLastLettersAndDigits) {
    const std::vector<std::string> modes = {"MODE_2160P_30", "MODE_PHOTO_2160P", "MODE_1440P_30",
                                            "MODE_1440P_30_WDR"};
    EXPECT_EQ(OnlyEnding("2160p30", modes), "MODE_2160P_30");
    EXPECT_EQ(OnlyEnding("1440P_30_WDR", modes), "MODE_1440P_30_WDR");
    EXPECT_EQ(OnlyEnding("photo2160p", modes), "MODE_PHOTO_2160P");
    EXPECT_EQ(OnlyEnding("30", modes), "") << "two end like this";
    EXPECT_EQ(OnlyEnding("60P_30", modes), "") << "in the middle of a word";
    EXPECT_EQ(OnlyEnding("2160p", modes), "MODE_PHOTO_2160P");
    EXPECT_EQ(OnlyEnding("1440p", modes), "");
    EXPECT_EQ(OnlyEnding("", modes), "");
    EXPECT_EQ(OnlyEnding("_", modes), "");
}

}  // namespace
}  // namespace paramgen::diagnostics
