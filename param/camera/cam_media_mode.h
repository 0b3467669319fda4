/// Which camera a work mode uses, and in which media mode. Shared with the work modes.
#pragma once

#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

/// A camera and its media mode. 8 bytes.
struct CamMediaModeCfg {
    std::int32_t camId;
    MediaMode mediaMode;  ///< left as it is when the key is absent
};
static_assert(sizeof(CamMediaModeCfg) == 8);

extern const TableOf<CamMediaModeCfg> kCamMediaModeTable;

/// Reads `cfg` under the node `prefix` of `module`. Returns 0 or the code of the first failing
/// step, having logged it; -1 for an unknown media mode.
[[nodiscard]] Status PDT_INIPARAM_LoadCamMediaModeCfg(const char* module, const char* prefix,
                                                      CamMediaModeCfg* cfg);

}  // namespace paramgen
