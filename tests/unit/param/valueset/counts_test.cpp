// Sets with more choices than their records have room for: the choices are stored in the bytes
// behind the record, but never beyond the section.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/records.h"
#include "support/same_record.h"
#include "unit/param/valueset/section_model.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;

/// A slot, and the number of choices that fit between it and the section's end.
struct Room {
    Slot slot;
    int max;
};

const Room kRooms[] = {
    {{0, "cam.0.enc.payloadtype", kNumbers}, 348},
    {{3, "cam.0.mediamode.record", kModes}, 317},
    {{4, "cam.0.mediamode.photo", kModes}, 307},
    {{15, "cam.0.antiflicker.mode", kNumbers}, 194},
    {{1, "screen.dormant", kDormant}, 338},
    {{2, "screen.brightness", kNumbers}, 327},
    {{16, "splite_time", kNumbers}, 184},
    {{20, "photo.type", kNumbers}, 143},
    {{21, "cam.0.singlephoto.outputformat", kNumbers}, 133},
    {{22, "cam.0.lapsephoto.interval", kNumbers}, 122},
    {{23, "cam.0.burst.mediamode", kModes}, 10},
    {{24, "cam.0.burst.type0", kNumbers}, 102},
    {{32, "cam.0.burst.type8", kNumbers}, 20},
    {{33, "cam.0.burst.type9", kNumbers}, 10},
};

/// Keys of every set: two choices, the second of them without description and value, and ten lists
/// of burst types.
Keys Background() {
    Keys keys;
    for (const Slot& slot : AllSlots()) {
        Fill(&keys, slot, 2);
        keys.erase(slot.item + ":description1");
        keys.erase(slot.item + ":value1");
    }
    keys["cam.0.burst.mediamode:num"] = "10";
    return keys;
}

TEST(ValueSetCounts, ChoicesRunOnInsideTheSection) {
    for (const auto& [slot, max] : kRooms) {
        for (const int count : {0, 1, 10, 11, 12, max - 1, max}) {
            SCOPED_TRACE(slot.item + " " + std::to_string(count));
            if (count > max) {
                continue;
            }
            Keys keys = Background();
            Fill(&keys, slot, count);
            ExpectAsModelled(keys);
        }
    }
}

TEST(ValueSetCounts, EverySetRunsOn) {
    Keys keys;
    for (const Slot& slot : AllSlots()) {
        Fill(&keys, slot, slot.slot == 23 || slot.slot == 33 ? 10 : 20);
    }
    ExpectAsModelled(keys);
}

TEST(ValueSetCounts, EleventhChoiceByHand) {
    // The eleventh codec is stored from byte 164 on, where the set of dormant times is loaded
    // later: its count overwrites the description's first four bytes, its first choice the value.
    const LoadResult result = LoadKeys({{"cam.0.enc.payloadtype:num", "11"},
                                        {"cam.0.enc.payloadtype:description10", "abcdefghijk"},
                                        {"cam.0.enc.payloadtype:value10", "1684234849"},
                                        {"screen.dormant:num", "1"},
                                        {"screen.dormant:value0", "2"}});
    EXPECT_EQ(result.status, 0);
    std::string expected(5576, '\0');
    expected[0] = '\x0b';
    expected[164] = '\1';
    expected.replace(168, 7, "efghijk");
    expected.replace(176, 4, "abcd");
    expected.replace(180, 2, "\xd0\7");
    EXPECT_TRUE(SameRecord(kValueSetTable, expected, result.record));
    EXPECT_NE(result.output.find("Description[efghijk] Value[2]\n"), std::string::npos);
    EXPECT_NE(result.output.find("      [10] Description[abcdefghijk] Value[1684234849]\n"),
              std::string::npos);
}

TEST(ValueSetCounts, DescriptionThatLostItsTerminatorRunsOn) {
    // Codec values without a zero byte are stored where the third slot's descriptions begin.
    Keys keys = {{"cam.0.enc.payloadtype:num", "60"}, {"cam.0.mediamode.record:num", "2"}};
    for (int k = 0; k < 60; ++k) {
        const std::string index = std::to_string(k);
        keys["cam.0.enc.payloadtype:description" + index] = "elevenchars";
        keys["cam.0.enc.payloadtype:value" + index] = "2021161080";
    }
    ExpectAsModelled(keys);
    EXPECT_NE(LoadKeys(keys).output.find("cam.0.mediamode.record:description0 [xxxxelevenchars]"),
              std::string::npos);
}

/// The records of the callers of a set's loader.
std::vector<std::string> ChainOf(const Slot& slot) {
    const std::string item = "[" + slot.item + "] failed[0xFFFFFFFF]\n";
    const std::string section = "PDT_INIPARAM_LoadValueSetCfg: ";
    if (slot.slot >= 21) {
        return {"PDT_INIPARAM_LoadPhotoCfgValueSet: " + item,
                section + "[BurstValueSet] failed[0xFFFFFFFF]\n"};
    }
    if (slot.kind == kDormant) {
        return {"PDT_INIPARAM_LoadDormantValueSetCfg: " + item, section + item};
    }
    if (slot.item.find("cam.0.") == 0) {
        return {"PDT_INIPARAM_LoadCamValueSetCfg: " + item,
                section + "[camValueSetCfg] failed[0xFFFFFFFF]\n"};
    }
    return {section + item};
}

void ExpectRefused(const Slot& slot, const std::string& count, const std::string& asRead) {
    SCOPED_TRACE(slot.item + " " + count);
    Keys keys = Background();
    keys[slot.item + ":num"] = count;
    const LoadResult result = LoadKeys(keys);
    EXPECT_EQ(result.status, -1);
    std::vector<std::string> expected = {
        std::string(slot.kind == kModes ? "PDT_INIPARAM_LoadMediaModeItemValues: ["
                                        : "PDT_INIPARAM_LoadCommItemValues: [") +
        slot.item + ":num] count[" + asRead + "] is beyond the section\n"};
    for (const std::string& text : ChainOf(slot)) {
        expected.push_back(text);
    }
    EXPECT_EQ(ErrorsOf(result.output), expected);
    EXPECT_EQ(result.output.find(slot.item + ":description"), std::string::npos);
    EXPECT_EQ(result.output.find("Item[" + slot.item + "]"), std::string::npos);
}

TEST(ValueSetCounts, CountsBeyondTheSectionAreRefused) {
    for (const auto& [slot, max] : kRooms) {
        ExpectRefused(slot, std::to_string(max + 1), std::to_string(max + 1));
        ExpectRefused(slot, "2147483647", "2147483647");
        ExpectRefused(slot, "-1", "4294967295");
        ExpectRefused(slot, "-2147483648", "2147483648");
    }
}

TEST(ValueSetCounts, BurstMediaModesAreRefusedWhereTheirOwnChoicesWouldFit) {
    // 112 media modes fit, but only ten lists of burst types do.
    ExpectRefused({23, "cam.0.burst.mediamode", kModes}, "11", "11");
    ExpectRefused({23, "cam.0.burst.mediamode", kModes}, "112", "112");
    ExpectRefused({23, "cam.0.burst.mediamode", kModes}, "113", "113");
}

}  // namespace
}  // namespace paramgen::testing
