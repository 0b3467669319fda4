#include "layout/layout.h"

#include <gtest/gtest.h>

namespace paramgen::layout {
namespace {

TEST(Layout, HasNoValueBehindTheImage) {
    EXPECT_EQ(ValueAt(29928), nullptr);
}

}  // namespace
}  // namespace paramgen::layout
