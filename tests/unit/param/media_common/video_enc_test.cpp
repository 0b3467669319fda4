#include "param/media_common/video_enc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kSection[] = "LoadMediaCommVencCommConf";

LoadResult LoadVideoEnc(const ProductTree& tree, const std::string& name) {
    return RunLoad(tree, 148, [&name](void* record) {
        return PDT_INIPARAM_LoadMediaCommVideoEncAttr("media_common", name.c_str(),
                                                      static_cast<VideoEncAttr*>(record));
    });
}

TEST(VideoEnc, FixedWordsStandBehindBothCodecs) {
    const LoadResult result = LoadVideoEnc(MediaTree(), "main");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVideoEncTable,
                           std::string(140, '\0') + std::string("\x55\0\0\0\x4b\0\0\0", 8),
                           result.record));
}

TEST(VideoEnc, FixedWordsWaitForBothCodecs) {
    for (const char* key :
         {"venc.video.main.h264.cbr:max_qp", "venc.video.main.h265.qvbr:psnr_fluctuate_ll"}) {
        const LoadResult result = LoadVideoEnc(MediaTree(key, "99999999999"), "main");
        EXPECT_EQ(result.status, -1);
        EXPECT_TRUE(SameRecord(kVideoEncTable, std::string(148, '\0'), result.record));
    }
}

TEST(VideoEnc, H264BlocksHaveTheirLabels) {
    EXPECT_THAT(
        ChainOf("venc.video.main.h264:profile"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.main.h264:profile"),
                    Failed("LoadMediaCommVencH264Attr", "profile"),
                    Failed("LoadMediaCommVideoEncAttr", "H264Attr"),
                    Failed(kSection, "MainVideoEnc"), Failed("LoadMediaCommConf", kSection)));
    EXPECT_THAT(
        ChainOf("venc.video.main.h264.cbr:max_qp"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.main.h264.cbr:max_qp"),
                    Failed("LoadMediaCommH26xCbrAttr", "max_qp"),
                    Failed("LoadMediaCommVencH264Attr", "H264CBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H264Attr"),
                    Failed(kSection, "MainVideoEnc"), Failed("LoadMediaCommConf", kSection)));
    EXPECT_THAT(
        ChainOf("venc.video.main.h264.vbr:min_qp"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.main.h264.vbr:min_qp"),
                    Failed("LoadMediaCommH26xVbrAttr", "min_qp"),
                    Failed("LoadMediaCommVencH264Attr", "H264VBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H264Attr"),
                    Failed(kSection, "MainVideoEnc"), Failed("LoadMediaCommConf", kSection)));
    EXPECT_THAT(
        ChainOf("venc.video.main.h264.qvbr:max_iqp"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.main.h264.qvbr:max_iqp"),
                    Failed("LoadMediaCommH26xQvbrAttr", "max_iqp"),
                    Failed("LoadMediaCommVencH264Attr", "H264QVBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H264Attr"),
                    Failed(kSection, "MainVideoEnc"), Failed("LoadMediaCommConf", kSection)));
}

TEST(VideoEnc, H265BlocksHaveTheirLabels) {
    EXPECT_THAT(
        ChainOf("venc.video.sub.h265:profile"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.sub.h265:profile"),
                    Failed("LoadMediaCommVencH265Attr", "profile"),
                    Failed("LoadMediaCommVideoEncAttr", "H265Attr"),
                    Failed(kSection, "SubVideoEnc"), Failed("LoadMediaCommConf", kSection)));
    EXPECT_THAT(
        ChainOf("venc.video.sub.h265.cbr:min_iqp"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.sub.h265.cbr:min_iqp"),
                    Failed("LoadMediaCommH26xCbrAttr", "min_iqp"),
                    Failed("LoadMediaCommVencH265Attr", "H265CBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H265Attr"),
                    Failed(kSection, "SubVideoEnc"), Failed("LoadMediaCommConf", kSection)));
    EXPECT_THAT(
        ChainOf("venc.video.sub.h265.vbr:max_qp"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "venc.video.sub.h265.vbr:max_qp"),
                    Failed("LoadMediaCommH26xVbrAttr", "max_qp"),
                    Failed("LoadMediaCommVencH265Attr", "H265VBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H265Attr"),
                    Failed(kSection, "SubVideoEnc"), Failed("LoadMediaCommConf", kSection)));
}

TEST(VideoEnc, H265QvbrGoesByTheLabelOfVbr) {
    EXPECT_THAT(
        ChainOf("venc.video.main.h265.qvbr:bit_percent_ll"),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.video.main.h265.qvbr:bit_percent_ll"),
                    Failed("LoadMediaCommH26xQvbrAttr", "bit_percent_ll"),
                    Failed("LoadMediaCommVencH265Attr", "H265VBRAttr"),
                    Failed("LoadMediaCommVideoEncAttr", "H265Attr"),
                    Failed(kSection, "MainVideoEnc"), Failed("LoadMediaCommConf", kSection)));
}

TEST(VideoEnc, QvbrEchoesItsLimitsBeforeItReadsTheRest) {
    const LoadResult result =
        LoadSection(MediaTree("venc.video.main.h264.qvbr:bit_percent_ul", "99999999999")
                        .Set("media_common", "venc.video.main.h264.qvbr:min_iqp", "-1"));
    EXPECT_EQ(EchoOf(result.output).back(),
              "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.main.h264.qvbr]: MaxQP[0] "
              "MinQP[0] MaxIQP[0] MinIQP[4294967295]\n");
    EXPECT_EQ(ErrorsOf(result.output)[1], Failed("LoadMediaCommH26xQvbrAttr", "bit_percent_ul"));
}

TEST(VideoEnc, NameTooLongForAnyNode) {
    const LoadResult result = LoadVideoEnc(MediaTree(), std::string(117, 'n'));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output), ElementsAre(NotFormatted("LoadMediaCommVideoEncAttr")));
    EXPECT_THAT(EchoOf(result.output), IsEmpty());
}

// The longest name whose scene mode can be read: the nodes below it do not fit.
TEST(VideoEnc, NameTooLongForTheRateControl) {
    const std::string name(105, 'n');
    const LoadResult result = LoadVideoEnc(MediaTree(), name);
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre(NotFormatted("LoadUintValueByNodePrefix"),
                            Failed("LoadMediaCommVencH264Attr", "profile"),
                            Failed("LoadMediaCommVideoEncAttr", "H264Attr")));
    EXPECT_EQ(EchoOf(result.output).back(), "PDT_INIPARAM_LoadMediaCommVideoEncAttr: [venc.video." +
                                                name + "] scene[0:0-normal,1-dv,2-car]\n");
}

TEST(VideoEnc, PrefixesTooLongForTheirNodes) {
    const RegisteredProduct product(MediaTree());
    VideoEncAttr attr = {};
    Status status = 0;
    const std::string codec(123, 'p');   // with ".h264", 128 characters
    const std::string method(124, 'p');  // with ".cbr", 128 characters
    const auto errors = [&status](const auto& load) {
        return ErrorsOf(CaptureStdout([&] { status = load(); }));
    };
    const char* const module = "media_common";
    EXPECT_THAT(errors([&] {
                    return PDT_INIPARAM_LoadMediaCommVencH264Attr(module, codec.c_str(), &attr);
                }),
                ElementsAre(NotFormatted("LoadMediaCommVencH264Attr")));
    EXPECT_EQ(status, -1);
    EXPECT_THAT(errors([&] {
                    return PDT_INIPARAM_LoadMediaCommVencH265Attr(module, codec.c_str(), &attr);
                }),
                ElementsAre(NotFormatted("LoadMediaCommVencH265Attr")));
    EXPECT_EQ(status, -1);
    EXPECT_THAT(errors([&] {
                    return PDT_INIPARAM_LoadMediaCommH26xCbrAttr(module, method.c_str(),
                                                                 &attr.h264.cbr);
                }),
                ElementsAre(NotFormatted("LoadMediaCommH26xCbrAttr")));
    EXPECT_EQ(status, -1);
    EXPECT_THAT(errors([&] {
                    return PDT_INIPARAM_LoadMediaCommH26xVbrAttr(module, method.c_str(),
                                                                 &attr.h264.vbr);
                }),
                ElementsAre(NotFormatted("LoadMediaCommH26xVbrAttr")));
    EXPECT_EQ(status, -1);
    EXPECT_THAT(errors([&] {
                    return PDT_INIPARAM_LoadMediaCommH26xQvbrAttr(module, codec.c_str(),
                                                                  &attr.h264.qvbr);
                }),
                ElementsAre(NotFormatted("LoadMediaCommH26xQvbrAttr")));
    EXPECT_EQ(status, -1);
}

}  // namespace
}  // namespace paramgen::testing
