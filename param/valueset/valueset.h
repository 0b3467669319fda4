/// Value set section: the choices that the device offers for each of its settings.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1. Choices beyond a set's record are
/// stored in the sets behind it, which overwrite them when they are loaded later.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/valueset/value_items.h"

namespace paramgen {

/// How many cameras have value sets.
inline constexpr std::size_t kValueSetCamCount = 1;

/// Bursts of one camera: the media modes for bursts, and the burst types of each. 1804 bytes.
struct BurstValueSets {
    MediaModeSet mediaMode;
    NumberSet types[kValueCount];
};
static_assert(sizeof(BurstValueSets) == 1804);

/// The section: 34 sets of 164 bytes, in slots 0 to 33. 5576 bytes.
struct ValueSetCfg {
    NumberSet payloadType[kValueSetCamCount];
    NumberSet dormant;
    NumberSet brightness;
    MediaModeSet recordMediaMode[kValueSetCamCount];
    MediaModeSet photoMediaMode[kValueSetCamCount];
    NumberSet volume;
    NumberSet driveSensitivity;
    NumberSet parkingSensitivity;
    NumberSet usbMode;
    NumberSet language;
    NumberSet wdr[kValueSetCamCount];
    NumberSet videoMode[kValueSetCamCount];
    NumberSet ldc[kValueSetCamCount];
    NumberSet flip[kValueSetCamCount];
    NumberSet mirror[kValueSetCamCount];
    NumberSet antiflicker[kValueSetCamCount];
    NumberSet splitTime;
    NumberSet lapseInterval;
    NumberSet recordType;
    std::byte unused[164];
    NumberSet photoType;
    NumberSet singlePhotoFormat[kValueSetCamCount];
    NumberSet lapsePhotoInterval[kValueSetCamCount];
    BurstValueSets burst[kValueSetCamCount];
};
static_assert(sizeof(ValueSetCfg) == 5576);
static_assert(offsetof(ValueSetCfg, recordMediaMode) == 164 * 3);
static_assert(offsetof(ValueSetCfg, wdr) == 164 * 10);
static_assert(offsetof(ValueSetCfg, splitTime) == 164 * 16);
static_assert(offsetof(ValueSetCfg, unused) == 164 * 19);
static_assert(offsetof(ValueSetCfg, photoType) == 164 * 20);
static_assert(offsetof(ValueSetCfg, burst) == 164 * 23);
static_assert(offsetof(ValueSetCfg, burst[0].types) == 164 * 24);

extern const TableOf<BurstValueSets> kBurstValueSetsTable;
extern const ModuleTableOf<ValueSetCfg> kValueSetTable;

/// Loads the sets of each camera, except those for photos.
[[nodiscard]] Status PDT_INIPARAM_LoadCamValueSetCfg(const char* module, ValueSetCfg* section);

/// Loads a set of times, and converts them from seconds to milliseconds modulo 2^32.
[[nodiscard]] Status PDT_INIPARAM_LoadDormantValueSetCfg(const char* module, const char* item,
                                                         ValueSetView set);

/// Loads the photo sets of each camera. More media modes for bursts than there are sets of burst
/// types are an error: -1.
[[nodiscard]] Status PDT_INIPARAM_LoadPhotoCfgValueSet(const char* module, ValueSetCfg* section);

/// Loads the whole section. Returns -1 when `section` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadValueSetCfg(ValueSetCfg* section);

}  // namespace paramgen
