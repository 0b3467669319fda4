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

TEST(Key, JoinsNodeAndItem) {
    Key key;
    EXPECT_EQ(key.Join("gsensor", "sensitivity"), 19);
    EXPECT_STREQ(key.c_str(), "gsensor:sensitivity");
    EXPECT_EQ(key.Join("", ""), 1);
    EXPECT_STREQ(key.c_str(), ":");
}

TEST(Key, LongestJoinFitsAndOneMoreFails) {
    for (std::size_t node = 0; node <= 126; ++node) {
        Key key;
        const std::string item(126 - node, 'i');
        EXPECT_EQ(key.Join(std::string(node, 'n').c_str(), item.c_str()), 127) << node;
        EXPECT_EQ(key.c_str(), std::string(node, 'n') + ":" + item);
        EXPECT_EQ(key.Join(std::string(node, 'n').c_str(), (item + "i").c_str()), -1) << node;
        EXPECT_STREQ(key.c_str(), "");
    }
    for (const std::size_t node : {127U, 128U, 1000U}) {
        Key key;
        EXPECT_EQ(key.Join(std::string(node, 'n').c_str(), ""), -1) << node;
        EXPECT_EQ(key.Join(std::string(node, 'n').c_str(), "i"), -1) << node;
        EXPECT_STREQ(key.c_str(), "");
    }
}

}  // namespace
}  // namespace paramgen::testing
