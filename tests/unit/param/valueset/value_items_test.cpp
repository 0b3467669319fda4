#include "param/valueset/value_items.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

/// Result of loading one set into bytes of its own.
struct SetLoad {
    Status status;
    std::string output;
    std::string bytes;
};

using Loader = Status (*)(const char* module, const char* item, ValueSetView set);

SetLoad LoadSet(Loader load, const ProductTree& tree, const std::string& before,
                const std::string& item = "set") {
    const RegisteredProduct product(tree);
    std::vector<char> memory(before.begin(), before.end());
    SetLoad result = {};
    result.output = CaptureStdout([&] {
        result.status =
            load("m", item.c_str(), ValueSetView(std::as_writable_bytes(std::span(memory))));
    });
    result.bytes.assign(memory.begin(), memory.end());
    return result;
}

const std::string kNothing(164, '\0');

ProductTree Tree(const std::string& num) {
    return ProductTree().Set("m", "set:num", num);
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(ValueItems, TablesAreTheSetsLayout) {
    std::vector<std::string> numbers = {"0 4 u32 query m set:num 0 set:num"};
    std::vector<std::string> modes = numbers;
    for (int k = 0; k < 10; ++k) {
        const std::string index = std::to_string(k);
        const std::string description = std::to_string(4 + 16 * k) +
                                        " 12 text loader m set:description" + index +
                                        " - set:description" + index;
        const std::string offset = std::to_string(16 + 16 * k);
        const std::string value = "set:value" + index;
        numbers.push_back(description);
        numbers.push_back(offset + " 4 u32 query m " + value + " 0 " + value);
        modes.push_back(description);
        modes.push_back(offset + " 4 name query m " + value + " - " + value);
    }
    EXPECT_EQ(DescribeTable(kNumberSetTable, "m", "set"), numbers);
    EXPECT_EQ(DescribeTable(kMediaModeSetTable, "m", "set"), modes);
}

TEST(ValueItems, NumbersByHand) {
    ProductTree tree = Tree("3");
    tree.Set("m", "set:description0", "off")
        .Set("m", "set:value0", "-2")
        .Set("m", "set:description1", "\"15 seconds\"")
        .Set("m", "set:value1", "258")
        .Set("m", "set:description3", "not counted");
    const SetLoad result = LoadSet(PDT_INIPARAM_LoadCommItemValues, tree, kNothing);
    EXPECT_EQ(result.status, 0);
    std::string expected = kNothing;
    expected[0] = '\3';
    expected.replace(4, 3, "off");
    expected.replace(16, 4, "\xfe\xff\xff\xff");
    expected.replace(20, 10, "15 seconds");
    expected.replace(32, 2, "\2\1");
    EXPECT_EQ(result.bytes, expected);
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadCommItemValues: CommItem[set] Support ValueCnt[3]\n",
            "PDT_INIPARAM_LoadStringValue: set:description0 [off]\n",
            "PDT_INIPARAM_LoadCommItemValues:       [0] Description[off] Value[4294967294]\n",
            "PDT_INIPARAM_LoadStringValue: set:description1 [15 seconds]\n",
            "PDT_INIPARAM_LoadCommItemValues:       [1] Description[15 seconds] Value[258]\n",
            "PDT_INIPARAM_LoadStringValue: set:description2 []\n",
            "PDT_INIPARAM_LoadCommItemValues:       [2] Description[] Value[0]\n",
            "PDT_INIPARAM_LoadCommItemValues: \n\n"));
}

TEST(ValueItems, MediaModesByHand) {
    ProductTree tree = Tree("2");
    tree.Set("m", "set:description0", "4K")
        .Set("m", "set:value0", "QX_PARAM_MEDIAMODE_2160P_30")
        .Set("m", "set:description1", "unset");
    const SetLoad result = LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, tree, kNothing);
    EXPECT_EQ(result.status, 0);
    std::string expected = kNothing;
    expected[0] = '\2';
    expected.replace(4, 2, "4K");
    expected[16] = '\x1e';
    expected.replace(20, 5, "unset");
    EXPECT_EQ(result.bytes, expected);
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadMediaModeItemValues: MediaModeItem[set] Support ValueCnt[2]\n",
            "PDT_INIPARAM_LoadStringValue: set:description0 [4K]\n",
            "PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_2160P_30] Enum[30]\n",
            "PDT_INIPARAM_LoadMediaModeItemValues:       [0] Description[4K] Value[30]\n",
            "PDT_INIPARAM_LoadStringValue: set:description1 [unset]\n",
            "PDT_INIPARAM_LoadMediaModeItemValues:       [1] Description[unset] Value[0]\n",
            "PDT_INIPARAM_LoadMediaModeItemValues: \n\n"));
}

TEST(ValueItems, NoChoicesReadNoKey) {
    for (const std::string num : {"0", ""}) {
        ProductTree tree = Tree(num);
        tree.Set("m", "set:description0", std::string(20, 'd')).Set("m", "set:value0", "1");
        const SetLoad numbers = LoadSet(PDT_INIPARAM_LoadCommItemValues, tree, kNothing);
        EXPECT_EQ(numbers.status, 0);
        EXPECT_EQ(numbers.bytes, kNothing);
        EXPECT_THAT(EchoOf(numbers.output),
                    ElementsAre("PDT_INIPARAM_LoadCommItemValues: CommItem[set] Support "
                                "ValueCnt[0]\n",
                                "PDT_INIPARAM_LoadCommItemValues: \n\n"));
        const SetLoad modes = LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, tree, kNothing);
        EXPECT_EQ(modes.bytes, kNothing);
        EXPECT_THAT(EchoOf(modes.output),
                    ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: MediaModeItem[set] Support "
                                "ValueCnt[0]\n",
                                "PDT_INIPARAM_LoadMediaModeItemValues: \n\n"));
    }
}

TEST(ValueItems, AbsentMediaModeKeepsWhatIsThere) {
    const SetLoad result =
        LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, Tree("1"),
                std::string(16, '\0') + "\xfe\xff\xff\xff" + std::string(144, '\0'));
    EXPECT_EQ(result.bytes.substr(16, 4), "\xfe\xff\xff\xff");
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: MediaModeItem[set] Support "
                    "ValueCnt[1]\n",
                    "PDT_INIPARAM_LoadStringValue: set:description0 []\n",
                    "PDT_INIPARAM_LoadMediaModeItemValues:       [0] Description[] Value[-2]\n",
                    "PDT_INIPARAM_LoadMediaModeItemValues: \n\n"));
}

TEST(ValueItems, LongestDescriptionFitsAndOneMoreFails) {
    const struct {
        Loader load;
        std::string name;
    } loaders[] = {
        {PDT_INIPARAM_LoadCommItemValues, "PDT_INIPARAM_LoadCommItemValues"},
        {PDT_INIPARAM_LoadMediaModeItemValues, "PDT_INIPARAM_LoadMediaModeItemValues"},
    };
    for (const auto& [load, name] : loaders) {
        ProductTree tree = Tree("1");
        tree.Set("m", "set:description0", "elevenchars");
        const SetLoad fits = LoadSet(load, tree, kNothing);
        EXPECT_EQ(fits.status, 0);
        EXPECT_EQ(fits.bytes.substr(4, 12), std::string("elevenchars\0", 12));
        tree.Set("m", "set:description0", "twelve chars");
        const SetLoad fails = LoadSet(load, tree, kNothing);
        EXPECT_EQ(fails.status, -1);
        EXPECT_THAT(ErrorsOf(fails.output),
                    ElementsAre("PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n",
                                name + ": [set:description0] failed[0xFFFFFFFF]\n"));
    }
}

TEST(ValueItems, BadValuesNameTheirKey) {
    ProductTree tree = Tree("2");
    tree.Set("m", "set:value1", "9999999999");
    SetLoad result = LoadSet(PDT_INIPARAM_LoadCommItemValues, tree, kNothing);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCommItemValues: [set:value1] failed[0xFFFFFFFF]\n"));
    result = LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, tree, kNothing);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[9999999999]\n",
                    "PDT_INIPARAM_LoadMediaModeItemValues: [set:value1] failed[0xFFFFFFFF]\n"));
    for (const Loader load :
         {PDT_INIPARAM_LoadCommItemValues, PDT_INIPARAM_LoadMediaModeItemValues}) {
        result = LoadSet(load, Tree("9999999999"), kNothing);
        EXPECT_EQ(result.status, -1);
        ASSERT_EQ(ErrorsOf(result.output).size(), 1U);
        EXPECT_NE(ErrorsOf(result.output)[0].find(": [set:num] failed[0xFFFFFFFF]\n"),
                  std::string::npos);
    }
}

TEST(ValueItems, MissingModuleFailsWithItsCode) {
    const SetLoad result =
        LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, ProductTree().AddModule("other"), kNothing);
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: [set:num] failed[0xA1418046]\n"));
}

TEST(ValueItems, KeysThatDoNotFit) {
    // ":num" fits, ":description0" and ":value0" do not.
    const std::string item(120, 'i');
    const ProductTree tree = ProductTree().Set("m", item + ":num", "1");
    EXPECT_THAT(ErrorsOf(LoadSet(PDT_INIPARAM_LoadCommItemValues, tree, kNothing, item).output),
                ElementsAre("PDT_INIPARAM_LoadCommItemValues: [sprintf_s] failed\n"));
    EXPECT_THAT(
        ErrorsOf(LoadSet(PDT_INIPARAM_LoadMediaModeItemValues, tree, kNothing, item).output),
        ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: [sprintf_s] failed\n"));
    const std::string longest(124, 'i');
    EXPECT_THAT(
        ErrorsOf(LoadSet(PDT_INIPARAM_LoadCommItemValues, Tree("1"), kNothing, longest).output),
        ElementsAre("PDT_INIPARAM_LoadCommItemValues: [sprintf_s] failed\n"));
}

TEST(ValueItems, RoomDecidesHowManyChoicesThereMayBe) {
    for (const std::size_t room : {164U, 179U, 180U, 5576U}) {
        const std::string before(room, '\0');
        const std::size_t max = (room - 4) / 16;
        for (const Loader load :
             {PDT_INIPARAM_LoadCommItemValues, PDT_INIPARAM_LoadMediaModeItemValues}) {
            SetLoad result = LoadSet(load, Tree(std::to_string(max)), before);
            EXPECT_EQ(result.status, 0);
            const std::string tooMany = std::to_string(max + 1);
            result = LoadSet(load, Tree(tooMany), before);
            EXPECT_EQ(result.status, -1);
            ASSERT_EQ(ErrorsOf(result.output).size(), 1U);
            EXPECT_THAT(ErrorsOf(result.output)[0],
                        ::testing::EndsWith("ItemValues: [set:num] count[" + tooMany +
                                            "] is beyond the section\n"));
            EXPECT_TRUE(EchoOf(result.output).empty());
        }
    }
}

TEST(ValueItems, ALimitBelowTheRoomHolds) {
    const RegisteredProduct product(Tree("3"));
    std::vector<std::byte> memory(164);
    const ValueSetView set(memory);
    EXPECT_EQ(set.LimitedTo(11).MaxCount(), 10U);
    EXPECT_EQ(set.LimitedTo(2).MaxCount(), 2U);
    Status status = 0;
    const std::string output = CaptureStdout(
        [&] { status = PDT_INIPARAM_LoadMediaModeItemValues("m", "set", set.LimitedTo(2)); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output), ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: [set:num] "
                                              "count[3] is beyond the section\n"));
}

TEST(ValueItems, DescriptionWithoutTerminatorIsEchoedUpToTheSectionsEnd) {
    ProductTree tree = Tree("10");
    tree.Set("m", "set:value9", std::to_string(0x78787878));
    const SetLoad result = LoadSet(PDT_INIPARAM_LoadCommItemValues, tree, std::string(164, 'x'));
    EXPECT_EQ(result.status, 0);
    const std::vector<std::string> echo = EchoOf(result.output);
    EXPECT_EQ(echo[1],
              "PDT_INIPARAM_LoadStringValue: set:description0 [" + std::string(160, 'x') + "]\n");
    EXPECT_EQ(echo[2], "PDT_INIPARAM_LoadCommItemValues:       [0] Description[" +
                           std::string(12, 'x') + "] Value[0]\n");
    EXPECT_EQ(echo[20], "PDT_INIPARAM_LoadCommItemValues:       [9] Description[" +
                            std::string(16, 'x') + "] Value[2021161080]\n");
}

}  // namespace
}  // namespace paramgen::testing
