#include "param/valueset/valueset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/valueset/section_model.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(ValueSetSection, TableIsTheSectionsLayout) {
    std::vector<std::string> expected;
    for (const Slot& slot : AllSlots()) {
        const std::size_t start = 164 * slot.slot;
        const std::string num = slot.item + ":num";
        expected.push_back(std::to_string(start) + " 4 u32 query valueset " + num + " 0 " + num);
        for (std::size_t k = 0; k < 10; ++k) {
            const std::string description = slot.item + ":description" + std::to_string(k);
            const std::string value = slot.item + ":value" + std::to_string(k);
            expected.push_back(std::to_string(start + 4 + 16 * k) + " 12 text loader valueset " +
                               description + " - " + description);
            expected.push_back(std::to_string(start + 16 + 16 * k) +
                               (slot.kind == kModes ? " 4 name query valueset " + value + " - "
                                                    : " 4 u32 query valueset " + value + " 0 ") +
                               value);
        }
    }
    expected.push_back("3116 164 bytes nobody - - - -");
    EXPECT_EQ(DescribeTable(kValueSetTable, "valueset"), expected);
}

/// A product with ten choices in every set, and of each set the count, the first and the last
/// choice.
RowSubject TenEach() {
    RowSubject subject = {
        .fields = {},
        .size = 5576,
        .load =
            [](void* record) {
                return PDT_INIPARAM_LoadValueSetCfg(static_cast<ValueSetCfg*>(record));
            },
        .base = {}};
    for (const Slot& slot : AllSlots()) {
        subject.base.Set("valueset", slot.item + ":num", "10");
    }
    for (const WalkedField& walked : WalkTable(kValueSetTable, "valueset")) {
        const char last = walked.key.empty() ? '0' : walked.key.back();
        if (last == 'm' || last == '0' || last == '9') {
            subject.fields.push_back(walked);
        }
    }
    const Probe milliseconds = {"30", std::string("\x30\x75\0\0", 4)};
    subject.probes = {{"screen.dormant:value0", milliseconds},
                      {"screen.dormant:value9", milliseconds}};
    return subject;
}

TEST(ValueSetSection, EveryRowLoadsItsOwnBytes) {
    CheckRows(TenEach());
}

TEST(ValueSetSection, EverythingAbsentLeavesEverythingZero) {
    const LoadResult result = LoadKeys({});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kValueSetTable, std::string(5576, '\0'), result.record));
    std::vector<std::string> expected;
    for (const Slot& slot : kSlots) {
        const std::string loader = slot.kind == kModes ? "PDT_INIPARAM_LoadMediaModeItemValues: "
                                                       : "PDT_INIPARAM_LoadCommItemValues: ";
        expected.push_back(loader + (slot.kind == kModes ? "MediaModeItem[" : "CommItem[") +
                           slot.item + "] Support ValueCnt[0]\n");
        expected.push_back(loader + "\n\n");
    }
    EXPECT_EQ(EchoOf(result.output), expected);
}

TEST(ValueSetSection, SectionByHand) {
    const Keys keys = {
        {"cam.0.enc.payloadtype:num", "1"},
        {"cam.0.enc.payloadtype:description0", "H.265"},
        {"cam.0.enc.payloadtype:value0", "-1"},
        {"screen.dormant:num", "2"},
        {"screen.dormant:description1", "\"30 s\""},
        {"screen.dormant:value1", "30"},
        {"cam.0.mediamode.photo:num", "10"},
        {"cam.0.mediamode.photo:description9", "elevenchars"},
        {"cam.0.mediamode.photo:value9", "QX_PARAM_MEDIAMODE_PLAYBACK"},
        {"splite_time:num", "1"},
        {"splite_time:value0", "60"},
        {"cam.0.burst.mediamode:num", "2"},
        {"cam.0.burst.mediamode:value1", "QX_PARAM_MEDIAMODE_1080P_60"},
        {"cam.0.burst.type1:num", "1"},
        {"cam.0.burst.type1:description0", "3"},
        {"cam.0.burst.type1:value0", "7"},
        {"cam.0.burst.type2:num", "1"},
        {"cam.1.wdr.status:num", "1"},
    };
    std::string expected(5576, '\0');
    expected[0] = '\1';
    expected.replace(4, 5, "H.265");
    expected.replace(16, 4, "\xff\xff\xff\xff");
    expected[164] = '\2';
    expected.replace(184, 4, "30 s");
    expected.replace(196, 2, "\x30\x75");
    expected[656] = '\x0a';
    expected.replace(804, 11, "elevenchars");
    expected[816] = '\x35';
    expected[2624] = '\1';
    expected[2640] = '\x3c';
    expected[3772] = '\2';
    expected[3804] = '\x0b';
    expected[4100] = '\1';
    expected[4104] = '3';
    expected[4116] = '\7';
    const LoadResult result = LoadKeys(keys);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kValueSetTable, expected, result.record));
}

TEST(ValueSetSection, SetsLoadInOrderWithTheirEcho) {
    ExpectAsModelled(ThreeEach());
}

TEST(ValueSetSection, UnusedSlotIsZero) {
    EXPECT_EQ(LoadKeys(ThreeEach()).record.substr(3116, 164), std::string(164, '\0'));
}

TEST(ValueSetSection, AsManyListsOfBurstTypesAsBurstMediaModes) {
    Keys keys;
    for (const Slot& slot : AllSlots()) {
        Fill(&keys, slot, 1);
    }
    keys["cam.0.burst.mediamode:num"] = "3";
    const LoadResult result = LoadKeys(keys);
    EXPECT_EQ(result.record.substr(164 * 27), std::string(164 * 7, '\0'));
    EXPECT_NE(result.output.find("cam.0.burst.type2"), std::string::npos);
    EXPECT_EQ(result.output.find("cam.0.burst.type3"), std::string::npos);
    for (const std::string count : {"0", "1", "9", "10"}) {
        keys["cam.0.burst.mediamode:num"] = count;
        ExpectAsModelled(keys);
    }
}

TEST(ValueSetSection, DormantSecondsBecomeMilliseconds) {
    const LoadResult result = LoadKeys({{"screen.dormant:num", "3"},
                                        {"screen.dormant:value0", "30"},
                                        {"screen.dormant:description1", "long"},
                                        {"screen.dormant:value1", "4294968"},
                                        {"screen.dormant:value2", "-1"}});
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0U);
    EXPECT_EQ(result.record.substr(180, 4), std::string("\x30\x75\0\0", 4));
    EXPECT_EQ(result.record.substr(196, 4), std::string("\xc0\x02\0\0", 4));
    EXPECT_EQ(result.record.substr(212, 4), std::string("\x18\xfc\xff\xff", 4));
    std::vector<std::string> transforms;
    for (const std::string& text : EchoOf(result.output)) {
        if (text.find("PDT_INIPARAM_LoadDormantValueSetCfg: ") == 0) {
            transforms.push_back(text.substr(37));
        }
    }
    EXPECT_THAT(transforms, ElementsAre("desc[] time[30s] before transform\n",
                                        "desc[] time[30000ms] after transform\n",
                                        "desc[long] time[4294968s] before transform\n",
                                        "desc[long] time[704ms] after transform\n",
                                        "desc[] time[4294967295s] before transform\n",
                                        "desc[] time[4294966296ms] after transform\n"));
}

/// The ERROR records of a load with one key too large.
std::vector<std::string> ErrorsWith(const std::string& key) {
    Keys keys = ThreeEach();
    keys[key] = "9999999999";
    const LoadResult result = LoadKeys(keys);
    EXPECT_EQ(result.status, -1);
    return ErrorsOf(result.output);
}

TEST(ValueSetSection, CameraSetsFailUnderTheirItem) {
    EXPECT_THAT(
        ErrorsWith("cam.0.flip.status:value2"),
        ElementsAre("PDT_INIPARAM_LoadCommItemValues: [cam.0.flip.status:value2] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamValueSetCfg: [cam.0.flip.status] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadValueSetCfg: [camValueSetCfg] failed[0xFFFFFFFF]\n"));
    EXPECT_THAT(ErrorsWith("cam.0.mediamode.record:num"),
                ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: [cam.0.mediamode.record:num] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadCamValueSetCfg: [cam.0.mediamode.record] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadValueSetCfg: [camValueSetCfg] failed[0xFFFFFFFF]\n"));
}

TEST(ValueSetSection, UnknownMediaModeFails) {
    EXPECT_THAT(ErrorsWith("cam.0.mediamode.photo:value1"),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[9999999999]\n",
                            "PDT_INIPARAM_LoadMediaModeItemValues: [cam.0.mediamode.photo:value1] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadCamValueSetCfg: [cam.0.mediamode.photo] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadValueSetCfg: [camValueSetCfg] failed[0xFFFFFFFF]\n"));
}

TEST(ValueSetSection, DeviceSetsFailUnderTheirItem) {
    EXPECT_THAT(
        ErrorsWith("screen.dormant:value0"),
        ElementsAre("PDT_INIPARAM_LoadCommItemValues: [screen.dormant:value0] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadDormantValueSetCfg: [screen.dormant] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadValueSetCfg: [screen.dormant] failed[0xFFFFFFFF]\n"));
    for (const std::string item :
         {"screen.brightness", "volume", "drive_sensitivity", "parking_sensitivity", "usb.mode",
          "system.language", "splite_time", "record.lapse.interval", "record.type", "photo.type"}) {
        EXPECT_THAT(
            ErrorsWith(item + ":num"),
            ElementsAre("PDT_INIPARAM_LoadCommItemValues: [" + item + ":num] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadValueSetCfg: [" + item + "] failed[0xFFFFFFFF]\n"));
    }
}

TEST(ValueSetSection, PhotoSetsFailUnderTheBurstLabel) {
    for (const std::string item : {"cam.0.singlephoto.outputformat", "cam.0.lapsephoto.interval",
                                   "cam.0.burst.type0", "cam.0.burst.type2"}) {
        EXPECT_THAT(
            ErrorsWith(item + ":num"),
            ElementsAre("PDT_INIPARAM_LoadCommItemValues: [" + item + ":num] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadPhotoCfgValueSet: [" + item + "] failed[0xFFFFFFFF]\n",
                        "PDT_INIPARAM_LoadValueSetCfg: [BurstValueSet] failed[0xFFFFFFFF]\n"));
    }
    EXPECT_THAT(ErrorsWith("cam.0.burst.mediamode:num"),
                ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: [cam.0.burst.mediamode:num] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadPhotoCfgValueSet: [cam.0.burst.mediamode] "
                            "failed[0xFFFFFFFF]\n",
                            "PDT_INIPARAM_LoadValueSetCfg: [BurstValueSet] failed[0xFFFFFFFF]\n"));
}

TEST(ValueSetSection, LoadedSetsStayAfterAFailure) {
    Keys keys = ThreeEach();
    const std::string whole = LoadKeys(keys).record;
    keys["screen.dormant:num"] = "9999999999";
    const std::string record = LoadKeys(keys).record;
    EXPECT_EQ(record.substr(0, 164), whole.substr(0, 164));
    EXPECT_EQ(record.substr(164, 328), std::string(328, '\0'));
    EXPECT_EQ(record.substr(1640, 984), whole.substr(1640, 984));
}

TEST(ValueSetSection, NullSectionIsRefused) {
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadValueSetCfg(nullptr); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadValueSetCfg: pointer[param] is null\n"));
}

}  // namespace
}  // namespace paramgen::testing
