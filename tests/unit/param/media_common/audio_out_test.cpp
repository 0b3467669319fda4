#include "param/media_common/audio_out.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

LoadResult LoadAo(const ProductTree& tree) {
    return RunLoad(tree, 60, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommAoCfg("media_common", 0, static_cast<AoCfg*>(record));
    });
}

TEST(AudioOut, AbsentWorkModeIsSix) {
    EXPECT_EQ(LoadAo(MediaTree()).record.substr(24, 4), std::string("\6\0\0\0", 4));
    EXPECT_EQ(LoadAo(MediaTree("ao.0:work_mode", "0")).record.substr(24, 4), std::string(4, '\0'));
}

TEST(AudioOut, InputSampleRateIsTheSampleRate) {
    const std::string record = LoadAo(MediaTree("ao.0:sample_rate", "44100")).record;
    EXPECT_EQ(record.substr(8, 4), std::string("\x44\xac\0\0", 4));
    EXPECT_EQ(record.substr(32, 4), std::string("\x44\xac\0\0", 4));
}

// The copy is made right after its original is read, before anything else can fail.
TEST(AudioOut, InputSampleRateIsCopiedFirst) {
    const LoadResult result = LoadAo(
        MediaTree("ao.0:sample_rate", "7").Set("media_common", "ao.0:bit_width", "2147483648"));
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record[8], 7);
    EXPECT_EQ(result.record[32], 7);
}

TEST(AudioOut, ChannelsOfADisabledOutputAreRead) {
    ProductTree tree = MediaTree("ao.0:enable", "no");
    tree.Set("media_common", "ao.0.chnl.0:handle", "4")
        .Set("media_common", "ao.0.chnl.0:enable", "yes")
        .Set("media_common", "ao.0.chnl.1:handle", "-5");
    const LoadResult result = LoadAo(tree);
    EXPECT_EQ(result.record.substr(44),
              std::string("\1\0\0\0\4\0\0\0\0\0\0\0\xfb\xff\xff\xff", 16));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadMediaCommAoCfg: Ao[0] enable[0] hdl[0]\n",
                            "PDT_INIPARAM_LoadMediaCommAoAttr:     samplerate[0] insamplerate[0] "
                            "bitWidth[0:0-8,1-16,2-24] soundMode[0:0-left,1-right,2-stereo]\n",
                            "PDT_INIPARAM_LoadMediaCommAoCfg: chn[0],aoChnHdl[4],enable[1]\n",
                            "PDT_INIPARAM_LoadMediaCommAoCfg: chn[1],aoChnHdl[-5],enable[0]\n"));
}

TEST(AudioOut, AttributesAreReadUnderTheOutputsNode) {
    ProductTree tree = MediaTree("any.node:sample_rate", "1");
    tree.Set("media_common", "any.node:ptnum_per_frm", "2")
        .Set("media_common", "any.node:ao_i2c_type", "3");
    const LoadResult result = RunLoad(tree, 32, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommAoAttr("media_common", "any.node",
                                                static_cast<AoAttr*>(record));
    });
    std::string expected(32, '\0');
    expected[0] = 1;
    expected[16] = 6;
    expected[24] = 1;
    expected[28] = 3;
    EXPECT_TRUE(SameRecord(kAoAttrTable, expected, result.record));
}

TEST(AudioOut, AttributesHaveTheirLabel) {
    EXPECT_THAT(
        ChainOf("ao.0:sound_mode"),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "ao.0:sound_mode"),
                    Failed("LoadMediaCommAoAttr", "sound_mode"),
                    Failed("LoadMediaCommAoCfg", "ao attr"), Failed("LoadMediaCommConf", "Ao")));
    EXPECT_THAT(
        ChainOf("ao.0:track_mode"),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "ao.0:track_mode"),
                    Failed("LoadMediaCommAoAttr", "track_mode"),
                    Failed("LoadMediaCommAoCfg", "ao attr"), Failed("LoadMediaCommConf", "Ao")));
}

// The attributes are echoed before their last three are read.
TEST(AudioOut, AttributesAreEchoedInTheMiddle) {
    const LoadResult result = LoadAo(MediaTree("ao.0:track_mode", "2147483648"));
    EXPECT_EQ(EchoOf(result.output).size(), 2U);
}

TEST(AudioOut, PointsPerFrameFailByTheirKey) {
    EXPECT_THAT(ChainOf("ao.0.aac:ptnum_per_frm"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "ao.0.aac:ptnum_per_frm"),
                            Failed("LoadMediaCommAoCfg", "ptnum_per_frm"),
                            Failed("LoadMediaCommConf", "Ao")));
}

TEST(AudioOut, ChannelFailsOnceByItsFullKey) {
    EXPECT_THAT(ChainOf("ao.0.chnl.1:handle"),
                ElementsAre(Failed("LoadMediaCommAoCfg", "ao.0.chnl.1:handle"),
                            Failed("LoadMediaCommConf", "Ao")));
}

// A handle is read before its switch: when the handle fails, the switch is not loaded.
TEST(AudioOut, HandleOfAChannelIsReadFirst) {
    const LoadResult result = LoadAo(MediaTree("ao.0.chnl.0:handle", "2147483648")
                                         .Set("media_common", "ao.0.chnl.0:enable", "yes"));
    EXPECT_EQ(result.status, -1);
    EXPECT_EQ(result.record.substr(44), std::string(16, '\0'));
}

}  // namespace
}  // namespace paramgen::testing
