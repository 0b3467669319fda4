#include "param/media_common/audio_capture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

LoadResult LoadAcap(const ProductTree& tree, std::int32_t index = 0) {
    return RunLoad(tree, 72, [index](void* record) {
        return PDT_INIPARAM_LoadMediaCommAcapCfg("media_common", index,
                                                 static_cast<AcapCfg*>(record));
    });
}

TEST(AudioCapture, NumberOfTheDeviceIsInEveryNode) {
    ProductTree tree = MediaTree("acapture.2:sample_rate", "1");
    tree.Set("media_common", "acapture.2.aac:ptnum_per_frm", "2")
        .Set("media_common", "acapture.2.chnl.0:handle", "3")
        .Set("media_common", "acapture.2.chnl.1:enable_vqe", "1");
    const LoadResult result = LoadAcap(tree, 2);
    std::string expected(72, '\0');
    expected[8] = 1;
    expected[28] = 2;
    expected[52] = 3;
    expected[68] = 1;
    EXPECT_TRUE(SameRecord(kAcapTable, expected, result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadMediaCommAcapCfg: Acap[2] enable[0] hdl[0] audio gain[0]\n",
                    "PDT_INIPARAM_LoadMediaCommAcapCfg:     "
                    "samplerate[1],bitWidth[0:0-8,1-16,2-24] "
                    "soundMode[0:0-left,1-right,2-stereo]\n",
                    "PDT_INIPARAM_LoadMediaCommAcapCfg:     resamplerate[0] "
                    "acodec_mixer[0:0-IN0,1-IN1,2-IN_D] pointNumPerFrame[2]\n",
                    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn0 :hadle[3], enable[0], "
                    "enableVqe[0]\n",
                    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn1 :hadle[0], enable[0], "
                    "enableVqe[1]\n"));
}

TEST(AudioCapture, ChannelsOfADisabledDeviceAreRead) {
    ProductTree tree = MediaTree("acapture.0:enable", "no");
    tree.Set("media_common", "acapture.0.chnl.0:handle", "4")
        .Set("media_common", "acapture.0.chnl.1:handle", "5");
    const std::string record = LoadAcap(tree).record;
    EXPECT_EQ(record[52], 4);
    EXPECT_EQ(record[64], 5);
}

TEST(AudioCapture, WordBehindTheResampleRateIsCleared) {
    ProductTree tree = MediaTree("acapture.0:resample_rate", "-1");
    tree.Set("media_common", "acapture.0:audiogain", "-1");
    const LoadResult result = RunLoad(tree, 72, [](void* record) {
        AcapCfg* cfg = static_cast<AcapCfg*>(record);
        cfg->attr.fixed0 = 7;
        return PDT_INIPARAM_LoadMediaCommAcapCfg("media_common", 0, cfg);
    });
    EXPECT_EQ(result.record.substr(36, 12),
              std::string("\xff\xff\xff\xff\0\0\0\0\xff\xff\xff\xff", 12));
}

// The points per frame, and the word that is always 0, are not loaded with the attributes.
TEST(AudioCapture, AttributesAreReadUnderTheDevicesNode) {
    ProductTree tree = MediaTree("any.node:sample_rate", "1");
    tree.Set("media_common", "any.node:ptnum_per_frm", "2")
        .Set("media_common", "any.node:resample_rate", "3");
    const LoadResult result = RunLoad(tree, 36, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommAcapAttr("media_common", "any.node",
                                                  static_cast<AcapAttr*>(record));
    });
    std::string expected(36, '\0');
    expected[0] = 1;
    expected[28] = 3;
    EXPECT_TRUE(SameRecord(kAcapAttrTable, expected, result.record));
    EXPECT_EQ(result.output, "");
}

TEST(AudioCapture, TrackModeHasALabelOfItsOwn) {
    EXPECT_THAT(ChainOf("acapture.0:track_mode"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "acapture.0:track_mode"),
                            Failed("LoadMediaCommAcapAttr", "trackMode"),
                            Failed("LoadMediaCommAcapCfg", "acap attr"),
                            Failed("LoadMediaCommConf", "Acap")));
    EXPECT_THAT(ChainOf("acapture.0:work_mode"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "acapture.0:work_mode"),
                            Failed("LoadMediaCommAcapAttr", "work_mode"),
                            Failed("LoadMediaCommAcapCfg", "acap attr"),
                            Failed("LoadMediaCommConf", "Acap")));
}

TEST(AudioCapture, DeviceKeysAndChannelsHaveTheirLabels) {
    EXPECT_THAT(ChainOf("acapture.0:audiogain"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "acapture.0:audiogain"),
                            Failed("LoadMediaCommAcapCfg", "audiogain"),
                            Failed("LoadMediaCommConf", "Acap")));
    EXPECT_THAT(ChainOf("acapture.0.aac:ptnum_per_frm"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "acapture.0.aac:ptnum_per_frm"),
                            Failed("LoadMediaCommAcapCfg", "ptnum_per_frm"),
                            Failed("LoadMediaCommConf", "Acap")));
    EXPECT_THAT(ChainOf("acapture.0.chnl.1:handle"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "acapture.0.chnl.1:handle"),
                            Failed("LoadMediaCommAcapChnAttr", "handle"),
                            Failed("LoadMediaCommAcapCfg", "acap chn"),
                            Failed("LoadMediaCommConf", "Acap")));
}

}  // namespace
}  // namespace paramgen::testing
