/// The media mode that a module of the camera belongs to.
#pragma once

#include "confaccess/status.h"
#include "param/common/media_mode.h"

namespace paramgen {

/// Stores in `mode` the media mode under the full key `key` of `module`. `mode` stays unchanged
/// when the key is absent or the query fails; neither is an error. Returns -1 for an unknown media
/// mode, having logged its name; the caller logs its label.
[[nodiscard]] Status ReadModuleMode(const char* module, const char* key, MediaMode* mode);

}  // namespace paramgen
