/// Audio output and its channels.
///
/// Every loader takes the module to read, the output's number or the record's node, and the record
/// to fill; it returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1. No value is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kAoChnCount = 2;

/// Attributes of sound output. 32 bytes.
struct AoAttr {
    std::int32_t sampleRate;
    std::int32_t bitWidth;
    std::int32_t soundMode;
    std::int32_t trackMode;
    std::int32_t workMode;  ///< 6 when the key is absent
    std::uint32_t pointsPerFrame;
    std::int32_t inSampleRate;
    std::int32_t i2cType;
};
static_assert(sizeof(AoAttr) == 32);
static_assert(offsetof(AoAttr, workMode) == 16);
static_assert(offsetof(AoAttr, inSampleRate) == 24);

/// An output channel. 8 bytes.
struct AoChnAttr {
    Bool32 enable;
    std::int32_t handle;
};
static_assert(sizeof(AoChnAttr) == 8);

/// An output. 60 bytes.
struct AoCfg {
    Bool32 enable;
    std::int32_t handle;
    AoAttr attr;
    std::int32_t volume;
    AoChnAttr chn[kAoChnCount];  ///< read even when the output is disabled
};
static_assert(sizeof(AoCfg) == 60);
static_assert(offsetof(AoCfg, attr) == 8);
static_assert(offsetof(AoCfg, volume) == 40);
static_assert(offsetof(AoCfg, chn) == 44);

extern const TableOf<AoAttr> kAoAttrTable;
extern const TableOf<AoChnAttr> kAoChnTable;
extern const TableOf<AoCfg> kAoTable;

/// Loads `attr`, except the points per frame: the output's loader stores those.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAoAttr(const char* module, const char* prefix,
                                                      AoAttr* attr);

/// Loads output `index` with its channels.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAoCfg(const char* module, std::int32_t index,
                                                     AoCfg* cfg);

}  // namespace paramgen
