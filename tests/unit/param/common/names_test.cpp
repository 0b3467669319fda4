#include "param/common/names.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::testing {
namespace {

TEST(Names, SixtyFourCharactersDecide) {
    const std::string longName(64, 'n');
    const NamedNumber table[] = {{"one", 1}, {"one", 2}, {longName.c_str(), 3}};
    EXPECT_EQ(FindName(table, "one")->number, 1);
    EXPECT_EQ(FindName(table, "one more"), nullptr);
    EXPECT_EQ(FindName(table, "on"), nullptr);
    EXPECT_EQ(FindName(table, ""), nullptr);
    EXPECT_EQ(FindName(table, (longName + "whatever follows").c_str())->number, 3);
    EXPECT_EQ(FindName(table, std::string(63, 'n').c_str()), nullptr);
}

}  // namespace
}  // namespace paramgen::testing
