/// The encoders of one media mode.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"

namespace paramgen {

inline constexpr std::uint32_t kVencSpecCount = 5;

/// An encoder. 36 bytes.
struct VencSpecAttr {
    std::uint32_t resWidth;  ///< encoders from the first one without this key on do not count
    std::uint32_t resHeight;
    std::uint32_t bufSize;
    std::uint32_t gop;
    std::int32_t srcFrameRate;
    std::int32_t dstFrameRate;
    std::uint32_t h264BitRate;
    std::uint32_t h265BitRate;
    std::uint32_t statTime;
};
static_assert(sizeof(VencSpecAttr) == 36);
static_assert(offsetof(VencSpecAttr, h264BitRate) == 24);

/// All encoders. 188 bytes.
struct VencSpecCfg {
    std::uint32_t count;
    VencSpecAttr vencs[kVencSpecCount];
    std::byte reserved[4];
};
static_assert(sizeof(VencSpecCfg) == 188);
static_assert(offsetof(VencSpecCfg, vencs) == 4);

extern const TableOf<VencSpecAttr> kVencSpecAttrTable;
extern const TableOf<VencSpecCfg> kVencSpecTable;

/// Loads encoder `venc` from `module`, and stores in `exists` whether it has a width (1) or not
/// (0). The encoder is loaded in both cases.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencSpecAttr(const char* module, std::uint32_t venc,
                                                      VencSpecAttr* attr, std::int32_t* exists);

/// Loads the encoders up to and including the first one without a width. The count does not include
/// that one.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencSpecCfg(const char* module, VencSpecCfg* cfg);

}  // namespace paramgen
