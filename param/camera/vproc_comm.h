/// Video processing settings of a media-mode common block: one processing group with its noise
/// reduction, its output ports and its extended ports.
///
/// Every loader takes the module to read, the numbers that its node takes, and the record to fill;
/// it returns 0, or the code of the first step that failed, having logged it. What was loaded
/// before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kVportCount = 4;
inline constexpr std::int32_t kExtVportCount = 2;

/// Noise reduction of a processing group. 12 bytes.
struct VprocNrAttr {
    std::int32_t type;
    std::int32_t compressMode;
    std::int32_t motionMode;
};
static_assert(sizeof(VprocNrAttr) == 12);

/// Low-delay output of a port. 8 bytes.
struct VportLowDelayInfo {
    Bool32 enable;
    std::uint32_t lineCount;
};
static_assert(sizeof(VportLowDelayInfo) == 8);

/// One output port of a processing group. 48 bytes.
struct VportCommCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t rotate;
    Bool32 flip;
    Bool32 mirror;
    std::int32_t cropEnable;  ///< read as a number
    Bool32 bufferShare;
    Bool32 ctrlByDisp;
    std::int32_t videoFormat;
    std::int32_t pixelFormat;
    VportLowDelayInfo lowDelay;
};
static_assert(sizeof(VportCommCfg) == 48);
static_assert(offsetof(VportCommCfg, flip) == 12);
static_assert(offsetof(VportCommCfg, mirror) == 16);
static_assert(offsetof(VportCommCfg, cropEnable) == 20);
static_assert(offsetof(VportCommCfg, videoFormat) == 32);
static_assert(offsetof(VportCommCfg, lowDelay) == 40);

/// One extended port of a processing group. Its input is the output of a port. 32 bytes.
struct ExtVportCommCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t bindHandle;
    std::int32_t cropEnable;  ///< read as a number
    std::int32_t videoFormat;
    std::int32_t pixelFormat;
    Bool32 lowDelayEnable;
    std::uint32_t lowDelayLine;
};
static_assert(sizeof(ExtVportCommCfg) == 32);
static_assert(offsetof(ExtVportCommCfg, cropEnable) == 12);
static_assert(offsetof(ExtVportCommCfg, lowDelayEnable) == 24);

/// A processing group with its ports. 304 bytes.
struct VprocCommCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t vcapPipeHandle;
    std::int32_t vcapPipeChnHandle;
    std::int32_t pixelFormat;
    Bool32 nrEnable;
    std::byte reserved[4];
    VprocNrAttr nr;
    Bool32 isLdcV1;
    Bool32 ldcEnable;
    VportCommCfg vports[kVportCount];
    ExtVportCommCfg extVports[kExtVportCount];
};
static_assert(sizeof(VprocCommCfg) == 304);
static_assert(offsetof(VprocCommCfg, nr) == 28);
static_assert(offsetof(VprocCommCfg, isLdcV1) == 40);
static_assert(offsetof(VprocCommCfg, vports) == 48);
static_assert(offsetof(VprocCommCfg, extVports) == 240);

extern const TableOf<VprocNrAttr> kVprocNrTable;
extern const TableOf<VportLowDelayInfo> kVportLowDelayTable;
extern const TableOf<VportCommCfg> kVportCommTable;
extern const TableOf<ExtVportCommCfg> kExtVportCommTable;
extern const TableOf<VprocCommCfg> kVprocCommTable;

/// Loads the noise reduction of a group.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVprocNrAttr(const char* module, std::int32_t group,
                                                     VprocNrAttr* cfg);

/// Loads the low-delay output of a port.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVportLowDelayInfo(const char* module, std::int32_t group,
                                                           std::int32_t port,
                                                           VportLowDelayInfo* cfg);

/// Loads a port with its low-delay output.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVportCommCfg(const char* module, std::int32_t group,
                                                      std::int32_t port, VportCommCfg* cfg);

/// Loads an extended port.
[[nodiscard]] Status PDT_INIPARAM_LoadExtVportCommCfg(const char* module, std::int32_t group,
                                                      std::int32_t port, ExtVportCommCfg* cfg);

/// Loads a group with its noise reduction, but without its ports.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVprocCommArg(const char* module, std::int32_t group,
                                                      VprocCommCfg* cfg);

/// Loads a group with its ports.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVprocCommCfg(const char* module, std::int32_t group,
                                                      VprocCommCfg* cfg);

}  // namespace paramgen
