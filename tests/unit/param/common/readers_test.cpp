#include "param/common/readers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ProductTree Tree() {
    ProductTree tree;
    tree.Set("m", "n:negative", "-5")
        .Set("m", "n:big", "2147483648")
        .Set("m", "n:true", "yes")
        .Set("m", "n:false", "0")
        .Set("m", "n:off", "off")
        .Set("m", "n:text", "Text")
        .Set("m", "n:empty", "");
    return tree;
}

/// Runs a reader on the tree above; `output_` is what it printed.
class Readers : public ::testing::Test {
protected:
    template <typename Reader>
    Status Read(const Reader& reader) {
        Status status = 0;
        output_ = CaptureStdout([&] { status = reader(); });
        return status;
    }

    RegisteredProduct product_{Tree()};
    std::string output_;
};

TEST_F(Readers, IntegerIsReadOrDefaulted) {
    std::int32_t value = 77;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("m"), "n", "negative",
                                                               1, &value);
              }),
              0);
    EXPECT_EQ(value, -5);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("m"), "n", "absent",
                                                               -9, &value);
              }),
              0);
    EXPECT_EQ(value, -9);
    EXPECT_EQ(output_, "");
}

TEST_F(Readers, IntegerFailureNamesTheFullKey) {
    std::int32_t value = 77;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("m"), "n", "big", 1,
                                                               &value);
              }),
              -1);
    EXPECT_EQ(value, 77);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [n:big] failed[0xFFFFFFFF]\n"));
    EXPECT_EQ(static_cast<std::uint32_t>(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("none"), "n", "big", 1,
                                                               &value);
              })),
              0xA1418046U);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [n:big] failed[0xA1418046]\n"));
}

TEST_F(Readers, UnsignedStoresTheBits) {
    std::uint32_t value = 77;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix(ProductModule("m"), "n", "negative",
                                                                1, &value);
              }),
              0);
    EXPECT_EQ(value, 4294967291U);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix(ProductModule("m"), "n", "absent",
                                                                200, &value);
              }),
              0);
    EXPECT_EQ(value, 200U);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix(ProductModule("m"), "n", "big", 1,
                                                                &value);
              }),
              -1);
    EXPECT_EQ(value, 200U);
    EXPECT_THAT(
        ErrorsOf(output_),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [n:big] failed[0xFFFFFFFF]\n"));
}

TEST_F(Readers, BooleanIsReadOrDefaulted) {
    Bool32 value = kFalse;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule("m"), "n", "true",
                                                                kFalse, &value);
              }),
              0);
    EXPECT_EQ(value, kTrue);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule("m"), "n", "false",
                                                                kTrue, &value);
              }),
              0);
    EXPECT_EQ(value, kFalse);
    for (const char* key : {"off", "empty", "absent"}) {
        EXPECT_EQ(Read([&] {
                      return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule("m"), "n", key,
                                                                    kTrue, &value);
                  }),
                  0);
        EXPECT_EQ(value, kTrue) << key;
        value = kFalse;
    }
    EXPECT_NE(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule("none"), "n", "true",
                                                                kTrue, &value);
              }),
              0);
    EXPECT_EQ(value, kFalse);
    EXPECT_THAT(
        ErrorsOf(output_),
        ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [n:true] failed[0xA1418046]\n"));
}

TEST_F(Readers, KeyOf127CharactersIsAskedForAndOf128IsNot) {
    const std::string longest(125, 'k');  // "n:" and 125 characters
    std::int32_t value = 77;
    std::uint32_t bits = 77;
    Bool32 truth = kFalse;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("m"), "n",
                                                               longest.c_str(), 3, &value);
              }),
              0);
    EXPECT_EQ(value, 3);
    const std::string tooLong = longest + "k";
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule("none"), "n",
                                                               tooLong.c_str(), 3, &value);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix(ProductModule("none"), "n",
                                                                tooLong.c_str(), 3, &bits);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule("none"), "n",
                                                                tooLong.c_str(), kTrue, &truth);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(bits, 77U);
    EXPECT_EQ(truth, kFalse);
}

TEST_F(Readers, TextIsCopiedAndEchoed) {
    char text[8] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:text", text, 5); }),
        0);
    EXPECT_EQ(std::string(text, 8), std::string("Text\0xxx", 8));
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:text [Text]\n"));
}

TEST_F(Readers, AbsentTextLeavesTheDestination) {
    char text[8] = "old";
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:absent", text, 8); }),
        0);
    EXPECT_STREQ(text, "old");
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:absent [old]\n"));
}

TEST_F(Readers, TextWithoutTerminatorIsEchoedUpToItsEnd) {
    char text[8] = {'o', 'l', 'd', 'o', 'l', 'd', 'e', 'r'};
    const std::span<char> front = std::span(text).first(6);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:absent", front, 5);
              }),
              0);
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:absent [oldold]\n"));
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:text", front, 5); }),
        0);
    EXPECT_EQ(std::string(text, 8), std::string("Text\0der", 8));
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:text [Text]\n"));
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:text", front, 4); }),
        -1);
}

TEST_F(Readers, TextThatDoesNotFitFails) {
    char text[8] = "old";
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadStringValue(ProductModule("m"), "n:text", text, 4); }),
        -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n"));
    EXPECT_THAT(EchoOf(output_), IsEmpty());
}

TEST_F(Readers, TextQueryFailureNamesTheKey) {
    char text[8] = "old";
    EXPECT_EQ(static_cast<std::uint32_t>(Read([&] {
                  return PDT_INIPARAM_LoadStringValue(ProductModule("none"), "n:text", text, 8);
              })),
              0xA1418046U);
    EXPECT_STREQ(text, "old");
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [n:text] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
