/// Types of values in the image. The type of a member decides how its key is read.
#pragma once

#include <cstdint>

namespace paramgen {

/// A boolean of the image: a 32-bit word that holds 0, 1 or the default of its key.
enum Bool32 : std::uint32_t { kFalse = 0, kTrue = 1 };

}  // namespace paramgen
