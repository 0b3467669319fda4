/// The media mode that a module of the camera is about.
#pragma once

#include "confaccess/status.h"
#include "param/common/media_mode.h"

namespace paramgen {

/// Stores in `mode` the media mode that `module` names under the full key `key`. `mode` stays as it
/// is when the module does not name one or cannot be asked; neither is a failure. Returns -1 for an
/// unknown media mode, which the caller labels.
[[nodiscard]] Status ReadModuleMode(const char* module, const char* key, MediaMode* mode);

}  // namespace paramgen
