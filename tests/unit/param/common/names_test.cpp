#include "param/common/names.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::testing {
namespace {

constexpr char kPrefix[] = "QX_";
constexpr NamedNumber<kPrefix, 60> kTable[] = {
    {"QX_one", 1},
    {"QX_one", 2},
    {"QX_", 3},
    {"QX_nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn", -4},  // 63 characters
    {"QX_uno", 1},
};
constexpr NameTable kNames(kTable);

/// The number of a name, or 0.
std::int32_t NumberOf(const std::string& name) {
    std::int32_t number = 0;
    const bool found = FindNumber(kTable, name.c_str(), &number);
    EXPECT_EQ(found, number != 0);
    return number;
}

TEST(Names, TheFirstOfTwoCounts) {
    EXPECT_EQ(NumberOf("QX_one"), 1);
}

TEST(Names, EveryCharacterDecides) {
    EXPECT_EQ(NumberOf("QX_one more"), 0);
    EXPECT_EQ(NumberOf("QX_on"), 0);
    EXPECT_EQ(NumberOf("QX_onE"), 0);
    EXPECT_EQ(NumberOf("QY_one"), 0);
    EXPECT_EQ(NumberOf("one"), 0);
    EXPECT_EQ(NumberOf("QX"), 0);
    EXPECT_EQ(NumberOf(""), 0);
    EXPECT_EQ(NumberOf("QX_"), 3);
}

TEST(Names, ANumberHasTheFirstOfItsNames) {
    std::size_t index = 9;
    EXPECT_TRUE(kNames.FindName(1, &index));
    EXPECT_EQ(index, 0U);
    EXPECT_TRUE(kNames.FindName(3, &index));
    EXPECT_EQ(index, 2U);
    EXPECT_TRUE(kNames.FindName(-4, &index));
    EXPECT_EQ(index, 3U);
    EXPECT_FALSE(kNames.FindName(0, &index));
    EXPECT_EQ(index, 3U);
}

TEST(Names, ATableCanBeGoneThrough) {
    ASSERT_EQ(kNames.Count(), 5U);
    EXPECT_STREQ(kNames.Prefix(), "QX_");
    EXPECT_STREQ(kNames.Rest(0), "one");
    EXPECT_STREQ(kNames.Rest(2), "");
    EXPECT_EQ(kNames.Number(1), 2);
    EXPECT_EQ(kNames.Number(3), -4);
}

TEST(Names, LongNamesAreComparedToTheirEnd) {
    const std::string longest = "QX_" + std::string(60, 'n');
    EXPECT_EQ(NumberOf(longest), -4);
    EXPECT_EQ(NumberOf(longest + "n"), 0);
    EXPECT_EQ(NumberOf(longest.substr(0, 62)), 0);
    EXPECT_EQ(NumberOf(longest + std::string(1000, 'n')), 0);
}

}  // namespace
}  // namespace paramgen::testing
