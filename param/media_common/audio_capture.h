/// Audio capture device and its channels.
///
/// Every loader takes the module to read, the device's number or the record's node, and the record
/// to fill; it returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1. No value is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kAcapChnCount = 2;

/// Attributes of sound capture. 36 bytes.
struct AcapAttr {
    std::int32_t sampleRate;
    std::int32_t bitWidth;
    std::int32_t soundMode;
    std::int32_t trackMode;
    std::int32_t workMode;
    std::uint32_t pointsPerFrame;
    std::int32_t mixerMicMode;
    std::int32_t resampleRate;
    std::uint32_t fixed0;
};
static_assert(sizeof(AcapAttr) == 36);
static_assert(offsetof(AcapAttr, pointsPerFrame) == 20);
static_assert(offsetof(AcapAttr, fixed0) == 32);

/// A capture channel. 12 bytes.
struct AcapChnAttr {
    Bool32 enable;
    std::int32_t handle;
    Bool32 enableVqe;
};
static_assert(sizeof(AcapChnAttr) == 12);

/// A capture device. 72 bytes.
struct AcapCfg {
    Bool32 enable;
    std::int32_t handle;
    AcapAttr attr;
    std::int32_t audioGain;
    AcapChnAttr chn[kAcapChnCount];  ///< read even when the device is disabled
};
static_assert(sizeof(AcapCfg) == 72);
static_assert(offsetof(AcapCfg, attr) == 8);
static_assert(offsetof(AcapCfg, audioGain) == 44);
static_assert(offsetof(AcapCfg, chn) == 48);

extern const TableOf<AcapAttr> kAcapAttrTable;
extern const TableOf<AcapChnAttr> kAcapChnTable;
extern const TableOf<AcapCfg> kAcapTable;

/// Loads `attr`, except the points per frame and the word after the resample rate: the device's
/// loader stores those.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAcapAttr(const char* module, const char* prefix,
                                                        AcapAttr* attr);

/// Loads the channel at the node `prefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAcapChnAttr(const char* module, const char* prefix,
                                                           AcapChnAttr* attr);

/// Loads capture device `index` with its channels.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAcapCfg(const char* module, std::int32_t index,
                                                       AcapCfg* cfg);

}  // namespace paramgen
