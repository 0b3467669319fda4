#include "layout/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "param/camera/ldc.h"

namespace paramgen::layout {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::uint32_t kImageSize = 29928;

const Value& At(std::uint32_t offset) {
    return *ValueAt(offset);
}

std::vector<std::string> FoundMembers(const std::string& text) {
    std::string error;
    std::vector<std::string> members;
    for (const Value* value : Find(*KeyPattern::Parse(text, &error))) {
        members.push_back(value->Member());
    }
    return members;
}

TEST(Layout, ValuesCoverTheImageExactlyOnce) {
    std::uint32_t next = 0;
    for (const Value& value : Values()) {
        ASSERT_EQ(value.offset, next) << value.Member();
        next = value.offset + value.size;
    }
    EXPECT_EQ(next, kImageSize);
}

TEST(Layout, EveryMemberHasANameOfItsOwn) {
    std::set<std::string> members;
    for (const Value& value : Values()) {
        EXPECT_TRUE(members.insert(value.Member()).second) << value.Member();
    }
}

TEST(Layout, AValueKnowsWhereItStandsAndWhereItComesFrom) {
    const Value& value = At(24316);
    EXPECT_EQ(value.Member(), "devMng.gsensor.sensitivity");
    EXPECT_EQ(value.module, "devmng");
    EXPECT_EQ(value.section, "gsensor");
    EXPECT_EQ(value.key, "sensitivity");
    EXPECT_EQ(value.Label(), "gsensor:sensitivity");
    EXPECT_EQ(value.offset, 24316U);
    EXPECT_EQ(value.size, 4U);
    EXPECT_STREQ(KindName(value.Kind()), "i32");
    EXPECT_STREQ(SourceName(value.Source()), "reader");
    EXPECT_TRUE(value.HasDefault());
    EXPECT_EQ(value.Default(), 0);
    EXPECT_THAT(value.conditions, IsEmpty());
    EXPECT_THAT(value.modules, ElementsAre("devmng"));
}

TEST(Layout, AnyByteOfAValueLeadsToIt) {
    EXPECT_EQ(At(24316 + 3).Member(), "devMng.gsensor.sensitivity");
    EXPECT_EQ(At(24316 + 4).Member(), "devMng.gsensor.parkingSensitivity");
    EXPECT_EQ(At(0).Member(), "header.magic");
    EXPECT_EQ(At(29927).Member(), "tail.zero");
    EXPECT_EQ(ValueAt(29928), nullptr);
}

TEST(Layout, ElementsOfArraysAreNumbered) {
    // Media mode 3 begins at 9648 + 3512 + 3 * 1864; its encoder 1 at 1680 + 36.
    const Value& value = At(9648 + 3512 + 3 * 1864 + 1680 + 36 + 12);
    EXPECT_EQ(value.Member(), "cam[0].mediaModes[3].venc.vencs[1].gop");
    EXPECT_EQ(value.module, "cam0_mediamode3");
    EXPECT_EQ(value.section, "venc.1");
    EXPECT_EQ(value.key, "gop");
    EXPECT_EQ(Text(PatternOf(value)), "cam0_mediamodeN/venc.M:gop");
}

TEST(Layout, AValueOfASearchedModuleNamesAllOfThem) {
    const Value& value = At(9648 + 3512 + 1532);
    EXPECT_EQ(value.Member(), "cam[0].mediaModes[0].vpss[0].ldc.v1Enable");
    EXPECT_EQ(value.module, "cam0_ldccfg_*");
    EXPECT_THAT(value.modules, ElementsAre("cam0_ldccfg_0", "cam0_ldccfg_1"));
    ASSERT_THAT(value.conditions, SizeIs(2));
    EXPECT_EQ(value.conditions[0].kind, ConditionKind::kOptionalModule);
    EXPECT_EQ(value.conditions[1].kind, ConditionKind::kSearchedModule);
    EXPECT_EQ(At(value.conditions[1].wanted).Member(), "cam[0].mediaModes[0].mediaMode");
    EXPECT_STREQ(value.conditions[1].search->key, "common:mediamode");
}

// The loaders search by `kLdcSearch`, whatever search a row names.
TEST(Layout, SearchedModulesAreThoseOfTheLoadersSearch) {
    std::size_t searched = 0;
    for (const Value& value : Values()) {
        for (const Condition& condition : value.conditions) {
            if (condition.kind == ConditionKind::kSearchedModule) {
                ++searched;
                ASSERT_EQ(condition.search, &kLdcSearch) << value.Member();
            }
        }
    }
    EXPECT_EQ(searched, 900U);  // 36 values for 4 pipes and 1 group in 5 media modes
}

TEST(Layout, CountedElementsSayWhatCountsThem) {
    const Value& value = At(16 + 8 + 20 + 3 * 268);
    EXPECT_EQ(value.Member(), "workMode.record.osd.entries[3].displayCount");
    ASSERT_THAT(value.conditions, SizeIs(1));
    EXPECT_EQ(value.conditions[0].kind, ConditionKind::kCounted);
    EXPECT_EQ(value.conditions[0].beyond, CountBeyond::kClamped);
    EXPECT_EQ(value.conditions[0].number, 3U);
    EXPECT_EQ(value.conditions[0].places, 16U);
    EXPECT_EQ(At(value.conditions[0].count).Member(), "workMode.record.osd.count");
    EXPECT_EQ(Words(value.conditions[0]), "while osd:osdcnt is above 3");
}

TEST(Layout, LeadingElementsSayWhichKeysMustBeThere) {
    const Value& value = At(9648 + 16 + 748 + 2 * 80);
    EXPECT_EQ(value.Member(), "cam[0].record.venc.vencs[2].enable");
    ASSERT_THAT(value.conditions, SizeIs(1));
    const Condition& condition = value.conditions[0];
    EXPECT_EQ(condition.kind, ConditionKind::kLeading);
    EXPECT_EQ(At(condition.count).Member(), "cam[0].record.venc.count");
    EXPECT_THAT(condition.keys, ElementsAre(KeyName{"cam0_comm_record", "venc.0", "enable"},
                                            KeyName{"cam0_comm_record", "venc.1", "enable"}));
    EXPECT_EQ(Words(condition), "when venc.0:enable to venc.1:enable are there");
}

TEST(Layout, ACopyNamesItsOrigin) {
    const Value& value = At(8928 + 656 + 32);
    EXPECT_EQ(value.Member(), "mediaComm.ao[0].attr.inSampleRate");
    EXPECT_EQ(At(value.origin).Member(), "mediaComm.ao[0].attr.sampleRate");
}

TEST(Layout, DormantTimesAreMultipliedAndTheirCountIsNot) {
    const std::uint32_t set = 24344 + 164;
    EXPECT_EQ(At(set).Member(), "valueSet.dormant.count");
    EXPECT_EQ(At(set).times, 1U);
    EXPECT_EQ(At(set + 4).times, 1U);
    EXPECT_EQ(At(set + 4 + 12).Member(), "valueSet.dormant.items[0].value");
    EXPECT_EQ(At(set + 4 + 12).times, 1000U);
}

TEST(Layout, EveryValueIsDescribedInOneLine) {
    for (const Value& value : Values()) {
        const std::string about = value.About();
        EXPECT_NE(about, "") << value.Member();
        EXPECT_LE(about.size(), 80U) << value.Member();
        EXPECT_EQ(about.find('\n'), std::string::npos) << value.Member();
        EXPECT_TRUE(about.empty() || about.back() != '.') << value.Member();
    }
}

TEST(Layout, AValueHasItsUnitAndTheMeaningOfItsNumbers) {
    const Value& time = At(16 + 8 + 4368 + 24);
    EXPECT_EQ(time.Member(), "workMode.record.normal[0].preRecordTime");
    EXPECT_EQ(time.Unit(), "ms");
    EXPECT_EQ(time.Numbers(), "");
    const Value& format = At(9648 + 16 + 440 + 48 + 32);
    EXPECT_EQ(format.Member(), "cam[0].record.vproc[0].vports[0].videoFormat");
    EXPECT_EQ(format.Unit(), "");
    EXPECT_EQ(format.Numbers(), "0 linear, 1 tile, 2 tile64");
    EXPECT_EQ(At(24344 + 164 * 5).context, "Volume of the loudspeaker");
}

TEST(Layout, NamedNumbersHaveTheirNamesBothWays) {
    const NameTable* modes = NamesOf(At(9648 + 3512));
    ASSERT_NE(modes, nullptr);
    EXPECT_EQ(AllNames(*modes).size(), 54U);
    EXPECT_EQ(NameOf(*modes, 53), "QX_PARAM_MEDIAMODE_PLAYBACK");
    EXPECT_EQ(NameOf(*modes, 54), "");
    EXPECT_EQ(NumberOf(*modes, "QX_PARAM_MEDIAMODE_1080P_30"), 7);
    EXPECT_EQ(NumberOf(*modes, "qx_PARAM_MEDIAMODE_1080P_30"), std::nullopt);
    const NameTable* matrices = NamesOf(At(8928 + 416 + 16));
    ASSERT_NE(matrices, nullptr);
    EXPECT_EQ(AllNames(*matrices).size(), 9U);
    EXPECT_EQ(NameOf(*matrices, 17), "QX_MAPI_DISP_CSC_MATRIX_BT601FULL_TO_RGBFULL");
    EXPECT_EQ(NamesOf(At(24316)), nullptr);
}

TEST(Layout, KeysAreFoundByTheirNameInAnyCase) {
    EXPECT_THAT(FoundMembers("devmng/gsensor:sensitivity"),
                ElementsAre("devMng.gsensor.sensitivity"));
    EXPECT_THAT(FoundMembers("GSENSOR:Sensitivity"), ElementsAre("devMng.gsensor.sensitivity"));
    EXPECT_THAT(FoundMembers("storagemng:mount_path"),
                ElementsAre("fileMng.comm.mountPath", "devMng.storage.mountPath"));
    EXPECT_THAT(FoundMembers("poweron_*"), ElementsAre("workMode.comm.powerOnMode"));
    EXPECT_THAT(FoundMembers("keyton?:enable"), ElementsAre("devMng.sys.keyTone"));
    EXPECT_THAT(FoundMembers("@24316"), ElementsAre("devMng.gsensor.sensitivity"));
    EXPECT_THAT(FoundMembers("@0x5EFC"), ElementsAre("devMng.gsensor.sensitivity"));
    EXPECT_THAT(FoundMembers("@29928"), IsEmpty());
    EXPECT_THAT(FoundMembers("gsensor:sensitivit"), IsEmpty());
    EXPECT_THAT(FoundMembers("cam0_ldccfg_1/LDCV1Attr:aspect"), SizeIs(5 * (4 + 1)));
}

TEST(Layout, MalformedKeysAreRefused) {
    for (const char* text : {"", "@", "@x", "@0x", "@-1", "@99999999999", "/a:b", "a/:b", "a:"}) {
        std::string error;
        EXPECT_FALSE(KeyPattern::Parse(text, &error)) << text;
        EXPECT_NE(error, "") << text;
    }
}

TEST(Layout, KeysOfBothLensModulesAndOfTheirSearchAreKnown) {
    const Key* key = FindKey("CAM0_LDCCFG_1", "ldcv3attr", "SRC_CALIBRATION_RATIO8");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->role, KeyRole::kValue);
    EXPECT_THAT(key->values, SizeIs(5 * (4 + 1)));
    for (const char* module : {"cam0_ldccfg_0", "cam0_ldccfg_1"}) {
        const Key* search = FindKey(module, "common", "mediamode");
        ASSERT_NE(search, nullptr);
        EXPECT_EQ(search->role, KeyRole::kSearch);
    }
    EXPECT_EQ(FindKey("cam0_ldccfg_2", "common", "mediamode"), nullptr);
}

TEST(Layout, SpilledElementsHaveKeysUpToTheEndOfTheirSection) {
    // Set 5 begins at 820 of 5576 bytes: (5576 - 820 - 4) / 16 choices at most.
    const Key* last = FindKey("valueset", "volume", "value296");
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->role, KeyRole::kSpill);
    EXPECT_EQ(FindKey("valueset", "volume", "value297"), nullptr);
    EXPECT_EQ(last->values.front()->offset, 24344U + 820 + 4 + 296 * 16 + 12);
    // The handles begin at 4492 of 8912 bytes.
    EXPECT_NE(FindKey("workmode_record", "normal.0", "thmhdl1104"), nullptr);
    EXPECT_EQ(FindKey("workmode_record", "normal.0", "thmhdl1105"), nullptr);
    // There are no more media modes for bursts than sets of burst types.
    EXPECT_NE(FindKey("valueset", "cam.0.burst.mediamode", "value9"), nullptr);
    EXPECT_EQ(FindKey("valueset", "cam.0.burst.mediamode", "value10"), nullptr);
}

}  // namespace
}  // namespace paramgen::layout
