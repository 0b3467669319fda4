/// Media common section, which all cameras share: video and snapshot encoders, live view, display
/// and sound.
///
/// Every loader takes the record to fill; it returns 0, or the code of the first step that failed,
/// having logged it. What was loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/media_common/audio_capture.h"
#include "param/media_common/audio_enc.h"
#include "param/media_common/audio_out.h"
#include "param/media_common/display.h"
#include "param/media_common/hierarchical_qp.h"
#include "param/media_common/snap_enc.h"
#include "param/media_common/video_enc.h"
#include "param/media_common/video_mod.h"

namespace paramgen {

inline constexpr std::int32_t kLiveSourceCount = 1;
inline constexpr std::int32_t kDispCount = 1;
inline constexpr std::int32_t kAcapCount = 1;
inline constexpr std::int32_t kAencCount = 1;
inline constexpr std::int32_t kAoCount = 1;

/// The encoders' common settings. 404 bytes.
struct VencCommCfg {
    VideoEncAttr mainVideo;
    VideoEncAttr subVideo;
    SnapEncAttr singleSnap;
    SnapEncAttr subSnap;
    HierarchicalQpAttr hierarchicalQp;
};
static_assert(sizeof(VencCommCfg) == 404);
static_assert(offsetof(VencCommCfg, subVideo) == 148);
static_assert(offsetof(VencCommCfg, singleSnap) == 296);
static_assert(offsetof(VencCommCfg, subSnap) == 332);
static_assert(offsetof(VencCommCfg, hierarchicalQp) == 368);

/// The section. 716 bytes.
struct MediaCommCfg {
    VencCommCfg venc;
    VideoModCfg liveSource[kLiveSourceCount];
    DispCfg disp[kDispCount];
    AcapCfg acap[kAcapCount];
    AencCfg aenc[kAencCount];
    AoCfg ao[kAoCount];
};
static_assert(sizeof(MediaCommCfg) == 716);
static_assert(offsetof(MediaCommCfg, liveSource) == 404);
static_assert(offsetof(MediaCommCfg, disp) == 416);
static_assert(offsetof(MediaCommCfg, acap) == 532);
static_assert(offsetof(MediaCommCfg, aenc) == 604);
static_assert(offsetof(MediaCommCfg, ao) == 656);

extern const TableOf<VencCommCfg> kVencCommTable;
extern const ModuleTableOf<MediaCommCfg> kMediaCommTable;

/// Loads the encoders' common settings from `module`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommVencCommConf(const char* module, VencCommCfg* cfg);

/// Loads the whole section. Returns -1 when `section` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommConf(MediaCommCfg* section);

}  // namespace paramgen
