// The example product, run by the real program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "golden/dashcam.h"
#include "support/bytes.h"
#include "support/program.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

TEST_F(Dashcam, Runs) {
    EXPECT_EQ(run_.exitStatus, 0);
    EXPECT_THAT(ErrorsOf(run_.output), ::testing::IsEmpty());
    EXPECT_EQ(image_.size(), 29928U);
    EXPECT_EQ(ReadFile(directory_.path() / "paramdef.bin"), image_);
}

TEST_F(Dashcam, RunsTheSameEveryTime) {
    const ProgramRun again = RunProgram(directory_.path());
    EXPECT_EQ(again.output, run_.output);
    EXPECT_EQ(ReadFile(directory_.path() / "param.bin"), image_);
}

// The whole echo, with source lines masked. The expected text was checked by hand; it must only
// change together with what the program logs.
TEST_F(Dashcam, SaysWhatItShould) {
    const std::string expected = ReadFile(PARAMGEN_GOLDEN "/dashcam_output.txt");
    const std::string actual = MaskVolatile(run_.output);
    std::istringstream expectedLines(expected);
    std::istringstream actualLines(actual);
    std::string expectedLine;
    std::string actualLine;
    for (int number = 1; std::getline(expectedLines, expectedLine); ++number) {
        ASSERT_TRUE(std::getline(actualLines, actualLine)) << "ends before line " << number;
        ASSERT_EQ(actualLine, expectedLine) << "line " << number;
    }
    EXPECT_EQ(actual.size(), expected.size());
}

TEST_F(Dashcam, FrameByHand) {
    EXPECT_EQ(Part(0, 16), std::string("\x61\x72\x61\x70\xE8\x74\0\0\0\0\0\0\0\0\0\0", 16));
    EXPECT_EQ(Part(9644, 4), std::string(4, '\0'));
    EXPECT_EQ(Part(29920, 8), std::string("\x6D\x72\x61\x70\0\0\0\0", 8));
}

TEST_F(Dashcam, DeviceManagementByHand) {
    std::string expected(420, '\0');
    expected.replace(0, 19, "RVX4 2.7.13 release");
    expected.replace(64, 11, "RoadView X4");
    expected.replace(128, 11, "/mnt/sdcard");
    expected.replace(256, 14, "/dev/mmcblk1p1");
    // medium type, port, g-sensor 2 and 3, its reserved word, key tone, boot sound, English, no
    // buzzer
    expected.replace(384, 36,
                     std::string("\0\0\0\0\0\0\0\0\2\0\0\0\3\0\0\0\0\0\0\0"
                                 "\1\0\0\0\1\0\0\0\1\0\0\0\0\0\0\0",
                                 36));
    EXPECT_EQ(Part(23924, 420), expected);
}

TEST_F(Dashcam, FileManagementByHand) {
    std::string expected(1444, '\0');
    expected.replace(0, 11, "/mnt/sdcard");
    expected.replace(128, 8, std::string("\1\0\0\0\1\0\0\0", 8));
    expected.replace(136, 12, "RVX4/.repair");
    expected.replace(264, 10, "unfinished");
    // 3 files of 64 MB, twice; 85 percent; warnings at 1024 and 512 MB
    expected.replace(392, 28,
                     std::string("\3\0\0\0\3\0\0\0\x40\0\0\0\x40\0\0\0"
                                 "\x55\0\0\0\0\4\0\0\0\2\0\0",
                                 28));
    expected.replace(420, 4, "RVX4");
    const char* names[14] = {"normal",      "normal_sub", "event", "event_sub", "parking",
                             "parking_sub", "lapse",      "",      "photo",     "burst",
                             "photo lapse", ".thumb",     "gps",   ""};
    for (std::size_t i = 0; i < 14; ++i) {
        expected.replace(548 + 64 * i, std::string(names[i]).size(), names[i]);
    }
    EXPECT_EQ(Part(22480, 1444), expected);
}

TEST_F(Dashcam, MediaCommonByHand) {
    const std::int32_t words[] = {
        // main stream: car, high profile; H.264 CBR, VBR, QVBR; H.265 the same; the fixed words
        2, 2, 0,                           //
        48, 22, 46, 20,                    //
        47, 24, 45, 21,                    //
        49, 23, 44, 19, 120, 35, 26, -18,  //
        50, 25, 43, 18,                    //
        46, 26, 42, 17,                    //
        51, 27, 41, 16, 130, 40, 24, -16,  //
        85, 75,                            //
        // sub stream
        2, 1, 0,                           //
        45, 28, 40, 15,                    //
        44, 29, 39, 14,                    //
        43, 30, 38, 13, 110, 55, 22, -14,  //
        42, 31, 37, 12,                    //
        41, 32, 36, 11,                    //
        40, 33, 35, 10, 115, 60, 20, -12,  //
        85, 75,                            //
        // snapshots: DCF, two large thumbnails and their sizes, quality, modes
        1, 2, 1280, 720, 640, 360, 92, 1, 2,  //
        0, 1, 128, 72, 96, 54, 74, 2, 1,      //
        // hierarchical QP: deltas, frames
        1,             //
        -4, -2, 1, 3,  //
        1, 2, 4, 8,    //
        // live view from the sub stream's encoder
        3, 1, 0,  //
        // display, BT.709 to RGB limited, its picture controls, a reserved word
        1, 1, 1052688, 1,    //
        22, 51, 54, 49, 57,  //
        0,                   //
        // its source and window count; the playback window with its video rectangle and its place
        2, 0, 2,                       //
        1,                             //
        1, 1, 0, 2,                    //
        2, 2105376, 32, 18, 704, 396,  //
        16, 24, 768, 432, 3,           //
        // audio capture, its gain and channels
        1, 1,                                  //
        48000, 1, 2, 3, 4, 1024, 2, 32000, 0,  //
        18,                                    //
        1, 0, 1,                               //
        1, 1, 0,                               //
        // audio encoder: AAC; the band width is a half word
        1, 2, 1, 0,                       //
        0, 1024,                          //
        0, 96000, 32000, 1, 1, 0, 14500,  //
        // audio output, its volume and channels
        1, 1,                               //
        32000, 1, 1, 5, 3, 2048, 32000, 7,  //
        65,                                 //
        0, 0,                               //
        1, 1,                               //
    };
    std::string expected;
    for (const std::int32_t word : words) {
        expected += LittleEndian(word, 4);
    }
    EXPECT_EQ(Part(8928, 716), expected);
}

}  // namespace
}  // namespace paramgen::testing
