/// The source of the pictures that a part of the firmware uses.
///
/// The loader takes the module and the node to read, and the record to fill; it returns 0 or the
/// code of its first failing step, having logged it.
#pragma once

#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"

namespace paramgen {

/// A binding to a channel of a firmware module. 12 bytes.
struct VideoModCfg {
    std::int32_t boundModule;
    std::int32_t moduleHandle;
    std::int32_t channelHandle;
};
static_assert(sizeof(VideoModCfg) == 12);

extern const TableOf<VideoModCfg> kVideoModTable;

[[nodiscard]] Status PDT_INIPARAM_LoadVideoModCfg(const char* module, const char* prefix,
                                                  VideoModCfg* cfg);

}  // namespace paramgen
