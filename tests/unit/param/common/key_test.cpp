#include "param/common/key.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::testing {
namespace {

TEST(Key, StartsEmpty) {
    EXPECT_STREQ(Key().c_str(), "");
}

TEST(Key, HoldsWhatIsFormatted) {
    Key key;
    EXPECT_EQ(key.Format("%s:%s", "gsensor", "sensitivity"), 19);
    EXPECT_STREQ(key.c_str(), "gsensor:sensitivity");
}

TEST(Key, LongestTextFitsAndOneMoreFails) {
    Key key;
    EXPECT_EQ(key.Format("%s", std::string(127, 'k').c_str()), 127);
    EXPECT_EQ(key.c_str(), std::string(127, 'k'));
    EXPECT_EQ(key.Format("%s", std::string(128, 'k').c_str()), -1);
    EXPECT_STREQ(key.c_str(), "");
}

}  // namespace
}  // namespace paramgen::testing
