/// Video processing in one media mode: the group, its ports and extended ports.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/ldc.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

inline constexpr std::uint32_t kVportSpecCount = 4;
inline constexpr std::uint32_t kExtVportSpecCount = 2;

/// A port or an extended port. 48 bytes.
struct VportSpecCfg {
    std::uint32_t resWidth;
    std::uint32_t resHeight;
    std::byte reserved[8];
    std::int32_t srcFrameRate;
    std::int32_t dstFrameRate;
    std::uint32_t wrapBufLine;
    std::int32_t cropStartX;
    std::int32_t cropStartY;
    std::uint32_t cropWidth;
    std::uint32_t cropHeight;
    std::uint32_t zero;
};
static_assert(sizeof(VportSpecCfg) == 48);
static_assert(offsetof(VportSpecCfg, srcFrameRate) == 16);

/// A group with its ports. 464 bytes.
struct VpssSpecAttr {
    std::uint32_t maxWidth;
    std::uint32_t maxHeight;
    std::int32_t srcFrameRate;
    std::int32_t dstFrameRate;
    std::int32_t cropStartX;
    std::int32_t cropStartY;
    std::uint32_t cropWidth;
    std::uint32_t cropHeight;
    VportSpecCfg vports[kVportSpecCount];
    VportSpecCfg extVports[kExtVportSpecCount];
    VcapLDCAttr ldc;  ///< from the lens-distortion module that serves the media mode
};
static_assert(sizeof(VpssSpecAttr) == 464);
static_assert(offsetof(VpssSpecAttr, vports) == 32);
static_assert(offsetof(VpssSpecAttr, extVports) == 224);
static_assert(offsetof(VpssSpecAttr, ldc) == 320);

extern const TableOf<VportSpecCfg> kVportSpecTable;
extern const TableOf<VpssSpecAttr> kVpssSpecTable;

/// Loads the port or extended port at `node`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVportSpecCfg(const char* module, const char* node,
                                                      VportSpecCfg* cfg);

/// Loads processing group `group` from `module`, and its lens-distortion correction from the module
/// that serves `mode`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVpssSpecAttr(const char* module, std::uint32_t group,
                                                      MediaMode mode, VpssSpecAttr* attr);

}  // namespace paramgen
