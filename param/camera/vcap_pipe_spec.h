/// The capture pipes of one media mode, each with its channel.
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
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::uint32_t kVcapPipeSpecChnCount = 1;

/// Input and output frame rates, in frames per second; -1: unchanged. 8 bytes.
struct VcapFrameRateCfg {
    std::int32_t src;
    std::int32_t dst;
};
static_assert(sizeof(VcapFrameRateCfg) == 8);

/// Output of the image processor. 20 bytes.
struct VcapIspPubAttr {
    float frameRate;
    std::uint32_t width;
    std::uint32_t height;
    std::byte reserved[4];
    std::int32_t mirrorFlip;
};
static_assert(sizeof(VcapIspPubAttr) == 20);

/// A channel. 172 bytes.
struct VcapPipeChnSpecCfg {
    std::uint32_t dstWidth;
    std::uint32_t dstHeight;
    std::int32_t srcFrameRate;
    std::int32_t dstFrameRate;
    VcapLDCAttr ldc;  ///< from the lens-distortion module that serves the media mode
    Bool32 motionDenoise;
    std::uint32_t motionDenoiseIsoThresh;
    std::uint32_t zero;
};
static_assert(sizeof(VcapPipeChnSpecCfg) == 172);
static_assert(offsetof(VcapPipeChnSpecCfg, ldc) == 16);
static_assert(offsetof(VcapPipeChnSpecCfg, motionDenoise) == 160);

/// A pipe. 240 bytes.
struct VcapPipeSpecCfg {
    Bool32 enable;
    VcapFrameRateCfg frameRate;
    Bool32 ispBypass;
    std::int32_t bypassMode;
    VcapIspPubAttr ispPub;
    std::int32_t sceneParamIdx;
    std::int32_t frameInterruptType;
    std::uint32_t earlyLine;
    VcapPipeChnSpecCfg chn[kVcapPipeSpecChnCount];
    Bool32 aibnrSupport;
    Bool32 ai3dnrSupport;
    std::uint32_t zero;
    std::uint32_t bnrBufferNum;
};
static_assert(sizeof(VcapPipeSpecCfg) == 240);
static_assert(offsetof(VcapPipeSpecCfg, ispPub) == 20);
static_assert(offsetof(VcapPipeSpecCfg, sceneParamIdx) == 40);
static_assert(offsetof(VcapPipeSpecCfg, chn) == 52);
static_assert(offsetof(VcapPipeSpecCfg, aibnrSupport) == 224);

extern const TableOf<VcapFrameRateCfg> kVcapFrameRateTable;
extern const TableOf<VcapIspPubAttr> kVcapIspPubTable;
extern const TableOf<VcapPipeChnSpecCfg> kVcapPipeChnSpecTable;
extern const TableOf<VcapPipeSpecCfg> kVcapPipeSpecTable;

/// Loads the frame rates of a pipe.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapPipeFrameRateCfg(const char* module,
                                                              std::uint32_t pipe,
                                                              VcapFrameRateCfg* cfg);

/// Loads the image processor's output of the pipe at `node`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapIspPubAttr(const char* module, const char* node,
                                                        VcapIspPubAttr* attr);

/// Loads the interrupt, noise reduction and tuning values of a pipe.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapSingleValue(const char* module, std::uint32_t pipe,
                                                         VcapPipeSpecCfg* cfg);

/// Loads a channel, with its lens-distortion correction from the module that serves `mode`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg(const char* module, std::uint32_t pipe,
                                                            std::uint32_t chn, MediaMode mode,
                                                            VcapPipeChnSpecCfg* cfg);

/// Loads a whole pipe with its channel.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVcapPipeSpecCfg(const char* module, std::uint32_t pipe,
                                                         MediaMode mode, VcapPipeSpecCfg* cfg);

}  // namespace paramgen
