#include "param/media_common/snap_enc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

LoadResult LoadSnap(const ProductTree& tree, const std::string& name = "single",
                    const std::string& module = "media_common") {
    return RunLoad(tree, 36, [&](void* record) {
        return PDT_INIPARAM_LoadMediaCommSnapEncAttr(module.c_str(), name.c_str(),
                                                     static_cast<SnapEncAttr*>(record));
    });
}

TEST(SnapEnc, ThumbnailCountIsStoredAndEchoedInOneByte) {
    const LoadResult result = LoadSnap(MediaTree("venc.snap.single:largethumbnail_num", "300"));
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kSnapEncTable, std::string(4, '\0') + '\x2c' + std::string(31, '\0'),
                           result.record));
    EXPECT_THAT(
        EchoOf(result.output),
        ElementsAre("PDT_INIPARAM_LoadMediaCommSnapEncAttr: NodePrefix[venc.snap.single]\n",
                    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] DCF[0], "
                    "QualityFactor[0], Receivemode[0], Encode_mode[0], LargeThumbNailNum[44]\n",
                    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
                    "largethumbnail0_width[0],largethumbnail0_height[0] \n",
                    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
                    "largethumbnail1_width[0],largethumbnail1_height[0] \n"));
}

TEST(SnapEnc, BothThumbnailsAreReadWhateverTheCount) {
    ProductTree tree = MediaTree("venc.snap.sub:largethumbnail_num", "0");
    tree.Set("media_common", "venc.snap.sub:largethumbnail0_width", "1")
        .Set("media_common", "venc.snap.sub:largethumbnail0_height", "2")
        .Set("media_common", "venc.snap.sub:largethumbnail1_width", "3")
        .Set("media_common", "venc.snap.sub:largethumbnail1_height", "4");
    EXPECT_EQ(LoadSnap(tree, "sub").record.substr(4, 20),
              std::string("\0\0\0\0\1\0\0\0\2\0\0\0\3\0\0\0\4\0\0\0", 20));
}

TEST(SnapEnc, HeightAndModesAreEchoedWithoutSign) {
    ProductTree tree = MediaTree("venc.snap.sub:largethumbnail1_width", "-1");
    tree.Set("media_common", "venc.snap.sub:largethumbnail1_height", "-2")
        .Set("media_common", "venc.snap.sub:receivemode", "-3")
        .Set("media_common", "venc.snap.sub:encode_mode", "-4");
    const std::vector<std::string> echo = EchoOf(LoadSnap(tree, "sub").output);
    ASSERT_EQ(echo.size(), 4U);
    EXPECT_EQ(echo[1],
              "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] DCF[0], QualityFactor[0], "
              "Receivemode[4294967293], Encode_mode[4294967292], LargeThumbNailNum[0]\n");
    EXPECT_EQ(echo[3],
              "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] "
              "largethumbnail1_width[-1],largethumbnail1_height[4294967294] \n");
}

TEST(SnapEnc, EncodeModeFailsAsJpegEncodeMode) {
    EXPECT_THAT(ErrorsOf(LoadSnap(MediaTree("venc.snap.single:encode_mode", "2147483648")).output),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.snap.single:encode_mode"),
                            Failed("LoadMediaCommSnapEncAttr", "jpegEncodeMode")));
}

TEST(SnapEnc, SwitchAndCountFailByTheirKeys) {
    EXPECT_THAT(
        ErrorsOf(LoadSnap(MediaTree(), "single", "absent").output),
        ElementsAre(Failed("LoadBoolValueByNodePrefix", "venc.snap.single:enable_dcf", "A1418046"),
                    Failed("LoadMediaCommSnapEncAttr", "enable_dcf", "A1418046")));
    EXPECT_THAT(
        ErrorsOf(LoadSnap(MediaTree("venc.snap.single:largethumbnail_num", "2147483648")).output),
        ElementsAre(Failed("LoadIntValueByNodePrefix", "venc.snap.single:largethumbnail_num"),
                    Failed("LoadMediaCommSnapEncAttr", "largethumbnail_num")));
}

TEST(SnapEnc, ThumbnailFailsOnceByItsFullKey) {
    for (const std::string key :
         {"venc.snap.single:largethumbnail0_width", "venc.snap.single:largethumbnail1_height"}) {
        const LoadResult result = LoadSnap(MediaTree(key, "-2147483649"));
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(ErrorsOf(result.output), ElementsAre(Failed("LoadMediaCommSnapEncAttr", key)));
    }
}

TEST(SnapEnc, NameTooLongForTheNode) {
    const LoadResult result = LoadSnap(MediaTree(), std::string(118, 'n'));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output), ElementsAre(NotFormatted("LoadMediaCommSnapEncAttr")));
}

// With a node of 106 characters every key fits except the widths; with 105 characters the widths
// fit, but not the heights.
TEST(SnapEnc, NameTooLongForThumbnailKeys) {
    for (const std::size_t length : {106U - 10U, 105U - 10U}) {
        const LoadResult result = LoadSnap(MediaTree(), std::string(length, 'n'));
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(ErrorsOf(result.output), ElementsAre(NotFormatted("LoadMediaCommSnapEncAttr")));
        EXPECT_EQ(EchoOf(result.output).size(), 2U);
    }
    EXPECT_EQ(LoadSnap(MediaTree(), std::string(104 - 10, 'n')).status, 0);
}

}  // namespace
}  // namespace paramgen::testing
