#include "param/common/media_mode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "log/console_log.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

// Index: the number of the name.
constexpr const char* kNames[] = {
    "QX_PARAM_MEDIAMODE_480P_25",      "QX_PARAM_MEDIAMODE_720P_30",
    "QX_PARAM_MEDIAMODE_720P_30_WDR",  "QX_PARAM_MEDIAMODE_720P_60",
    "QX_PARAM_MEDIAMODE_720P_60_WDR",  "QX_PARAM_MEDIAMODE_1080P_25",
    "QX_PARAM_MEDIAMODE_1080P_25_WDR", "QX_PARAM_MEDIAMODE_1080P_30",
    "QX_PARAM_MEDIAMODE_1080P_30_WDR", "QX_PARAM_MEDIAMODE_1080P_50",
    "QX_PARAM_MEDIAMODE_1080P_50_WDR", "QX_PARAM_MEDIAMODE_1080P_60",
    "QX_PARAM_MEDIAMODE_1080P_60_WDR", "QX_PARAM_MEDIAMODE_1080P_90",
    "QX_PARAM_MEDIAMODE_1080P_120",    "QX_PARAM_MEDIAMODE_1296P_30",
    "QX_PARAM_MEDIAMODE_1296P_30_WDR", "QX_PARAM_MEDIAMODE_1440P_30",
    "QX_PARAM_MEDIAMODE_1440P_30_WDR", "QX_PARAM_MEDIAMODE_1440P_25",
    "QX_PARAM_MEDIAMODE_1440P_25_WDR", "QX_PARAM_MEDIAMODE_1520P_30",
    "QX_PARAM_MEDIAMODE_1520P_30_WDR", "QX_PARAM_MEDIAMODE_1600P_30",
    "QX_PARAM_MEDIAMODE_1600P_30_WDR", "QX_PARAM_MEDIAMODE_1944P_30",
    "QX_PARAM_MEDIAMODE_1944P_30_WDR", "QX_PARAM_MEDIAMODE_2160P_20_HDR",
    "QX_PARAM_MEDIAMODE_2160P_25",     "QX_PARAM_MEDIAMODE_2160P_25_WDR",
    "QX_PARAM_MEDIAMODE_2160P_30",     "QX_PARAM_MEDIAMODE_2160P_30_WDR",
    "QX_PARAM_MEDIAMODE_2160P_60",     "QX_PARAM_MEDIAMODE_3000P_30",
    "QX_PARAM_MEDIAMODE_PHOTO_480P",   "QX_PARAM_MEDIAMODE_PHOTO_720P",
    "QX_PARAM_MEDIAMODE_PHOTO_1080P",  "QX_PARAM_MEDIAMODE_PHOTO_1080P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_1296P",  "QX_PARAM_MEDIAMODE_PHOTO_1296P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_1440P",  "QX_PARAM_MEDIAMODE_PHOTO_1440P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_1520P",  "QX_PARAM_MEDIAMODE_PHOTO_1520P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_1600P",  "QX_PARAM_MEDIAMODE_PHOTO_1600P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_1944P",  "QX_PARAM_MEDIAMODE_PHOTO_1944P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_2160P",  "QX_PARAM_MEDIAMODE_PHOTO_2160P_WDR",
    "QX_PARAM_MEDIAMODE_PHOTO_3000P",  "QX_PARAM_MEDIAMODE_PHOTO_6000P",
    "QX_PARAM_MEDIAMODE_PHOTO_8000P",  "QX_PARAM_MEDIAMODE_PLAYBACK",
};

struct Found {
    Status status;
    MediaMode mode;
    std::string output;
};

Found Find(const std::string& name) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    Found found = {.status = 0, .mode = static_cast<MediaMode>(-7), .output = ""};
    found.output = CaptureStdout(
        [&] { found.status = PARAM_INIPARAM_GetMediaModeEnum(name.c_str(), &found.mode); });
    return found;
}

TEST(MediaMode, EveryNameHasItsNumber) {
    ASSERT_EQ(std::size(kNames), 54U);
    for (int number = 0; number < 54; ++number) {
        const Found found = Find(kNames[number]);
        EXPECT_EQ(found.status, 0) << kNames[number];
        EXPECT_EQ(found.mode, number) << kNames[number];
        EXPECT_THAT(
            EchoOf(found.output),
            ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: MediaMode[" +
                        std::string(kNames[number]) + "] Enum[" + std::to_string(number) + "]\n"));
    }
}

TEST(MediaMode, OtherNamesAreUnknown) {
    for (const std::string name :
         {"", "QX_PARAM_MEDIAMODE_PLAYBACK ", "qx_param_mediamode_playback",
          "QX_PARAM_MEDIAMODE_720P_3", "QX_PARAM_MEDIAMODE_720P_30_WD",
          "QX_PARAM_MEDIAMODE_3000P_30_WDR", "QX_PARAM_MEDIAMODE_1080P_30 "}) {
        const Found found = Find(name);
        EXPECT_EQ(found.status, -1) << name;
        EXPECT_EQ(found.mode, -7) << name;
        EXPECT_THAT(
            ErrorsOf(found.output),
            ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[" + name + "]\n"));
    }
}

TEST(MediaMode, MembersAreReadByName) {
    std::int32_t number = -7;
    CaptureStdout([&] {
        EXPECT_EQ(FieldTraits<MediaMode>::Lookup("QX_PARAM_MEDIAMODE_PHOTO_8000P", &number), 0);
        EXPECT_EQ(number, 52);
        EXPECT_EQ(FieldTraits<MediaMode>::Lookup("?", &number), -1);
        EXPECT_EQ(number, 52);
    });
}

TEST(MediaMode, NullNameIsUnknown) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    auto number = static_cast<MediaMode>(7);
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PARAM_INIPARAM_GetMediaModeEnum(nullptr, &number); });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(number, 7);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[(null)]\n"));
}

}  // namespace
}  // namespace paramgen::testing
