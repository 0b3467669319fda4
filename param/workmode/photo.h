/// Photo work mode: the sources of photos, and the kind of photo that the mode starts with. The
/// record work mode uses photo sources too.
///
/// Every loader takes the module to read, the node where it does not have one of its own, and the
/// record to fill; it returns 0, or the code of the first step that failed, having logged it. What
/// was loaded before a failure stays. A null record fails with -1. No value is checked for its
/// range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/cam_media_mode.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"
#include "param/common/values.h"
#include "param/workmode/osd.h"

namespace paramgen {

/// The path of a photo through the pipeline, by handles. 28 bytes.
struct PhotoSourceCfg {
    Bool32 enable;
    std::int32_t capturePipe;
    std::int32_t pipeChannel;
    std::int32_t processingGroup;
    std::int32_t processingPort;
    std::int32_t encoder;
    std::int32_t thumbnailEncoder;
};
static_assert(sizeof(PhotoSourceCfg) == 28);

/// Burst photos: several in quick succession. 8 bytes.
struct PhotoBurstCfg {
    MediaMode mediaMode;  ///< unchanged when the key is absent
    std::int32_t type;
};
static_assert(sizeof(PhotoBurstCfg) == 8);

/// Kind of photo that the mode starts with, and the settings of each kind. 20 bytes.
struct PhotoTypeCfg {
    std::int32_t type;
    std::int32_t singleOutputFormat;
    std::uint32_t lapseInterval;
    PhotoBurstCfg burst;
};
static_assert(sizeof(PhotoTypeCfg) == 20);
static_assert(offsetof(PhotoTypeCfg, burst) == 12);

/// Photo settings. 48 bytes.
struct PhotoCfg {
    PhotoSourceCfg source[1];
    PhotoTypeCfg type[1];
};
static_assert(sizeof(PhotoCfg) == 48);
static_assert(offsetof(PhotoCfg, type) == 28);

/// The work mode. 4376 bytes.
struct PhotoWorkModeCfg {
    OsdCfg osd;
    CamMediaModeCfg mediaMode[1];
    PhotoCfg photo;
    std::byte reserved[12];
};
static_assert(sizeof(PhotoWorkModeCfg) == 4376);
static_assert(offsetof(PhotoWorkModeCfg, mediaMode) == 4308);
static_assert(offsetof(PhotoWorkModeCfg, photo) == 4316);
static_assert(offsetof(PhotoWorkModeCfg, reserved) == 4364);

extern const TableOf<PhotoSourceCfg> kPhotoSourceTable;
extern const TableOf<PhotoBurstCfg> kPhotoBurstTable;
extern const TableOf<PhotoTypeCfg> kPhotoTypeTable;
extern const TableOf<PhotoCfg> kPhotoTable;
extern const TableOf<PhotoWorkModeCfg> kPhotoWorkModeTable;

/// Loads the photo source at `node`.
[[nodiscard]] Status PDT_INIPARAM_LoadPhotoAttr(const char* module, const char* node,
                                                PhotoSourceCfg* cfg);

/// Loads the settings of burst photos at `node`. Returns -1 for an unknown media mode.
[[nodiscard]] Status PDT_INIPARAM_LoadPhotoBurstAttr(const char* module, const char* node,
                                                     PhotoBurstCfg* cfg);

/// Loads the photo settings.
[[nodiscard]] Status PDT_INIPARAM_LoadPhotoCfg(const char* module, PhotoCfg* cfg);

/// Loads the whole work mode.
[[nodiscard]] Status PDT_INIPARAM_LoadPhotoWorkModeCfg(const char* module, PhotoWorkModeCfg* cfg);

}  // namespace paramgen
