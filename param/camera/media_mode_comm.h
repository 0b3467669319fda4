/// Media-mode common block: the settings that all media modes of a camera share, once each for
/// recording, photo and playback.
///
/// Every loader takes the module to read, and the record to fill; it returns 0, or the code of the
/// first step that failed, having logged it. What was loaded before a failure stays. A null record
/// fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/vcap_comm.h"
#include "param/camera/venc_comm.h"
#include "param/camera/vproc_comm.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kVprocCommCount = 1;

/// Crop of the display window. 16 bytes.
struct DispCropCfg {
    Bool32 enable;
    std::uint32_t maxHeight;
    std::uint32_t currentHeight;
    std::int32_t mode;
};
static_assert(sizeof(DispCropCfg) == 16);

/// The block. 1164 bytes.
struct CamMediaModeCommCfg {
    VcapCommCfg vcap;
    VprocCommCfg vproc[kVprocCommCount];
    CamVencCommCfg venc;
    DispCropCfg dispCrop;
};
static_assert(sizeof(CamMediaModeCommCfg) == 1164);
static_assert(offsetof(CamMediaModeCommCfg, vproc) == 440);
static_assert(offsetof(CamMediaModeCommCfg, venc) == 744);
static_assert(offsetof(CamMediaModeCommCfg, dispCrop) == 1148);

extern const TableOf<DispCropCfg> kDispCropTable;
extern const TableOf<CamMediaModeCommCfg> kCamMediaModeCommTable;

/// Loads the crop of the display window.
[[nodiscard]] Status PDT_INIPARAM_LoadCamDispCropCfg(const char* module, DispCropCfg* cfg);

/// Loads the whole block.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaModeCommCfg(const char* module,
                                                       CamMediaModeCommCfg* cfg);

}  // namespace paramgen
