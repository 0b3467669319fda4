/// Audio encoder.
///
/// Every loader takes the module to read, the encoder's number and the record to fill; it returns
/// 0, or the code of the first step that failed, having logged it. What was loaded before a failure
/// stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

/// The audio formats whose attributes can be loaded.
inline constexpr std::uint32_t kAencFormatAac = 0;
inline constexpr std::uint32_t kAencFormatMp3 = 3;

/// AAC. 28 bytes.
struct AencAacAttr {
    std::int32_t aacType;
    std::int32_t bitRate;
    std::int32_t sampleRate;
    std::int32_t bitWidth;
    std::int32_t soundMode;
    std::int32_t transportType;
    std::int16_t bandWidth;  ///< a value that does not fit into 16 bits is an error
    std::byte reserved[2];
};
static_assert(sizeof(AencAacAttr) == 28);
static_assert(offsetof(AencAacAttr, bandWidth) == 24);
static_assert(offsetof(AencAacAttr, reserved) == 26);

/// MP3. 20 bytes.
struct AencMp3Attr {
    std::int32_t sampleRate;
    std::int32_t bitWidth;
    std::int32_t soundMode;
    std::int32_t bitRate;
    std::uint32_t quality;
};
static_assert(sizeof(AencMp3Attr) == 20);

/// An encoder. 52 bytes.
struct AencCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t acapHandle;
    std::int32_t acapChnHandle;
    std::uint32_t format;
    std::uint32_t pointsPerFrame;
    union {
        AencAacAttr aac;
        AencMp3Attr mp3;
    };  ///< `format` tells which of them is used
};
static_assert(sizeof(AencCfg) == 52);
static_assert(offsetof(AencCfg, aac) == 24);
static_assert(offsetof(AencCfg, mp3) == 24);

extern const TableOf<AencAacAttr> kAencAacTable;
extern const TableOf<AencMp3Attr> kAencMp3Table;
extern const TableOf<AencCfg> kAencTable;

/// Loads the AAC attributes of encoder `index`. Returns -1 when the band width is out of range.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAencAacCfg(const char* module, std::int32_t index,
                                                          AencAacAttr* attr);

/// Loads the MP3 attributes of encoder `index`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAencMp3Cfg(const char* module, std::int32_t index,
                                                          AencMp3Attr* attr);

/// Loads encoder `index` with the attributes of its format. Returns -1 for any other format.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommAencCfg(const char* module, std::int32_t index,
                                                       AencCfg* cfg);

}  // namespace paramgen
