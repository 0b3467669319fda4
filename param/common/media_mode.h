/// Media modes: a capture resolution and frame rate, for video, photo and playback. INI files hold
/// their names, the image their numbers.
#pragma once

#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field_traits.h"
#include "param/common/names.h"

namespace paramgen {

/// A media mode number, 0 to 53; the numbers are part of the image's format.
enum MediaMode : std::int32_t {
    kMediaModeNone = 54,  ///< no media mode; never stored in an image
};

/// The names of all media modes.
extern const NameTable kMediaModeNames;

/// Stores the number of the media mode called `name`, and echoes both. The comparison is
/// case-sensitive. For an unknown name, and for null, logs an error, stores nothing and returns -1.
[[nodiscard]] Status PARAM_INIPARAM_GetMediaModeEnum(const char* name, MediaMode* mode);

/// A media mode member is read by name.
template <>
struct FieldTraits<MediaMode> {
    static constexpr FieldKind kKind = FieldKind::kName;
    static constexpr NameLookup Lookup = LookUpNumber<MediaMode, PARAM_INIPARAM_GetMediaModeEnum>;
    static constexpr const NameTable* kNames = &kMediaModeNames;
};

}  // namespace paramgen
