/// The kinds of value in the image that need a type of their own: the type of a member decides how
/// its key is read.
#pragma once

#include <cstdint>

namespace paramgen {

/// A boolean of the image: a 32-bit word that holds 0 or 1.
enum Bool32 : std::uint32_t { kFalse = 0, kTrue = 1 };

}  // namespace paramgen
