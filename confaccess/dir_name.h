/// The directory part of a path.
#pragma once

#include <cstddef>

#include "confaccess/status.h"

namespace paramgen {

/// Stores the directory part of `path`, as POSIX dirname gives it, in `directory`, which holds
/// `size` bytes (at least 1). Returns `kBadArgument` when it has more than 254 characters,
/// `kFailed` when it does not fit `directory`; both are logged.
[[nodiscard]] Status CONFACCESS_GetDirName(const char* path, char* directory, std::size_t size);

}  // namespace paramgen
