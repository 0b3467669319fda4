/// Lens-distortion correction. Its values are in modules of their own. Each of these modules serves
/// one media mode; capture channels and processing groups use the module that serves their mode.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::size_t kLdcCalibrationCount = 9;

/// The first model: one distortion ratio. 28 bytes.
struct LdcV1Attr {
    Bool32 aspect;
    std::int32_t xRatio;
    std::int32_t yRatio;
    std::int32_t xyRatio;
    std::int32_t centerXOffset;
    std::int32_t centerYOffset;
    std::int32_t distortionRatio;
};
static_assert(sizeof(LdcV1Attr) == 28);

/// The third model: a full calibration. 108 bytes.
struct LdcV3Attr {
    Bool32 aspect;
    std::int32_t xRatio;
    std::int32_t yRatio;
    std::int32_t xyRatio;
    std::int32_t focalLenX;
    std::int32_t focalLenY;
    std::int32_t coordShiftX;
    std::int32_t coordShiftY;
    std::int32_t srcCalibrationRatio[kLdcCalibrationCount];
    std::int32_t srcCalibrationRatioNext[kLdcCalibrationCount];
    std::uint32_t coefIntpRatio;
};
static_assert(sizeof(LdcV3Attr) == 108);
static_assert(offsetof(LdcV3Attr, srcCalibrationRatio) == 32);
static_assert(offsetof(LdcV3Attr, coefIntpRatio) == 104);

/// Both models, each with its switch. 144 bytes.
struct VcapLDCAttr {
    Bool32 v1Enable;
    LdcV1Attr v1;
    Bool32 v3Enable;
    LdcV3Attr v3;
};
static_assert(sizeof(VcapLDCAttr) == 144);
static_assert(offsetof(VcapLDCAttr, v3Enable) == 32);
static_assert(offsetof(VcapLDCAttr, v3) == 36);

/// Template of the modules' names. It takes the camera and the configuration.
inline constexpr char kLdcModule[] = "cam%d_ldccfg_%d";

/// The search for the module that serves a media mode. Only camera 0 has such modules.
inline constexpr ModuleSearch kLdcSearch = {
    .modules = kLdcModule, .key = "common:mediamode", .camera = 0, .count = 2};

extern const TableOf<LdcV1Attr> kLdcV1Table;
extern const TableOf<LdcV3Attr> kLdcV3Table;
extern const TableOf<VcapLDCAttr> kVcapLDCTable;

/// Loads the first model from `module`.
[[nodiscard]] Status PDT_INIPARAM_LoadLDCV1Attr(const char* module, LdcV1Attr* attr);

/// Loads the third model from `module`.
[[nodiscard]] Status PDT_INIPARAM_LoadLDCV3Attr(const char* module, LdcV3Attr* attr);

/// Loads the coefficients of the third model's two calibrations from `module`.
[[nodiscard]] Status PDT_INIPARAM_LoadCamLDCV3MatrixCfg(const char* module, LdcV3Attr* attr);

/// Loads both models of a capture channel, with their switches, from `module`.
[[nodiscard]] Status PDT_INITPARAM_LoadVcapLDCAttr(const char* module, VcapLDCAttr* attr);

/// Loads both models of a capture channel from the first module that serves `mode`. `attr` stays
/// unchanged when there is no such module. A module without a media mode serves that of the module
/// before it; the first one serves `kMediaModeNone` then. Returns -1 when a module names an unknown
/// media mode.
[[nodiscard]] Status PDT_INITPARAM_LoadCorrespondingVcapLDCAttr(MediaMode mode, VcapLDCAttr* attr);

/// Loads both models of a processing group in the same way.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVportSpecLDCCfg(MediaMode mode, VcapLDCAttr* attr);

}  // namespace paramgen
