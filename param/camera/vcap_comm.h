/// Capture settings that all modes of a media-mode common block share: the capture device, its
/// pipes and their channels.
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

inline constexpr std::int32_t kVcapPipeCount = 4;
inline constexpr std::int32_t kVcapPipeChnCount = 1;

/// One channel of a capture pipe. 48 bytes.
struct VcapPipeChnCommCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t pixelFormat;
    std::int32_t rotate;
    Bool32 flip;
    Bool32 mirror;
    std::int32_t brightness;
    std::int32_t saturation;
    Bool32 lowDelayEnable;
    std::uint32_t lowDelayLine;
    Bool32 isLdcV1;
    Bool32 ldcEnable;
};
static_assert(sizeof(VcapPipeChnCommCfg) == 48);
static_assert(offsetof(VcapPipeChnCommCfg, flip) == 16);
static_assert(offsetof(VcapPipeChnCommCfg, mirror) == 20);
static_assert(offsetof(VcapPipeChnCommCfg, lowDelayEnable) == 32);

/// One capture pipe. 64 bytes.
struct VcapPipeCommCfg {
    std::int32_t handle;
    std::int32_t type;
    Bool32 lowDelayEnable;
    std::uint32_t lowDelayLine;
    VcapPipeChnCommCfg chns[kVcapPipeChnCount];
};
static_assert(sizeof(VcapPipeCommCfg) == 64);
static_assert(offsetof(VcapPipeCommCfg, chns) == 16);

/// Noise reduction by a trained model. It has no keys yet. 156 bytes.
struct VcapAibnrAttr {
    std::int32_t enable;
    std::byte reserved1[4];
    std::int32_t masterPipe;
    std::byte reserved2[12];
    char modelPath[132];
};
static_assert(sizeof(VcapAibnrAttr) == 156);
static_assert(offsetof(VcapAibnrAttr, masterPipe) == 8);
static_assert(offsetof(VcapAibnrAttr, modelPath) == 24);

/// The capture device with its pipes. 440 bytes.
struct VcapCommCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t wdrMode;
    std::int32_t inputMode;
    std::int32_t interfaceMode;
    std::int32_t dataSequence;
    std::int32_t inputDataType;
    VcapPipeCommCfg pipes[kVcapPipeCount];
    VcapAibnrAttr aibnr;
};
static_assert(sizeof(VcapCommCfg) == 440);
static_assert(offsetof(VcapCommCfg, inputDataType) == 24);
static_assert(offsetof(VcapCommCfg, pipes) == 28);
static_assert(offsetof(VcapCommCfg, aibnr) == 284);

extern const TableOf<VcapPipeChnCommCfg> kVcapPipeChnCommTable;
extern const TableOf<VcapPipeCommCfg> kVcapPipeCommTable;
extern const TableOf<VcapAibnrAttr> kVcapAibnrTable;
extern const TableOf<VcapCommCfg> kVcapCommTable;

/// Loads a channel's members from `enable` to `saturation`.
[[nodiscard]] Status PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne(const char* module,
                                                                std::int32_t pipe, std::int32_t chn,
                                                                VcapPipeChnCommCfg* cfg);

/// Loads a channel's members from `lowDelayEnable` on.
[[nodiscard]] Status PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo(const char* module,
                                                                std::int32_t pipe, std::int32_t chn,
                                                                VcapPipeChnCommCfg* cfg);

/// Loads both parts of a channel.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapPipeChnCommCfg(const char* module, std::int32_t pipe,
                                                            std::int32_t chn,
                                                            VcapPipeChnCommCfg* cfg);

/// Loads a pipe with its channels.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapPipeCommCfg(const char* module, std::int32_t pipe,
                                                         VcapPipeCommCfg* cfg);

/// These two will load the model's noise reduction. They read nothing yet.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapAibnrAttr(const char* module, VcapCommCfg* cfg);
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapAibnrModelAttr(const char* module, VcapCommCfg* cfg);

/// Loads the device with all its pipes.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapCommCfg(const char* module, VcapCommCfg* cfg);

}  // namespace paramgen
