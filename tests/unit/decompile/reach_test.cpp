// What trees can make and what none can: images are built byte by byte.

#include "unit/decompile/decompile_fixture.h"

namespace paramgen::decompile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The image of the smallest product.
image::Image Smallest() {
    static const image::Image image = Compiled(SmallestProduct());
    return image;
}

void PutText(image::Image* image, std::uint32_t offset, std::string_view text) {
    std::memcpy(&(*image)[offset], text.data(), text.size());
}

// Offsets of value sets.
constexpr std::uint32_t kDormant = 24508;
constexpr std::uint32_t kRecordModes = 24836;
constexpr std::uint32_t kVolume = 25164;
constexpr std::uint32_t kDrive = 25328;  // behind the 10 choices of the volume

TEST(Reach, ASetMayCountUpToTheEndOfItsSection) {
    image::Image image = Smallest();
    Put(&image, kVolume, 297);  // 4 + 297 * 16 bytes reach 29920, where the tail begins
    EXPECT_TRUE(FileOf(Back(image), "valueset").starts_with("[volume]\nnum = 297\n"));
    Put(&image, kVolume, 298);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kVolume));
    Put(&image, kVolume, 0xFFFFFFFF);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kVolume));
}

TEST(Reach, AChoiceBeyondItsSetLiesUnderTheNextSetsCount) {
    // Description 10 begins at the next set's count, which is read later; so only its fifth and
    // later characters can be seen.
    image::Image image = Smallest();
    Put(&image, kVolume, 11);
    PutText(&image, kDrive + 4, "abc");
    const std::string file = FileOf(Back(image), "valueset");
    ASSERT_EQ(file.size(), std::string("[volume]\nnum = 11\ndescription10 = ????abc\n").size());
    EXPECT_TRUE(file.starts_with("[volume]\nnum = 11\ndescription10 = "));
    EXPECT_TRUE(file.ends_with("abc\n"));
}

TEST(Reach, AChoiceBeyondItsSetThatNoLineCanSayIsLost) {
    image::Image image = Smallest();
    Put(&image, kVolume, 11);
    PutText(&image, kDrive + 4, "a;c");
    EXPECT_THAT(LostOffsets(image), ElementsAre(kDrive + 4));
    Put(&image, kVolume, 10);  // and none is counted
    PutText(&image, kDrive + 4, "abc");
    EXPECT_THAT(LostOffsets(image), ElementsAre(kDrive + 4));
}

TEST(Reach, WhatALaterSetOverwritesIsFree) {
    // The sleep times are read after the media modes, and their description 20 ends on the count of
    // these: a count that no key says, and none of its modes.
    image::Image image = Smallest();
    Put(&image, kDormant, 21);
    PutText(&image, kRecordModes - 4, "wxyzabcd");
    EXPECT_EQ(FileOf(Back(image), "valueset"),
              "[screen.dormant]\nnum = 21\ndescription20 = wxyzabcd\n");
    // But one that reaches far enough when a mode is to be seen.
    Put(&image, kRecordModes + 32, 30);
    EXPECT_EQ(FileOf(Back(image), "valueset"),
              "[cam.0.mediamode.record]\nnum = 2\nvalue1 = QX_PARAM_MEDIAMODE_2160P_30\n\n"
              "[screen.dormant]\nnum = 21\ndescription20 = wxyzabcd\n");
}

TEST(Reach, SleepTimesAreMultiplesOf8) {
    image::Image image = Smallest();
    Put(&image, kDormant, 2);
    Put(&image, kDormant + 16, 30000);
    Put(&image, kDormant + 32, 8);  // 115964117000 is 27 * 2^32 + 8
    EXPECT_EQ(FileOf(Back(image), "valueset"),
              "[screen.dormant]\nnum = 2\nvalue0 = 30\nvalue1 = 115964117\n");
    Put(&image, kDormant + 32, 12);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kDormant + 32));
}

// Offsets of the first way to record.
constexpr std::uint32_t kFileCount = 4420;
constexpr std::uint32_t kThumbnails = 4504;
constexpr std::uint32_t kHandle4 =
    4524;  // of handles 0 to 3 there is room; then come buffers' sizes
constexpr std::uint32_t kPlayRate = 4532;

TEST(Reach, Handles4And5YieldToTheSizesOfBuffers) {
    image::Image image = Smallest();
    Put(&image, kThumbnails, 6);
    Put(&image, kHandle4, 9);
    Put(&image, kHandle4 + 4, 8);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"),
              "[normal.0]\nthmcnt = 6\nthmhdl4 = 9\nthmhdl5 = 8\n");
    Put(&image, kFileCount, 1);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"),
              "[normal.0]\nfilecnt = 1\nthmcnt = 6\nthmhdl5 = 8\n\n"
              "[normal.0.filenum.0.fileattr]\nrecvbuf_size = 9\n");
    Put(&image, kFileCount, 2);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"),
              "[normal.0]\nfilecnt = 2\nthmcnt = 6\n\n"
              "[normal.0.filenum.0.fileattr]\nrecvbuf_size = 9\n\n"
              "[normal.0.filenum.1.fileattr]\nrecvbuf_size = 8\n");
}

TEST(Reach, Handle6OverwritesTheFrameRate) {
    image::Image image = Smallest();
    Put(&image, kThumbnails, 6);
    Put(&image, kPlayRate, 25);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"), "[normal.0]\nplayfps = 25\nthmcnt = 6\n");
    Put(&image, kThumbnails, 7);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"), "[normal.0]\nthmcnt = 7\nthmhdl6 = 25\n");
}

TEST(Reach, HandlesGoThroughReservedBytesUpToTheSectionsEnd) {
    constexpr std::uint32_t kReserved = 4548;  // handle 10
    constexpr std::uint32_t kLast = 8924;      // handle 1104
    image::Image image = Smallest();
    Put(&image, kReserved, 5);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kReserved));
    Put(&image, kThumbnails, 11);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"), "[normal.0]\nthmcnt = 11\nthmhdl10 = 5\n");
    Put(&image, kLast, 7);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kLast));
    Put(&image, kThumbnails, 1105);
    EXPECT_EQ(FileOf(Back(image), "workmode_record"),
              "[normal.0]\nthmcnt = 1105\nthmhdl10 = 5\nthmhdl1104 = 7\n");
    Put(&image, kReserved, 0);
    Put(&image, kLast, 0);
    Put(&image, kThumbnails, 1106);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kThumbnails));
}

TEST(Reach, TheLastEncoderIsThereWithoutItsKeyAndWithIt) {
    constexpr std::uint32_t kEncoders = 10408;
    image::Image image = Smallest();
    Put(&image, kEncoders, 4);
    Put(&image, kEncoders + 4 + 4 * 80 + 52, 3);  // the format of encoder 4
    EXPECT_EQ(FileOf(Back(image), "cam0_comm_record"),
              "[venc.0]\nenable = 0\n\n[venc.1]\nenable = 0\n\n[venc.2]\nenable = 0\n\n"
              "[venc.3]\nenable = 0\n\n[venc.4]\npayload = 3\n");
    Put(&image, kEncoders, 5);
    EXPECT_EQ(FileOf(Back(image), "cam0_comm_record"),
              "[venc.0]\nenable = 0\n\n[venc.1]\nenable = 0\n\n[venc.2]\nenable = 0\n\n"
              "[venc.3]\nenable = 0\n\n[venc.4]\nenable = 0\npayload = 3\n");
    Put(&image, kEncoders, 6);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kEncoders));
}

// Its key counts the encoder by being there, whatever it says.
TEST(Reach, AnEncoderIsCountedThoughNoLineSaysItsSwitch) {
    constexpr std::uint32_t kEncoders = 10408;
    image::Image image = Smallest();
    Put(&image, kEncoders, 2);
    Put(&image, kEncoders + 4 + 80, 2);  // the switch of encoder 1: neither 0 nor 1
    EXPECT_THAT(LostOffsets(image), ElementsAre(kEncoders + 4 + 80));
}

TEST(Reach, AModuleThatHoldsOnlyZerosComesBackWithoutIt) {
    ProductTree tree = SmallestProduct();
    for (const char* pipe : {"0", "1", "2", "3"}) {
        tree.Set("cam0_mediamode0", std::string("common.vcap.pipe.") + pipe + ":vivpssmode", "0");
    }
    const image::Image before = Compiled(tree);
    image::Image image = Smallest();
    for (std::uint32_t at = 13160; at < 15024; ++at) {  // media mode 0
        image[at] = before[at];
    }
    EXPECT_EQ(image, before);
    const std::string file = FileOf(Back(image), "cam0_mediamode0");
    for (const char* pipe : {"0", "1", "2", "3"}) {
        EXPECT_THAT(file, ::testing::HasSubstr(std::string("[common.vcap.pipe.") + pipe +
                                               "]\nvivpssmode = 0\n"));
    }
    std::fill(image.begin() + 13160, image.begin() + 15024, std::byte{0});
    EXPECT_EQ(image, Smallest());
    for (const bool all : {false, true}) {
        EXPECT_FALSE(HasModule(Back(image, {.all = all, .like = std::nullopt}), "cam0_mediamode0"));
    }
}

TEST(Reach, TwoMediaModesHaveACalibrationAndAThirdHasNone) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_mediamode1", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    tree.Set("cam0_mediamode2", "common:mediamode", "QX_PARAM_MEDIAMODE_480P_25");
    image::Image image = Compiled(tree);
    // The ratio of the four pipes and of the processing group of each.
    for (const std::uint32_t at : {13488U, 13728U, 13968U, 14208U, 14700U}) {
        Put(&image, at, 7);
        Put(&image, at + 1864, 8);
    }
    static_cast<void>(Back(image));
    for (const std::uint32_t at : {17216U, 17456U, 17696U, 17936U, 18428U}) {
        Put(&image, at, 9);
    }
    EXPECT_THAT(LostOffsets(image), ElementsAre(17216, 17456, 17696, 17936, 18428));
}

TEST(Reach, OneKeyInTwoPlacesIsTheSameInBoth) {
    image::Image image = Smallest();
    Put(&image, 22872, 5);
    Put(&image, 22876, 5);
    EXPECT_EQ(FileOf(Back(image), "filemng"), "[dtcf]\npre_alloc_cnt = 5\n");
    Put(&image, 22876, 6);
    const Decompiled result = Decompile(image, {});
    ASSERT_EQ(result.lost.size(), 1U);
    EXPECT_EQ(result.lost.front().size, 1U);
    EXPECT_EQ(result.lost.front().reason,
              "another value of the same key, or what it counts, is at odds with it");
}

TEST(Reach, AMaskIsBelow2To31) {
    constexpr std::uint32_t kMask = 13396;
    ProductTree tree = SmallestProduct();
    tree.AddModule("cam0_mediamode0");
    image::Image image = Compiled(tree);
    Put(&image, kMask, 0x7FFFFFFF);
    EXPECT_EQ(FileOf(Back(image), "cam0_mediamode0"), "[vcap.dev]\ncomponentmask0 = 2147483647\n");
    Put(&image, kMask, 0x80000000);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kMask + 3));
}

TEST(Reach, NumbersThatNoTextGivesAreLost) {
    constexpr std::uint32_t kRate = 13432;  // a float
    constexpr std::uint32_t kPools = 13200;
    constexpr std::uint32_t kSize = 13208;  // of 64 bits, read with 32
    constexpr std::uint32_t kMode = 13160;
    ProductTree tree = SmallestProduct();
    tree.AddModule("cam0_mediamode0");
    const image::Image plain = Compiled(tree);
    image::Image image = plain;
    Put(&image, kRate, 0x7FC00000);
    Put(&image, kPools, 1);
    Put(&image, kSize, 0xFFFFFFFF);
    Put(&image, kSize + 4, 0xFFFFFFFF);
    Put(&image, kMode, 53);
    EXPECT_EQ(FileOf(Back(image), "cam0_mediamode0"),
              "[common]\nmediamode = QX_PARAM_MEDIAMODE_PLAYBACK\n\n"
              "[vb]\nmax_poolcnt = 1\n\n[vb.pool.0]\nblk_size = -1\n\n"
              "[vcap.pipe.0]\nisp_framerate = nan\n");
    Put(&image, kRate, 0x7FC00001);
    Put(&image, kSize, 0x80000000);
    Put(&image, kSize + 4, 0);
    Put(&image, kMode, 54);
    EXPECT_THAT(LostOffsets(image), ElementsAre(kMode, kSize + 3, kRate));
}

TEST(Reach, TextsThatNoLineCanSayAreLost) {
    constexpr std::uint32_t kModel = 23988;
    const auto lostOf = [](std::string_view model) {
        image::Image image = Smallest();
        PutText(&image, kModel, model);
        std::vector<std::pair<std::uint32_t, std::uint32_t>> lost;
        for (const Lost& each : Decompile(image, {}).lost) {
            lost.emplace_back(each.offset, each.size);
        }
        return lost;
    };
    using Bytes = std::pair<std::uint32_t, std::uint32_t>;
    EXPECT_THAT(lostOf("a b"), IsEmpty());
    EXPECT_THAT(lostOf("a;b"), ElementsAre(Bytes(kModel, 3)));
    EXPECT_THAT(lostOf("a\nb"), ElementsAre(Bytes(kModel, 3)));
    EXPECT_THAT(lostOf(std::string_view("a\0b", 3)), ElementsAre(Bytes(kModel + 2, 1)));
    EXPECT_THAT(lostOf(std::string(64, 'x')), ElementsAre(Bytes(kModel, 64)));
    // A text that needs quotes, of which one kind is free, or none.
    EXPECT_THAT(lostOf(" 'a"), IsEmpty());
    EXPECT_THAT(lostOf("a\" "), IsEmpty());
    EXPECT_THAT(lostOf(" 'a\""), ElementsAre(Bytes(kModel, 4)));
    EXPECT_THAT(lostOf("\"a\""), IsEmpty());
    EXPECT_THAT(lostOf("\"a\"'"), ElementsAre(Bytes(kModel, 4)));
}

TEST(Reach, ADirectoryIsNotCalledTwoQuotes) {
    constexpr std::uint32_t kDirectory = 23028;
    image::Image image = Smallest();
    PutText(&image, kDirectory, "\"x");
    static_cast<void>(Back(image));
    image = Smallest();
    PutText(&image, kDirectory, "\"\"");
    EXPECT_THAT(LostOffsets(image), ElementsAre(kDirectory));
}

TEST(Reach, APlaceThatNoValueMakesLeavesTheKeyToItsOtherPlaces) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    image::Image image = Compiled(tree);
    // The switch of the four pipes' lenses, and of the processing group.
    for (const std::uint32_t at : {13480U, 13720U, 13960U, 14200U, 14692U}) {
        Put(&image, at, 1);
    }
    static_cast<void>(Back(image));
    for (const std::uint32_t at : {13480U, 13720U, 13960U, 14200U, 14692U}) {
        image::Image disturbed = image;
        Put(&disturbed, at, 2);
        EXPECT_THAT(LostOffsets(disturbed), ElementsAre(at));
    }
}

TEST(Reach, ATextWithBytesBehindItsEndLeavesTheKeyToItsOtherPlace) {
    for (const std::uint32_t disturbed : {22480U, 24052U}) {
        const std::uint32_t other = 22480 + 24052 - disturbed;
        image::Image image = Smallest();
        PutText(&image, disturbed, std::string_view("/a\0x", 4));
        PutText(&image, other, "/b");
        EXPECT_THAT(LostOffsets(image), ElementsAre(disturbed + 1));
    }
}

}  // namespace
}  // namespace paramgen::decompile
