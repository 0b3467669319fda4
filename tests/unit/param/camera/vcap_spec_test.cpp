#include "param/camera/vcap_spec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/spec_rows.h"
#include "unit/param/camera/vcap_spec_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

/// The rows of a pipe's record at `offset`, with its channel.
Lines PipeLines(std::size_t offset, const std::string& node) {
    Lines lines = SpecLines(
        {
            {0, "4 bool reader", "enable", "0", "="},
            {4, "4 i32 reader", "src_framerate", "0", "="},
            {8, "4 i32 reader", "dst_framerate", "0", "="},
            {12, "4 bool reader", "isp_bypass", "0", "isp_Bypass"},
            {16, "4 i32 reader", "pipe_bypassmode", "0", "="},
            {20, "4 f32 query", "isp_framerate", "0", ":"},
            {24, "4 u32 reader", "isp_width", "0", "="},
            {28, "4 u32 reader", "isp_height", "0", "="},
            {32, "4 bytes nobody", "-", "-", "-"},
            {36, "4 i32 reader", "isp_mirrorflip", "0", "="},
            {44, "4 i32 reader", "frameinterrupt_type", "0", "="},
            {224, "4 bool reader", "aibnr_support", "0", "="},
            {228, "4 bool reader", "ai3dnr_support", "0", "="},
            {236, "4 u32 reader", "bnr_buffer_num", "0", "="},
            {48, "4 u32 reader", "earlyline", "0", "="},
            {40, "4 i32 reader", "scene_param_idx", "0", "="},
            {232, "4 u32 constant", "-", "0", "-"},
        },
        offset, "mode", node);
    AppendLines(&lines, SpecLines(
                            {
                                {0, "4 u32 reader", "dst_width", "0", "="},
                                {4, "4 u32 reader", "dst_height", "0", "="},
                                {8, "4 i32 reader", "src_framerate", "0", "="},
                                {12, "4 i32 reader", "dst_framerate", "0", "="},
                                {160, "4 bool reader", "MotionDenoiseEnable", "0", "="},
                                {164, "4 u32 reader", "MotionDenoiseIsoThresh", "200", "="},
                            },
                            offset + 52, "mode", node + ".chl.0"));
    AppendLines(&lines, LdcLines(offset + 52 + 16));
    lines.push_back(std::to_string(offset + 52 + 168) + " 4 u32 constant - - 0 -");
    return lines;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(VcapSpec, TableIsTheRecordsLayout) {
    Lines expected = SpecLines(
        {
            {0, "4 i32 reader", "sensor_type", "0", ":"},
            {4, "4 u32 reader", "sensor_mode", "0", ":"},
            {12, "4 u32 reader", "sensor_width", "0", ":"},
            {16, "4 u32 reader", "sensor_height", "0", ":"},
            {20, "4 bytes nobody", "-", "-", "-"},
            {24, "4 i32 reader", "data_type", "0", ":"},
            {8, "4 i32 reader", "wdr_mode", "0", ":"},
            {40, "4 i32 copy", "-", "8", "-"},
            {44, "4 u32 reader", "cacheLine", "0", ":"},
            {32, "4 u32 reader", "bas_width", "0", ":"},
            {36, "4 u32 reader", "bas_height", "0", ":"},
            {60, "4 u32 loader", "componentmask0", "0", ":"},
            {64, "4 u32 loader", "componentmask1", "0", ":"},
        },
        0, "mode", "vcap.dev");
    AppendLines(&expected, PipeLines(76, "vcap.pipe.0"));
    AppendLines(&expected, PipeLines(316, "vcap.pipe.1"));
    AppendLines(&expected, PipeLines(556, "vcap.pipe.2"));
    AppendLines(&expected, PipeLines(796, "vcap.pipe.3"));
    expected.push_back("28 4 bytes nobody - - - -");
    expected.push_back("48 12 bytes nobody - - - -");
    expected.push_back("68 8 bytes nobody - - - -");
    EXPECT_EQ(DescribeTable(kVcapSpecTable, "mode"), expected);
}

TEST(VcapSpec, EveryRowLoadsItsOwnBytes) {
    RowSubject subject = {.fields = WalkTable(kVcapSpecTable, "mode"),
                          .size = 1036,
                          .load = Load,
                          .base = EmptyTree()};
    subject.probes = {{"vcap.dev:componentmask0", {"258", std::string("\2\1\0\0", 4)}},
                      {"vcap.dev:componentmask1", {"2147483647", "\xff\xff\xff\x7f"}}};
    subject.unreachable = LdcKeys(subject.fields);
    CheckRows(subject);
}

TEST(VcapSpec, EveryRowOfAChannelLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVcapPipeChnSpecTable, "mode", "", {2, 0}),
               .size = 172,
               .load =
                   [](void* record) {
                       return PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg(
                           "mode", 2, 0, static_cast<MediaMode>(7),
                           static_cast<VcapPipeChnSpecCfg*>(record));
                   },
               .base = EmptyTree().Set("cam0_ldccfg_0", "common:mediamode",
                                       "QX_PARAM_MEDIAMODE_1080P_30")});
}

TEST(VcapSpec, CorrectionGoesToEveryChannel) {
    const LoadResult result =
        LoadTree(EmptyTree()
                     .Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30")
                     .Set("cam0_ldccfg_1", "LDCV1Attr:distortionratio", "-210"));
    for (const std::size_t pipe : {76U, 316U, 556U, 796U}) {
        EXPECT_EQ(result.record.substr(pipe + 52 + 16, 144),
                  std::string(28, '\0') + Word(-210) + std::string(112, '\0'));
    }
}

TEST(VcapSpec, DeviceByHandWithItsEcho) {
    const LoadResult result = LoadTree(EmptyTree()
                                           .Set("mode", "vcap.dev:sensor_type", "3")
                                           .Set("mode", "vcap.dev:sensor_mode", "-4")
                                           .Set("mode", "vcap.dev:sensor_width", "2688")
                                           .Set("mode", "vcap.dev:sensor_height", "1520")
                                           .Set("mode", "vcap.dev:data_type", "-5")
                                           .Set("mode", "vcap.dev:wdr_mode", "-6")
                                           .Set("mode", "vcap.dev:cacheLine", "380")
                                           .Set("mode", "vcap.dev:bas_width", "-7")
                                           .Set("mode", "vcap.dev:bas_height", "1440")
                                           .Set("mode", "vcap.dev:componentmask0", "536346624")
                                           .Set("mode", "vcap.dev:componentmask1", "511"));
    std::string expected;
    for (const int word :
         {3, -4, -6, 2688, 1520, 0, -5, 0, -7, 1440, -6, 380, 0, 0, 0, 536346624, 511, 0, 0}) {
        expected += Word(word);
    }
    EXPECT_EQ(result.record.substr(0, 76), expected);
    Lines echo = EchoOf(result.output);
    echo.resize(4);
    EXPECT_THAT(
        echo,
        ElementsAre(
            "PDT_INIPARAM_LoadCamVcapSnsCfg: vcapdev  sensor attr, "
            "sensor_mode[-4],sensor_width[2688],sensor_height[1520],data_type[-5] wdr_mode[-6] \n",
            "PDT_INIPARAM_LoadCamVcapSpecCfg: vcap dev "
            "attr,bas_width[4294967289],bas_height[1440] wdr_mode[-6]\n",
            "PDT_INIPARAM_LoadCamVcapSpecCfg: vcap dev attr,componentmask0[536346624] \n",
            "PDT_INIPARAM_LoadCamVcapSpecCfg: vcap dev attr,componentmask1[511] \n"));
}

TEST(VcapSpec, PipeByHandWithItsEcho) {
    ProductTree tree = EmptyTree();
    tree.Set("mode", "vcap.pipe.1:enable", "Y")
        .Set("mode", "vcap.pipe.1:src_framerate", "60")
        .Set("mode", "vcap.pipe.1:dst_framerate", "-1")
        .Set("mode", "vcap.pipe.1:isp_bypass", "true")
        .Set("mode", "vcap.pipe.1:pipe_bypassmode", "4")
        .Set("mode", "vcap.pipe.1:isp_framerate", "29.97")
        .Set("mode", "vcap.pipe.1:isp_width", "2560")
        .Set("mode", "vcap.pipe.1:isp_height", "1440")
        .Set("mode", "vcap.pipe.1:isp_mirrorflip", "-3")
        .Set("mode", "vcap.pipe.1:scene_param_idx", "-8")
        .Set("mode", "vcap.pipe.1:frameinterrupt_type", "-9")
        .Set("mode", "vcap.pipe.1:earlyline", "1080")
        .Set("mode", "vcap.pipe.1:aibnr_support", "1")
        .Set("mode", "vcap.pipe.1:ai3dnr_support", "yes")
        .Set("mode", "vcap.pipe.1:bnr_buffer_num", "6")
        .Set("mode", "vcap.pipe.1.chl.0:dst_width", "1280")
        .Set("mode", "vcap.pipe.1.chl.0:dst_height", "720")
        .Set("mode", "vcap.pipe.1.chl.0:src_framerate", "-10")
        .Set("mode", "vcap.pipe.1.chl.0:dst_framerate", "15")
        .Set("mode", "vcap.pipe.1.chl.0:MotionDenoiseEnable", "t")
        .Set("mode", "vcap.pipe.1.chl.0:MotionDenoiseIsoThresh", "1000")
        // This is the node of the channel's common settings, which is not read here.
        .Set("mode", "vcap.pipe.1.chn.0:dst_width", "77");
    std::string expected;
    for (const int word : {1, 60, -1, 1, 4, 0x41efc28f, 2560, 1440, 0, -3, -8, -9, 1080}) {
        expected += Word(word);
    }
    for (const int word : {1280, 720, -10, 15}) {
        expected += Word(word);
    }
    expected += std::string(144, '\0');
    for (const int word : {1, 1000, 0, 1, 1, 0, 6}) {
        expected += Word(word);
    }
    const LoadResult result = RunLoad(tree, 240, [](void* record) {
        return PDT_INIPARAM_LoadCamVcapPipeSpecCfg("mode", 1, static_cast<MediaMode>(7),
                                                   static_cast<VcapPipeSpecCfg*>(record));
    });
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVcapPipeSpecTable, expected, result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: vcap pipe[1] "
            ",enable[1],src_framerate[60], dst_framerate[-1], isp_Bypass[1] \n",
            "PDT_INIPARAM_LoadCamVcapIspPubAttr: isp pub attr, isp_framerate[29.969999], "
            "isp_width[2560], isp_height[1440] isp_mirrorflip[-3]\n",
            "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: vcap pipe[1] , sceneParamIdx[-8] \n",
            "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg: pipe[1] chn[0] dest resolution , "
            "dst_width[1280],dst_height[720] \n",
            "PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg: pipe[1] chn[0] "
            "src_framerate[-10],dst_framerate[15] motionDenoiseEnable[1] isotresh[1000\n",
            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[0] LDCDISConfigure:\n",
            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[1] "
            "LDCDISConfigure:\n"));
}

TEST(VcapSpec, IsoThresholdIs200UnlessGiven) {
    const std::string record = LoadTree(EmptyTree()).record;
    for (const std::size_t pipe : {76U, 316U, 556U, 796U}) {
        EXPECT_EQ(WordAt(record, pipe + 52 + 164), Word(200));
    }
    EXPECT_EQ(WordAt(LoadTree(With("vcap.pipe.3.chl.0:MotionDenoiseIsoThresh", "0")).record,
                     796 + 52 + 164),
              Word(0));
}

TEST(VcapSpec, IspFrameRatesAreNarrowedToFloats) {
    for (const auto& [text, bytes] :
         {std::pair<const char*, const char*>{"29.97", "\x8f\xc2\xef\x41"},
          {"1e39", "\x00\x00\x80\x7f"},
          {"-0.5", "\x00\x00\x00\xbf"},
          {"59.94 fps", "\x8f\xc2\x6f\x42"},
          {"fast", "\x00\x00\x00\x00"}}) {
        EXPECT_EQ(WordAt(LoadTree(With("vcap.pipe.0:isp_framerate", text)).record, 96),
                  std::string(bytes, 4))
            << text;
    }
}

TEST(VcapSpec, ConstantsAreWrittenAndReservedBytesAreNot) {
    VcapSpecCfg cfg;
    std::memset(&cfg, 0x55, sizeof cfg);
    const RegisteredProduct product(EmptyTree());
    CaptureStdout([&] { EXPECT_EQ(Load(&cfg), 0); });
    for (const VcapPipeSpecCfg& pipe : cfg.pipes) {
        EXPECT_EQ(pipe.zero, 0U);
        EXPECT_EQ(pipe.chn[0].zero, 0U);
        EXPECT_EQ(pipe.ispPub.reserved[0], std::byte{0x55});
        EXPECT_EQ(pipe.chn[0].ldc.v3.coefIntpRatio, 0x55555555U);  // no module serves the mode
    }
    EXPECT_EQ(cfg.sns.reserved[0], std::byte{0x55});
    EXPECT_EQ(cfg.reserved1[0], std::byte{0x55});
    EXPECT_EQ(cfg.reserved2[11], std::byte{0x55});
    EXPECT_EQ(cfg.reserved3[0], std::byte{0x55});
}

/// The stored word for component mask 0 with `text`, and in `error` the `errno` after loading.
std::string MaskOf(const std::string& text, int* error) {
    const LoadResult result =
        RunLoad(With("vcap.dev:componentmask0", text), 1036, [error](void* record) {
            const Status status = Load(record);
            *error = errno;
            return status;
        });
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(WordAt(result.record, 64), Word(0));
    return WordAt(result.record, 60);
}

TEST(VcapSpec, ComponentMaskIsADecimalNumber) {
    int error = 0;
    EXPECT_EQ(MaskOf("2147483647", &error), "\xff\xff\xff\x7f");
    EXPECT_EQ(error, 0);
    EXPECT_EQ(MaskOf("12 ; bits", &error), Word(12));
    EXPECT_EQ(MaskOf("12abc", &error), Word(12));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(MaskOf("0x10", &error), Word(0));
    EXPECT_EQ(MaskOf("+9", &error), Word(9));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(MaskOf("\"\"", &error), Word(0));
    EXPECT_EQ(error, EINVAL);
    EXPECT_EQ(MaskOf("bits", &error), Word(0));
    EXPECT_EQ(error, EINVAL);
}

TEST(VcapSpec, AbsentComponentMaskIsZero) {
    const LoadResult result = LoadTree(With("vcap.dev:componentmask1", "5"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(WordAt(result.record, 60), Word(0));
    EXPECT_EQ(WordAt(result.record, 64), Word(5));
}

TEST(VcapSpec, NegativeComponentMaskIsRefused) {
    const LoadResult result = LoadTree(EmptyTree()
                                           .Set("mode", "vcap.dev:componentmask0", "3")
                                           .Set("mode", "vcap.dev:componentmask1", "-1")
                                           .Set("mode", "vcap.pipe.0:enable", "1"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadCamVcapSpecCfg: componentmask error, out of range"));
    EXPECT_EQ(WordAt(result.record, 60), Word(3));
    EXPECT_EQ(result.record.substr(64), std::string(1036 - 64, '\0'));
}

TEST(VcapSpec, SaturatingComponentMaskIsAcceptedAndLeavesItsError) {
    int error = 0;
    EXPECT_EQ(MaskOf("4294967295", &error), "\xff\xff\xff\x7f");
    EXPECT_EQ(error, ERANGE);
}

TEST(VcapSpec, AfterASaturatingMaskTheHighestNumberIsRefused) {
    const ProductTree highest = With("vcap.pipe.0:isp_width", "2147483647");
    EXPECT_EQ(LoadTree(highest).status, 0);
    const LoadResult result =
        LoadTree(ProductTree(highest).Set("mode", "vcap.dev:componentmask0", "4294967295"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(
        ErrorsOf(result.output),
        ElementsAre(
            "PDT_INIPARAM_LoadUintValueByNodePrefix: [vcap.pipe.0:isp_width] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapIspPubAttr: [isp_width] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapPipeSpecCfg: [IspPubAttr] failed[0xFFFFFFFF]\n",
            "PDT_INIPARAM_LoadCamVcapSpecCfg: [VcapPipeSpec] failed[0xFFFFFFFF]\n"));
}

}  // namespace
}  // namespace paramgen::testing
