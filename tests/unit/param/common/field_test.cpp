#include "param/common/field.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "param/common/load_fields.h"
#include "param/common/media_mode.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// A point of the inner record.
struct Inner {
    std::int32_t x;
    std::int32_t byQuery[2];
};

/// One member of every kind.
struct Outer {
    Bool32 flag;
    std::int32_t number;
    std::uint32_t bits;
    std::uint8_t low;
    std::byte gap[1];
    std::int16_t narrow;
    std::uint64_t wide;
    float real;
    char text[8];
    MediaMode mode;
    std::int32_t copy;
    std::int32_t pair[2];
    Bool32 queriedFlag;
    std::uint32_t fixed;
    std::int32_t own[1];
    Inner inner[2];
    std::byte tail[8];
};

constexpr Field kInnerFields[] = {
    FIELD(Inner, x, "x", 3),
    QUERY(Inner, byQuery, "q%u", 4),
};
constexpr TableOf<Inner> kInnerTable{"%s.inner.%u", kInnerFields};

constexpr Field kOuterFields[] = {
    FIELD(Outer, number, "number", -1),
    FIELD(Outer, flag, "flag", 1),
    FIELD(Outer, bits, "bits", 2).At("elsewhere"),
    FIELD(Outer, low, "low").Label("theLow"),
    FIELD(Outer, narrow, "narrow"),
    QUERY(Outer, wide, "wide", -2),
    QUERY(Outer, real, "real", 1),
    FIELD(Outer, text, "text").FullLabel(),
    QUERY(Outer, mode, "mode"),
    COPY(Outer, copy, number),
    FIELD(Outer, pair, "pair%d", 5),
    QUERY(Outer, queriedFlag, "queried", 0),
    CONSTANT(Outer, fixed, 85),
    LOADED(Outer, own, "own%u", 6).Under("%s.under"),
    RECORD(Outer, inner, kInnerTable),
    RESERVED(Outer, gap),
    RESERVED(Outer, tail),
};
constexpr TableOf<Outer> kOuterTable{nullptr, kOuterFields};

Status LoadOuter(void* record) {
    const CallSite site = {"LoadOuter", 7};
    Status status = LoadFields(site, "m", "node", kOuterTable, record);
    if (status == kOk) {
        status = LoadField(site, "m", "node", ROW(kOuterTable, pair), 1, record);
    }
    return status;
}

LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, sizeof(Outer), LoadOuter);
}

Outer AsOuter(const std::string& record) {
    Outer outer;
    std::memcpy(&outer, record.data(), sizeof outer);
    return outer;
}

TEST(Field, DefaultsConstantsAndCopies) {
    const LoadResult result = LoadTree(ProductTree().AddModule("m"));
    EXPECT_EQ(result.status, 0);
    const Outer outer = AsOuter(result.record);
    EXPECT_EQ(outer.flag, kTrue);
    EXPECT_EQ(outer.number, -1);
    EXPECT_EQ(outer.copy, -1);
    EXPECT_EQ(outer.bits, 2U);
    EXPECT_EQ(outer.low, 0);
    EXPECT_EQ(outer.narrow, 0);
    EXPECT_EQ(outer.wide, 0xFFFFFFFFFFFFFFFEU);
    EXPECT_EQ(outer.real, 1.0F);
    EXPECT_STREQ(outer.text, "");
    EXPECT_EQ(outer.mode, 0);
    EXPECT_EQ(outer.pair[0], 5);
    EXPECT_EQ(outer.pair[1], 5);
    EXPECT_EQ(outer.fixed, 85U);
    EXPECT_EQ(outer.own[0], 0);
    EXPECT_EQ(outer.inner[0].x, 0);
    EXPECT_EQ(outer.tail[7], std::byte{0});
}

TEST(Field, ValuesOfEveryKind) {
    ProductTree tree;
    tree.Set("m", "node:flag", "no")
        .Set("m", "node:number", "12")
        .Set("m", "elsewhere:bits", "-1")
        .Set("m", "node:bits", "9")
        .Set("m", "node:low", "300")
        .Set("m", "node:narrow", "-32768")
        .Set("m", "node:wide", "-1")
        .Set("m", "node:real", "0.5")
        .Set("m", "node:text", "1234567")
        .Set("m", "node:mode", "QX_PARAM_MEDIAMODE_PLAYBACK")
        .Set("m", "node:pair0", "20")
        .Set("m", "node:pair1", "21")
        .Set("m", "node:queried", "t");
    const Outer outer = AsOuter(LoadTree(tree).record);
    EXPECT_EQ(outer.flag, kFalse);
    EXPECT_EQ(outer.number, 12);
    EXPECT_EQ(outer.copy, 12);
    EXPECT_EQ(outer.bits, 0xFFFFFFFFU);
    EXPECT_EQ(outer.low, 44);
    EXPECT_EQ(outer.narrow, -32768);
    EXPECT_EQ(outer.wide, 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(outer.real, 0.5F);
    EXPECT_STREQ(outer.text, "1234567");
    EXPECT_EQ(outer.mode, 53);
    EXPECT_EQ(outer.pair[0], 20);
    EXPECT_EQ(outer.pair[1], 21);
    EXPECT_EQ(outer.queriedFlag, kTrue);
}

std::vector<std::string> ErrorsWith(const std::string& key, const std::string& value) {
    const LoadResult result = LoadTree(ProductTree().Set("m", key, value));
    EXPECT_EQ(result.status, -1) << key;
    return ErrorsOf(result.output);
}

TEST(Field, FailuresAreLabelledAsTheRowSays) {
    const std::string big = "4000000000";
    EXPECT_THAT(
        ErrorsWith("node:number", big),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [node:number] failed[0xFFFFFFFF]\n",
                    "LoadOuter: [number] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(
        ErrorsWith("elsewhere:bits", big),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [elsewhere:bits] failed[0xFFFFFFFF]\n",
                    "LoadOuter: [elsewhere:bits] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith("node:pair1", big),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [node:pair1] "
                            "failed[0xFFFFFFFF]\n",
                            "LoadOuter: [pair1] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith("node:text", "12345678"),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n",
                            "LoadOuter: [node:text] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith("node:wide", big),
                ElementsAre("LoadOuter: [node:wide] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith("node:mode", "?"),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[?]\n",
                            "LoadOuter: [node:mode] failed[0xFFFFFFFF]\n"));
}

TEST(Field, SixteenBitsAreChecked) {
    for (const char* value : {"32768", "-32769"}) {
        EXPECT_THAT(ErrorsWith("node:narrow", value),
                    ElementsAre("LoadOuter: value is out of range"))
            << value;
    }
    EXPECT_EQ(AsOuter(LoadTree(ProductTree().Set("m", "node:narrow", "32767")).record).narrow,
              32767);
}

TEST(Field, FailedQueriesCarryTheirCode) {
    const RegisteredProduct product(ProductTree().AddModule("m"));
    const CallSite site = {"LoadOuter", 7};
    Outer outer = {};
    for (const Field* field : {&ROW(kOuterTable, wide), &ROW(kOuterTable, real),
                               &ROW(kOuterTable, mode), &ROW(kOuterTable, queriedFlag)}) {
        Status status = 0;
        const std::string output =
            CaptureStdout([&] { status = LoadField(site, "none", "node", *field, 0, &outer); });
        EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA1418046U);
        EXPECT_THAT(ErrorsOf(output), ElementsAre("LoadOuter: [node:" + std::string(field->key) +
                                                  "] failed[0xA1418046]\n"));
    }
    const std::string output = CaptureStdout(
        [&] { EXPECT_NE(LoadField(site, "none", "node", ROW(kOuterTable, low), 0, &outer), 0); });
    EXPECT_THAT(ErrorsOf(output), ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [node:low] "
                                              "failed[0xA1418046]\n",
                                              "LoadOuter: [theLow] failed[0xA1418046]\n"));
}

TEST(Field, NullModulesAndRecordsAreRefused) {
    const RegisteredProduct product(ProductTree().AddModule("m"));
    const CallSite site = {"LoadOuter", 7};
    Outer outer = {};
    Status status = 0;
    std::string output = CaptureStdout(
        [&] { status = LoadFields(site, nullptr, "node", ROW(kOuterTable, wide), &outer); });
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA1418041U);
    EXPECT_THAT(output, StartsWith("func:ZV_CONFACCESS_GetInt,line:425,pointer[module] is null\n"));
    EXPECT_THAT(ErrorsOf(output), ElementsAre("LoadOuter: [node:wide] failed[0xA1418041]\n"));
    output = CaptureStdout([&] {
        EXPECT_EQ(LoadField(site, "m", "node", ROW(kOuterTable, wide), 0, nullptr), -1);
        EXPECT_EQ(LoadFields(site, "m", "node", kOuterTable, nullptr), -1);
    });
    EXPECT_THAT(ErrorsOf(output), ElementsAre("LoadOuter: pointer[param] is null\n",
                                              "LoadOuter: pointer[param] is null\n"));
}

TEST(Field, KeysThatDoNotFitAreTold) {
    const RegisteredProduct product(ProductTree().AddModule("m"));
    const CallSite site = {"LoadOuter", 7};
    const std::string node(125, 'n');
    Outer outer = {};
    for (const Field* field : {&ROW(kOuterTable, wide), &ROW(kOuterTable, text)}) {
        Status status = 0;
        const std::string output =
            CaptureStdout([&] { status = LoadField(site, "m", node.c_str(), *field, 0, &outer); });
        EXPECT_EQ(status, -1);
        EXPECT_THAT(ErrorsOf(output), ElementsAre("LoadOuter: [sprintf_s] failed\n"));
    }
    constexpr Field endless = FIELD(Outer, number,
                                    "an item name of far more characters than any key may have, "
                                    "which no table has, but which a table "
                                    "might have, number %u, and then it fails like any other");
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = LoadField(site, "m", "n", endless, 0, &outer); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output), ElementsAre("LoadOuter: [sprintf_s] failed\n"));
    Key key;
    EXPECT_EQ(FormatFullKey(&key, "n", endless, 0), -1);
}

TEST(Field, RowsThatTheLoaderReadsItselfArePassedOver) {
    const RegisteredProduct product(ProductTree().Set("m", "node:own0", "1"));
    const CallSite site = {"LoadOuter", 7};
    Outer outer = {};
    EXPECT_EQ(LoadFields(site, "m", "node", ROWS(kOuterTable, own, tail), &outer), 0);
    const Outer untouched = {};
    EXPECT_EQ(std::memcmp(&outer, &untouched, sizeof outer), 0);
    Key key;
    EXPECT_EQ(FormatFullKey(&key, "node", ROW(kOuterTable, own), 3), 9);
    EXPECT_STREQ(key.c_str(), "node:own3");
}

TEST(Field, ErrorsNameTheLine) {
    const std::string output = LoadTree(ProductTree().Set("m", "node:wide", "4000000000")).output;
    EXPECT_NE(output.find("\033[m[\033[1;31mERROR\033[m-PARAM]:LoadOuter[7]:[node:wide] failed"),
              std::string::npos);
}

// The sections' tests depend on the walk, so it is compared with literal lines here.
TEST(TableWalk, DescribesEveryElement) {
    EXPECT_THAT(
        DescribeTable(kOuterTable, "m", "node"),
        ElementsAre(
            "4 4 i32 reader m node:number -1 number", "0 4 bool reader m node:flag 1 flag",
            "8 4 u32 reader m elsewhere:bits 2 elsewhere:bits",
            "12 1 u8 reader m node:low 0 theLow", "14 2 i16 reader m node:narrow 0 narrow",
            "16 8 u64 query m node:wide -2 node:wide", "24 4 f32 query m node:real 1 node:real",
            "28 8 text reader m node:text - node:text", "36 4 name query m node:mode - node:mode",
            "40 4 i32 copy - - 4 -", "44 4 i32 reader m node:pair0 5 pair0",
            "48 4 i32 reader m node:pair1 5 pair1", "52 4 bool query m node:queried 0 node:queried",
            "56 4 u32 constant - - 85 -", "60 4 i32 loader m node.under:own0 6 own0",
            "64 4 i32 reader m node.inner.0:x 3 x",
            "68 4 i32 query m node.inner.0:q0 4 node.inner.0:q0",
            "72 4 i32 query m node.inner.0:q1 4 node.inner.0:q1",
            "76 4 i32 reader m node.inner.1:x 3 x",
            "80 4 i32 query m node.inner.1:q0 4 node.inner.1:q0",
            "84 4 i32 query m node.inner.1:q1 4 node.inner.1:q1", "13 1 bytes nobody - - - -",
            "88 8 bytes nobody - - - -"));
}

}  // namespace
}  // namespace paramgen::testing
