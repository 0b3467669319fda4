#include "param/common/media_mode.h"

#include "param/common/names.h"
#include "param/common/param_log.h"

namespace paramgen {
namespace {

constexpr char kPrefix[] = "QX_PARAM_MEDIAMODE_";

constexpr NamedNumber<kPrefix, 15> kMediaModes[] = {
    {"QX_PARAM_MEDIAMODE_480P_25", 0},       {"QX_PARAM_MEDIAMODE_720P_30", 1},
    {"QX_PARAM_MEDIAMODE_720P_30_WDR", 2},   {"QX_PARAM_MEDIAMODE_720P_60", 3},
    {"QX_PARAM_MEDIAMODE_720P_60_WDR", 4},   {"QX_PARAM_MEDIAMODE_1080P_25", 5},
    {"QX_PARAM_MEDIAMODE_1080P_25_WDR", 6},  {"QX_PARAM_MEDIAMODE_1080P_30", 7},
    {"QX_PARAM_MEDIAMODE_1080P_30_WDR", 8},  {"QX_PARAM_MEDIAMODE_1080P_50", 9},
    {"QX_PARAM_MEDIAMODE_1080P_50_WDR", 10}, {"QX_PARAM_MEDIAMODE_1080P_60", 11},
    {"QX_PARAM_MEDIAMODE_1080P_60_WDR", 12}, {"QX_PARAM_MEDIAMODE_1080P_90", 13},
    {"QX_PARAM_MEDIAMODE_1080P_120", 14},    {"QX_PARAM_MEDIAMODE_1296P_30", 15},
    {"QX_PARAM_MEDIAMODE_1296P_30_WDR", 16}, {"QX_PARAM_MEDIAMODE_1440P_30", 17},
    {"QX_PARAM_MEDIAMODE_1440P_30_WDR", 18}, {"QX_PARAM_MEDIAMODE_1440P_25", 19},
    {"QX_PARAM_MEDIAMODE_1440P_25_WDR", 20}, {"QX_PARAM_MEDIAMODE_1520P_30", 21},
    {"QX_PARAM_MEDIAMODE_1520P_30_WDR", 22}, {"QX_PARAM_MEDIAMODE_1600P_30", 23},
    {"QX_PARAM_MEDIAMODE_1600P_30_WDR", 24}, {"QX_PARAM_MEDIAMODE_1944P_30", 25},
    {"QX_PARAM_MEDIAMODE_1944P_30_WDR", 26}, {"QX_PARAM_MEDIAMODE_2160P_20_HDR", 27},
    {"QX_PARAM_MEDIAMODE_2160P_25", 28},     {"QX_PARAM_MEDIAMODE_2160P_25_WDR", 29},
    {"QX_PARAM_MEDIAMODE_2160P_30", 30},     {"QX_PARAM_MEDIAMODE_2160P_30_WDR", 31},
    {"QX_PARAM_MEDIAMODE_2160P_60", 32},     {"QX_PARAM_MEDIAMODE_3000P_30", 33},
    {"QX_PARAM_MEDIAMODE_PHOTO_480P", 34},   {"QX_PARAM_MEDIAMODE_PHOTO_720P", 35},
    {"QX_PARAM_MEDIAMODE_PHOTO_1080P", 36},  {"QX_PARAM_MEDIAMODE_PHOTO_1080P_WDR", 37},
    {"QX_PARAM_MEDIAMODE_PHOTO_1296P", 38},  {"QX_PARAM_MEDIAMODE_PHOTO_1296P_WDR", 39},
    {"QX_PARAM_MEDIAMODE_PHOTO_1440P", 40},  {"QX_PARAM_MEDIAMODE_PHOTO_1440P_WDR", 41},
    {"QX_PARAM_MEDIAMODE_PHOTO_1520P", 42},  {"QX_PARAM_MEDIAMODE_PHOTO_1520P_WDR", 43},
    {"QX_PARAM_MEDIAMODE_PHOTO_1600P", 44},  {"QX_PARAM_MEDIAMODE_PHOTO_1600P_WDR", 45},
    {"QX_PARAM_MEDIAMODE_PHOTO_1944P", 46},  {"QX_PARAM_MEDIAMODE_PHOTO_1944P_WDR", 47},
    {"QX_PARAM_MEDIAMODE_PHOTO_2160P", 48},  {"QX_PARAM_MEDIAMODE_PHOTO_2160P_WDR", 49},
    {"QX_PARAM_MEDIAMODE_PHOTO_3000P", 50},  {"QX_PARAM_MEDIAMODE_PHOTO_6000P", 51},
    {"QX_PARAM_MEDIAMODE_PHOTO_8000P", 52},  {"QX_PARAM_MEDIAMODE_PLAYBACK", 53},
};

}  // namespace

Status PARAM_INIPARAM_GetMediaModeEnum(const char* name, MediaMode* mode) {
    std::int32_t number = 0;
    if (!FindName(kMediaModes, name, &number)) {
        LOG_ERROR("Invalid MediaMode[%s]\n", name);
        return kFailed;
    }
    *mode = static_cast<MediaMode>(number);
    LOG_DEBUG("MediaMode[%s] Enum[%d]\n", name, *mode);
    return kOk;
}

Status FieldTraits<MediaMode>::Lookup(const char* name, std::int32_t* number) {
    MediaMode mode = kMediaModeNone;
    const Status status = PARAM_INIPARAM_GetMediaModeEnum(name, &mode);
    if (status == kOk) {
        *number = mode;
    }
    return status;
}

}  // namespace paramgen
