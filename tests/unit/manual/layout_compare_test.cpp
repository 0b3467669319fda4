#include "manual/layout_compare.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/result.h"

namespace paramgen::manual {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

output::Json Value(const char* member, int offset, int size, const char* type,
                   const char* key = "k") {
    return {{"member", member}, {"offset", offset}, {"size", size}, {"type", type},
            {"module", "m"},    {"section", "s"},   {"key", key}};
}

output::Json Layout(std::vector<output::Json> values, int size = 16) {
    return {{"schema", 1}, {"size", size}, {"values", values}};
}

std::vector<std::string> Lines(const output::Json& before, const output::Json& after) {
    std::vector<std::string> lines;
    for (const LayoutChange& change : CompareLayouts(before, after)) {
        lines.push_back((change.misreads ? "! " : "  ") + change.member + " " + change.kind + " " +
                        change.text);
    }
    return lines;
}

const output::Json kOld = Layout({Value("a", 0, 4, "i32"), Value("b", 4, 8, "text")});

TEST(LayoutCompare, EqualOnesHaveNoDifference) {
    EXPECT_THAT(Lines(kOld, kOld), IsEmpty());
}

TEST(LayoutCompare, WhatMovesShrinksOrChangesTypeIsMisread) {
    EXPECT_THAT(Lines(kOld, Layout({Value("b", 0, 6, "text"), Value("a", 8, 4, "u32")})),
                ElementsAre("! a moved from 0 to 8", "! a retyped from i32 to u32",
                            "! b moved from 4 to 0", "! b resized from 8 to 6 bytes"));
}

TEST(LayoutCompare, WhatVanishesIsMisread) {
    EXPECT_THAT(Lines(kOld, Layout({Value("a", 0, 4, "i32")})),
                ElementsAre("! b vanished was at 4"));
}

TEST(LayoutCompare, AnotherSizeOfTheImageIsMisread) {
    EXPECT_THAT(Lines(kOld, Layout(kOld["values"], 20)),
                ElementsAre("! image resized from 16 to 20 bytes"));
}

TEST(LayoutCompare, AnotherNameOrKeyInTheSamePlaceIsNot) {
    EXPECT_THAT(Lines(kOld, Layout({Value("c", 0, 4, "i32"), Value("b", 4, 8, "text", "l")})),
                ElementsAre("  a renamed from a to c", "  b rekeyed from m/s:k to m/s:l"));
}

TEST(LayoutCompare, ReservedBytesMayGetAMeaning) {
    const output::Json before =
        Layout({Value("a", 0, 4, "i32"),
                {{"member", "r"}, {"offset", 4}, {"size", 4}, {"type", "bytes"}}});
    EXPECT_THAT(Lines(before, Layout({Value("a", 0, 4, "i32"), Value("b", 4, 4, "i32")})),
                ElementsAre("  b added at 4"));
}

TEST(LayoutCompare, WhatIsNoLayoutIsRefused) {
    EXPECT_THROW(CompareLayouts(output::Json::array(), kOld), output::UserError);
    EXPECT_THROW(CompareLayouts({{"schema", 2}}, kOld), output::UserError);
    EXPECT_THROW(CompareLayouts(kOld, {{"schema", 1}, {"size", "x"}, {"values", 1}}),
                 output::UserError);
    EXPECT_THROW(CompareLayouts(kOld, Layout({{{"member", 1}}})), output::UserError);
}

}  // namespace
}  // namespace paramgen::manual
