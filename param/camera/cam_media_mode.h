/// The camera that a work mode uses, and its media mode. The work mode section uses this file too.
#pragma once

#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

/// A camera and its media mode. 8 bytes.
struct CamMediaModeCfg {
    std::int32_t camId;
    MediaMode mediaMode;  ///< unchanged when the key is absent
};
static_assert(sizeof(CamMediaModeCfg) == 8);

extern const TableOf<CamMediaModeCfg> kCamMediaModeTable;

/// Loads `cfg` from the node `prefix` of `module`. Returns 0, or the code of the first step that
/// failed, having logged it; -1 for an unknown media mode and when `cfg` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadCamMediaModeCfg(const char* module, const char* prefix,
                                                      CamMediaModeCfg* cfg);

}  // namespace paramgen
