#include <gtest/gtest.h>

#include <string>

#include "safestr/safestr.h"

namespace paramgen::testing {
namespace {

struct Buffer {
    char bytes[8] = {'0', '1', '2', '3', '4', '5', '6', '7'};
    std::string Text() const { return {bytes, sizeof bytes}; }
};

TEST(MemsetS, FillsTheCountAndNoMore) {
    Buffer buffer;
    EXPECT_EQ(memset_s(buffer.bytes, 8, 'x', 3), 0);
    EXPECT_EQ(buffer.Text(), "xxx34567");
}

TEST(MemsetS, FillsTheWholeCapacity) {
    Buffer buffer;
    EXPECT_EQ(memset_s(buffer.bytes, 8, 0, 8), 0);
    EXPECT_EQ(buffer.Text(), std::string(8, '\0'));
}

TEST(MemsetS, NothingToFillSucceeds) {
    Buffer buffer;
    EXPECT_EQ(memset_s(buffer.bytes, 8, 'x', 0), 0);
    EXPECT_EQ(buffer.Text(), "01234567");
}

TEST(MemsetS, RefusesBadArgumentsWithoutWriting) {
    Buffer buffer;
    EXPECT_NE(memset_s(nullptr, 8, 'x', 3), 0);
    EXPECT_NE(memset_s(buffer.bytes, 0, 'x', 0), 0);
    EXPECT_NE(memset_s(buffer.bytes, 4, 'x', 5), 0);
    EXPECT_EQ(buffer.Text(), "01234567");
}

using Copier = int (*)(void*, std::size_t, const void*, std::size_t);

class CopyS : public ::testing::TestWithParam<Copier> {};

TEST_P(CopyS, CopiesTheCountAndNoMore) {
    Buffer buffer;
    EXPECT_EQ(GetParam()(buffer.bytes, 8, "abc", 3), 0);
    EXPECT_EQ(buffer.Text(), "abc34567");
}

TEST_P(CopyS, CopiesTheWholeCapacity) {
    Buffer buffer;
    EXPECT_EQ(GetParam()(buffer.bytes, 8, "abcdefgh", 8), 0);
    EXPECT_EQ(buffer.Text(), "abcdefgh");
}

TEST_P(CopyS, NothingToCopySucceeds) {
    Buffer buffer;
    EXPECT_EQ(GetParam()(buffer.bytes, 8, "abc", 0), 0);
    EXPECT_EQ(buffer.Text(), "01234567");
}

TEST_P(CopyS, RefusesBadArgumentsWithoutWriting) {
    Buffer buffer;
    EXPECT_NE(GetParam()(nullptr, 8, "abc", 3), 0);
    EXPECT_NE(GetParam()(buffer.bytes, 8, nullptr, 3), 0);
    EXPECT_NE(GetParam()(buffer.bytes, 0, "abc", 0), 0);
    EXPECT_NE(GetParam()(buffer.bytes, 2, "abc", 3), 0);
    EXPECT_EQ(buffer.Text(), "01234567");
}

INSTANTIATE_TEST_SUITE_P(Both, CopyS, ::testing::Values(&memcpy_s, &memmove_s));

TEST(MemmoveS, CopiesOverlappingRegionsBothWays) {
    Buffer up;
    EXPECT_EQ(memmove_s(up.bytes + 2, 6, up.bytes, 6), 0);
    EXPECT_EQ(up.Text(), "01012345");
    Buffer down;
    EXPECT_EQ(memmove_s(down.bytes, 8, down.bytes + 2, 6), 0);
    EXPECT_EQ(down.Text(), "23456767");
}

}  // namespace
}  // namespace paramgen::testing
