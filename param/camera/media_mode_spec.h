/// The settings of a camera's pipeline in one media mode.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/vb_spec.h"
#include "param/camera/vcap_spec.h"
#include "param/camera/venc_spec.h"
#include "param/camera/vproc_spec.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

inline constexpr std::uint32_t kVpssSpecCount = 1;

/// How a capture pipe passes its pictures to video processing. 8 bytes.
struct VcapPipeModeCfg {
    std::int32_t vcapPipeHdl;
    std::int32_t viVpssMode;
};
static_assert(sizeof(VcapPipeModeCfg) == 8);

/// One media mode. 1864 bytes.
struct CamMediaModeSpecCfg {
    MediaMode mediaMode;  ///< unchanged when the key is absent
    VcapPipeModeCfg vcapPipes[kVcapPipeSpecCount];
    std::byte reserved[4];
    VBSpecCfg vb;
    VcapSpecCfg vcap;
    VpssSpecAttr vpss[kVpssSpecCount];
    VencSpecCfg venc;
};
static_assert(sizeof(CamMediaModeSpecCfg) == 1864 && alignof(CamMediaModeSpecCfg) == 8);
static_assert(offsetof(CamMediaModeSpecCfg, vcapPipes) == 4);
static_assert(offsetof(CamMediaModeSpecCfg, vb) == 40);
static_assert(offsetof(CamMediaModeSpecCfg, vcap) == 176);
static_assert(offsetof(CamMediaModeSpecCfg, vpss) == 1212);
static_assert(offsetof(CamMediaModeSpecCfg, venc) == 1676);

extern const TableOf<VcapPipeModeCfg> kVcapPipeModeTable;
extern const TableOf<CamMediaModeSpecCfg> kCamMediaModeSpecTable;

/// Loads one media mode from `module`. Returns 0, or the code of the first step that failed, having
/// logged it; -1 when the module names an unknown media mode, and when `cfg` is null. What was
/// loaded before a failure stays.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaModeSpecCfg(const char* module,
                                                       CamMediaModeSpecCfg* cfg);

}  // namespace paramgen
