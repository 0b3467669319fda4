#include "param/media_common/audio_enc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kBandWidth[] = "aenc.0.aac:band_width";

LoadResult LoadAenc(const ProductTree& tree) {
    return RunLoad(tree, 52, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommAencCfg("media_common", 0, static_cast<AencCfg*>(record));
    });
}

Status LoadMp3(void* record) {
    return PDT_INIPARAM_LoadMediaCommAencMp3Cfg("media_common", 0,
                                                static_cast<AencMp3Attr*>(record));
}

TEST(AudioEnc, BandWidthFillsSixteenBits) {
    LoadResult result = LoadAenc(MediaTree(kBandWidth, "32767"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(48), std::string("\xff\x7f\0\0", 4));
    EXPECT_EQ(EchoOf(result.output)[2],
              "PDT_INIPARAM_LoadMediaCommAencAacCfg:     bitWidth[0:0-8,1-16,2-24],"
              "soundMode[0:0-mono,1-stereo] bandwidth[32767]\n");
    result = LoadAenc(MediaTree(kBandWidth, "-32768"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(48), std::string("\0\x80\0\0", 4));
    EXPECT_EQ(EchoOf(result.output)[2],
              "PDT_INIPARAM_LoadMediaCommAencAacCfg:     bitWidth[0:0-8,1-16,2-24],"
              "soundMode[0:0-mono,1-stereo] bandwidth[-32768]\n");
}

// The record of a band width out of range has no line end.
TEST(AudioEnc, BandWidthBeyondSixteenBitsFails) {
    for (const char* text : {"32768", "-32769"}) {
        ProductTree tree = MediaTree(kBandWidth, text);
        tree.Set("media_common", "aenc.0.aac:trans_type", "2");
        const LoadResult result = LoadSection(tree);
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(ErrorsOf(result.output),
                    ElementsAre("PDT_INIPARAM_LoadMediaCommAencAacCfg: value is out of range",
                                Failed("LoadMediaCommAencCfg", "Aenc AAC"),
                                Failed("LoadMediaCommConf", "Aenc")));
        EXPECT_EQ(result.record.substr(648, 8), std::string("\2\0\0\0\0\0\0\0", 8));
    }
}

TEST(AudioEnc, BandWidthBeyond32BitsFailsInItsReader) {
    EXPECT_THAT(ChainOf(kBandWidth), ElementsAre(Failed("LoadIntValueByNodePrefix", kBandWidth),
                                                 Failed("LoadMediaCommAencAacCfg", "band_width"),
                                                 Failed("LoadMediaCommAencCfg", "Aenc AAC"),
                                                 Failed("LoadMediaCommConf", "Aenc")));
}

TEST(AudioEnc, FormatIsAacWhateverTheKeysSay) {
    ProductTree tree = MediaTree("aenc.0:format", "3");
    tree.Set("media_common", "aenc.0:audio_format", "3")
        .Set("media_common", "aenc.0.mp3:sample_rate", "99999999999")
        .Set("media_common", "aenc.0.aac:aac_type", "5");
    const LoadResult result = RunLoad(tree, 52, [](void* record) {
        AencCfg* cfg = static_cast<AencCfg*>(record);
        cfg->format = 3;
        return PDT_INIPARAM_LoadMediaCommAencCfg("media_common", 0, cfg);
    });
    EXPECT_EQ(result.status, 0);
    std::string expected(52, '\0');
    expected[24] = 5;
    EXPECT_TRUE(SameRecord(kAencTable, expected, result.record));
    EXPECT_EQ(EchoOf(result.output)[0],
              "PDT_INIPARAM_LoadMediaCommAencCfg: Aenc[0] enable[0] aenchdl[0] acaphdl[0] "
              "acapchdl[0]  format[0:0-aac,1-opus] pointNumPerFrame[0]\n");
}

TEST(AudioEnc, KeysAreTheirLabels) {
    EXPECT_THAT(ChainOf("aenc.0:acapchdl"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "aenc.0:acapchdl"),
                            Failed("LoadMediaCommAencCfg", "acapchdl"),
                            Failed("LoadMediaCommConf", "Aenc")));
    EXPECT_THAT(ChainOf("aenc.0.aac:ptnum_per_frm"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "aenc.0.aac:ptnum_per_frm"),
                            Failed("LoadMediaCommAencCfg", "ptnum_per_frm"),
                            Failed("LoadMediaCommConf", "Aenc")));
    EXPECT_THAT(ChainOf("aenc.0.aac:trans_type"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "aenc.0.aac:trans_type"),
                            Failed("LoadMediaCommAencAacCfg", "trans_type"),
                            Failed("LoadMediaCommAencCfg", "Aenc AAC"),
                            Failed("LoadMediaCommConf", "Aenc")));
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(AudioEnc, Mp3TableIsItsLayout) {
    EXPECT_THAT(DescribeTable(kAencMp3Table, "media_common", "", {0}),
                ElementsAre("12 4 i32 reader media_common aenc.0.mp3:bit_rate 0 bit_rate",
                            "0 4 i32 reader media_common aenc.0.mp3:sample_rate 0 sample_rate",
                            "4 4 i32 reader media_common aenc.0.mp3:bit_width 0 bit_width",
                            "8 4 i32 reader media_common aenc.0.mp3:sound_mode 0 sound_mode",
                            "16 4 u32 reader media_common aenc.0.mp3:quality 0 quality"));
    EXPECT_EQ(offsetof(AencCfg, mp3), 24U);
}

TEST(AudioEnc, EveryMp3RowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kAencMp3Table, "media_common", "", {0}),
               .size = 20,
               .load = LoadMp3,
               .base = MediaTree()});
}

TEST(AudioEnc, Mp3ByHand) {
    ProductTree tree = MediaTree("aenc.0.mp3:bit_rate", "128000");
    tree.Set("media_common", "aenc.0.mp3:sample_rate", "44100")
        .Set("media_common", "aenc.0.mp3:bit_width", "1")
        .Set("media_common", "aenc.0.mp3:sound_mode", "-1")
        .Set("media_common", "aenc.0.mp3:quality", "-5");
    const LoadResult result = RunLoad(tree, 20, LoadMp3);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(
        kAencTable,
        std::string("\x44\xac\0\0\1\0\0\0\xff\xff\xff\xff\0\xf4\1\0\xfb\xff\xff\xff", 20),
        result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadMediaCommAencMp3Cfg:     bitrate[128000],"
                            "samplerate[44100]\n",
                            "PDT_INIPARAM_LoadMediaCommAencMp3Cfg:     bitWidth[1:0-8,1-16,2-24], "
                            "soundMode[-1:0-mono,1-stereo] quality[-5]\n"));
}

TEST(AudioEnc, Mp3KeysAreTheirLabels) {
    const LoadResult result = RunLoad(MediaTree("aenc.0.mp3:quality", "2147483648"), 20, LoadMp3);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "aenc.0.mp3:quality"),
                            Failed("LoadMediaCommAencMp3Cfg", "quality")));
    EXPECT_THAT(EchoOf(result.output), IsEmpty());
}

}  // namespace
}  // namespace paramgen::testing
