#include "param/common/readers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "confaccess/confaccess.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

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

/// Runs readers on the tree above. `output_` is what the last one printed.
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
                  return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", "negative", 1, &value);
              }),
              0);
    EXPECT_EQ(value, -5);
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", "absent", -9, &value); }),
        0);
    EXPECT_EQ(value, -9);
    EXPECT_EQ(output_, "");
}

TEST_F(Readers, IntegerFailureNamesTheFullKey) {
    std::int32_t value = 77;
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", "big", 1, &value); }),
        -1);
    EXPECT_EQ(value, 77);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [n:big] failed[0xFFFFFFFF]\n"));
    EXPECT_EQ(static_cast<std::uint32_t>(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix("none", "n", "big", 1, &value);
              })),
              0xA1418046U);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [n:big] failed[0xA1418046]\n"));
}

TEST_F(Readers, UnsignedStoresTheBits) {
    std::uint32_t value = 77;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", "negative", 1, &value);
              }),
              0);
    EXPECT_EQ(value, 4294967291U);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", "absent", 200, &value);
              }),
              0);
    EXPECT_EQ(value, 200U);
    EXPECT_EQ(
        Read([&] { return PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", "big", 1, &value); }),
        -1);
    EXPECT_EQ(value, 200U);
    EXPECT_THAT(
        ErrorsOf(output_),
        ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [n:big] failed[0xFFFFFFFF]\n"));
}

TEST_F(Readers, BooleanIsReadOrDefaulted) {
    Bool32 value = kFalse;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", "true", kFalse, &value);
              }),
              0);
    EXPECT_EQ(value, kTrue);
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", "false", kTrue, &value);
              }),
              0);
    EXPECT_EQ(value, kFalse);
    for (const char* key : {"off", "empty", "absent"}) {
        EXPECT_EQ(Read([&] {
                      return PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", key, kTrue, &value);
                  }),
                  0);
        EXPECT_EQ(value, kTrue) << key;
        value = kFalse;
    }
    EXPECT_NE(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix("none", "n", "true", kTrue, &value);
              }),
              0);
    EXPECT_EQ(value, kFalse);
    EXPECT_THAT(
        ErrorsOf(output_),
        ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [n:true] failed[0xA1418046]\n"));
}

TEST_F(Readers, BooleanDefaultIsStoredAsItIsGiven) {
    Bool32 value = kFalse;
    for (const char* key : {"off", "absent"}) {
        value = kFalse;
        EXPECT_EQ(Read([&] {
                      return PDT_INIPARAM_LoadBoolValueByNodePrefix(
                          "m", "n", key, static_cast<Bool32>(0x80000002U), &value);
                  }),
                  0);
        EXPECT_EQ(static_cast<std::uint32_t>(value), 0x80000002U) << key;
    }
}

TEST_F(Readers, LockIsHeldForTheCallOnly) {
    // Each reader would wait for ever if the one before still held the lock.
    std::int32_t value = 0;
    std::uint32_t bits = 0;
    Bool32 truth = kFalse;
    char text[8] = "";
    const char* found = nullptr;
    EXPECT_EQ(
        Read([&] {
            Status status = PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", "negative", 0, &value);
            status |= PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", "negative", 0, &bits);
            status |= PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", "true", kFalse, &truth);
            status |= PDT_INIPARAM_LoadStringValue("m", "n:text", text, sizeof text);
            status |= FindText("m", "n:text", &found);
            return status | ZV_CONFACCESS_GetInt("productini", "m", "n:negative", 0, &value);
        }),
        0);
    EXPECT_EQ(value, -5);
    EXPECT_STREQ(text, "Text");
    EXPECT_STREQ(found, "Text");
}

/// Expects the message of the argument check, the reader's record, and the code.
void ExpectNullArgument(const std::string& output, Status status, const std::string& check,
                        const std::string& failure) {
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0xA1418041U);
    EXPECT_THAT(output, StartsWith("func:ZV_CONFACCESS_" + check + "] is null\n"));
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_Load" + failure + " failed[0xA1418041]\n"));
}

TEST_F(Readers, IntegerRefusesNullArguments) {
    std::int32_t value = 77;
    Status status = Read(
        [&] { return PDT_INIPARAM_LoadIntValueByNodePrefix(nullptr, "n", "negative", 1, &value); });
    ExpectNullArgument(output_, status, "GetInt,line:425,pointer[module",
                       "IntValueByNodePrefix: [n:negative]");
    status = Read(
        [&] { return PDT_INIPARAM_LoadIntValueByNodePrefix("m", nullptr, "negative", 1, &value); });
    ExpectNullArgument(output_, status, "GetInt,line:426,pointer[confItem",
                       "IntValueByNodePrefix: [(null)]");
    status =
        Read([&] { return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", nullptr, 1, &value); });
    ExpectNullArgument(output_, status, "GetInt,line:426,pointer[confItem",
                       "IntValueByNodePrefix: [(null)]");
    EXPECT_EQ(value, 77);
    status = Read(
        [&] { return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", "negative", 1, nullptr); });
    ExpectNullArgument(output_, status, "GetInt,line:427,pointer[value",
                       "IntValueByNodePrefix: [n:negative]");
}

TEST_F(Readers, UnsignedRefusesNullArguments) {
    std::uint32_t value = 77;
    Status status = Read([&] {
        return PDT_INIPARAM_LoadUintValueByNodePrefix(nullptr, "n", "negative", 1, &value);
    });
    ExpectNullArgument(output_, status, "GetInt,line:425,pointer[module",
                       "UintValueByNodePrefix: [n:negative]");
    status =
        Read([&] { return PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", nullptr, 1, &value); });
    ExpectNullArgument(output_, status, "GetInt,line:426,pointer[confItem",
                       "UintValueByNodePrefix: [(null)]");
    EXPECT_EQ(value, 77U);
    status = Read(
        [&] { return PDT_INIPARAM_LoadUintValueByNodePrefix("m", "n", "negative", 1, nullptr); });
    ExpectNullArgument(output_, status, "GetInt,line:427,pointer[value",
                       "UintValueByNodePrefix: [n:negative]");
}

TEST_F(Readers, BooleanRefusesNullArguments) {
    Bool32 value = kTrue;
    Status status = Read([&] {
        return PDT_INIPARAM_LoadBoolValueByNodePrefix(nullptr, "n", "true", kFalse, &value);
    });
    ExpectNullArgument(output_, status, "GetBool,line:485,pointer[module",
                       "BoolValueByNodePrefix: [n:true]");
    status = Read(
        [&] { return PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", nullptr, kFalse, &value); });
    ExpectNullArgument(output_, status, "GetBool,line:486,pointer[confItem",
                       "BoolValueByNodePrefix: [(null)]");
    EXPECT_EQ(value, kTrue);
    status = Read(
        [&] { return PDT_INIPARAM_LoadBoolValueByNodePrefix("m", "n", "true", kFalse, nullptr); });
    ExpectNullArgument(output_, status, "GetBool,line:487,pointer[value",
                       "BoolValueByNodePrefix: [n:true]");
}

TEST_F(Readers, TextRefusesNullArguments) {
    char text[8] = "old";
    Status status =
        Read([&] { return PDT_INIPARAM_LoadStringValue(nullptr, "n:text", text, sizeof text); });
    ExpectNullArgument(output_, status, "GetString,line:378,pointer[module",
                       "StringValue: [n:text]");
    status = Read([&] { return PDT_INIPARAM_LoadStringValue("m", nullptr, text, sizeof text); });
    ExpectNullArgument(output_, status, "GetString,line:379,pointer[confItem",
                       "StringValue: [(null)]");
    EXPECT_STREQ(text, "old");
    for (const char* key : {"n:text", "n:absent"}) {
        status = Read([&] { return PDT_INIPARAM_LoadStringValue("m", key, nullptr, 8); });
        ExpectNullArgument(output_, status, "GetString,line:380,pointer[value",
                           std::string("StringValue: [") + key + "]");
    }
}

TEST_F(Readers, KeyOf127CharactersIsAskedForAndOf128IsNot) {
    const std::string longest(125, 'k');  // "n:" and 125 characters
    std::int32_t value = 77;
    std::uint32_t bits = 77;
    Bool32 truth = kFalse;
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix("m", "n", longest.c_str(), 3,
                                                               &value);
              }),
              0);
    EXPECT_EQ(value, 3);
    const std::string tooLong = longest + "k";
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadIntValueByNodePrefix("none", "n", tooLong.c_str(), 3,
                                                               &value);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadUintValueByNodePrefix("none", "n", tooLong.c_str(), 3,
                                                                &bits);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadUintValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(Read([&] {
                  return PDT_INIPARAM_LoadBoolValueByNodePrefix("none", "n", tooLong.c_str(), kTrue,
                                                                &truth);
              }),
              -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [sprintf_s] failed\n"));
    EXPECT_EQ(bits, 77U);
    EXPECT_EQ(truth, kFalse);
}

TEST_F(Readers, TextIsCopiedAndEchoed) {
    char text[8] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:text", text, 5); }), 0);
    EXPECT_EQ(std::string(text, 8), std::string("Text\0xxx", 8));
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:text [Text]\n"));
}

TEST_F(Readers, AbsentTextLeavesTheDestination) {
    char text[8] = "old";
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:absent", text, 8); }), 0);
    EXPECT_STREQ(text, "old");
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:absent [old]\n"));
}

TEST_F(Readers, TextWithoutTerminatorIsEchoedUpToItsEnd) {
    char text[8] = {'o', 'l', 'd', 'o', 'l', 'd', 'e', 'r'};
    const std::span<char> front = std::span(text).first(6);
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:absent", front, 5); }), 0);
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:absent [oldold]\n"));
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:text", front, 5); }), 0);
    EXPECT_EQ(std::string(text, 8), std::string("Text\0der", 8));
    EXPECT_THAT(EchoOf(output_), ElementsAre("PDT_INIPARAM_LoadStringValue: n:text [Text]\n"));
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:text", front, 4); }), -1);
}

TEST_F(Readers, TextThatDoesNotFitFails) {
    char text[8] = "old";
    EXPECT_EQ(Read([&] { return PDT_INIPARAM_LoadStringValue("m", "n:text", text, 4); }), -1);
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n"));
    EXPECT_THAT(EchoOf(output_), IsEmpty());
}

TEST_F(Readers, TextQueryFailureNamesTheKey) {
    char text[8] = "old";
    EXPECT_EQ(static_cast<std::uint32_t>(
                  Read([&] { return PDT_INIPARAM_LoadStringValue("none", "n:text", text, 8); })),
              0xA1418046U);
    EXPECT_STREQ(text, "old");
    EXPECT_THAT(ErrorsOf(output_),
                ElementsAre("PDT_INIPARAM_LoadStringValue: [n:text] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
