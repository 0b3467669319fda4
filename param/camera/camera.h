/// Camera section: for each camera its switches, the common settings of its media modes for
/// recording, photo and playback, and its media modes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/media_mode_comm.h"
#include "param/camera/media_mode_spec.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::uint32_t kCamCount = 1;
inline constexpr std::uint32_t kCamMediaModeSpecCount = 5;

/// A camera's switches. 12 bytes.
struct CamFuncAttr {
    Bool32 enable;
    Bool32 osdShow;
    std::uint32_t videoMode;
};
static_assert(sizeof(CamFuncAttr) == 12);

/// One camera. 12,832 bytes.
struct CamMediaCfg {
    std::uint32_t camIndex;
    CamFuncAttr func;
    CamMediaModeCommCfg record;
    CamMediaModeCommCfg photo;
    CamMediaModeCommCfg playback;  ///< zero when the product has no module for it
    std::byte reserved[4];
    CamMediaModeSpecCfg mediaModes[kCamMediaModeSpecCount];  ///< zero where the module is missing
};
static_assert(sizeof(CamMediaCfg) == 12832);
static_assert(offsetof(CamMediaCfg, func) == 4);
static_assert(offsetof(CamMediaCfg, record) == 16);
static_assert(offsetof(CamMediaCfg, photo) == 1180);
static_assert(offsetof(CamMediaCfg, playback) == 2344);
static_assert(offsetof(CamMediaCfg, reserved) == 3508);
static_assert(offsetof(CamMediaCfg, mediaModes) == 3512);

extern const TableOf<CamFuncAttr> kCamFuncTable;
extern const TableOf<CamMediaCfg> kCamMediaTable;

/// Loads the switches of `cam` from `module`. Returns 0, or the code of the first step that failed,
/// having logged it; -1 when `cam` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadCamFuncAttr(const char* module, CamMediaCfg* cam);

/// Loads the first `count` of `cams`, at most `kCamCount`. Returns 0, or the code of the first step
/// that failed, having logged it; -1 when `cams` is null. What was loaded before a failure stays.
[[nodiscard]] Status PDT_INIPARAM_LoadCamMediaCfg(CamMediaCfg* cams, std::uint32_t count);

}  // namespace paramgen
