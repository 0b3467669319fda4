/// Capture in one media mode: the sensor, the capture device and its pipes.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/camera/vcap_pipe_spec.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

inline constexpr std::uint32_t kVcapComponentMaskCount = 2;
inline constexpr std::uint32_t kVcapPipeSpecCount = 4;

/// The sensor. 28 bytes.
struct VcapSnsAttr {
    std::int32_t sensorType;
    std::uint32_t sensorMode;
    std::int32_t wdrMode;
    std::uint32_t sensorWidth;
    std::uint32_t sensorHeight;
    std::byte reserved[4];
    std::int32_t dataType;
};
static_assert(sizeof(VcapSnsAttr) == 28);

/// All of capture. 1036 bytes.
struct VcapSpecCfg {
    VcapSnsAttr sns;
    std::byte reserved1[4];
    std::uint32_t basWidth;
    std::uint32_t basHeight;
    std::int32_t wdrMode;
    std::uint32_t cacheLine;
    std::byte reserved2[12];
    std::uint32_t componentMask[kVcapComponentMaskCount];
    std::byte reserved3[8];
    VcapPipeSpecCfg pipes[kVcapPipeSpecCount];
};
static_assert(sizeof(VcapSpecCfg) == 1036);
static_assert(offsetof(VcapSpecCfg, basWidth) == 32);
static_assert(offsetof(VcapSpecCfg, wdrMode) == 40);
static_assert(offsetof(VcapSpecCfg, componentMask) == 60);
static_assert(offsetof(VcapSpecCfg, pipes) == 76);

extern const TableOf<VcapSnsAttr> kVcapSnsTable;
extern const TableOf<VcapSpecCfg> kVcapSpecTable;

/// Loads the sensor from `module`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapSnsCfg(const char* module, VcapSnsAttr* attr);

/// Loads all of capture from `module`, and the lens-distortion correction of its channels from the
/// module that serves `mode`. Returns -1 for a negative component mask.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapSpecCfg(const char* module, MediaMode mode,
                                                     VcapSpecCfg* cfg);

}  // namespace paramgen
