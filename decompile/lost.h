/// Says of bytes why no tree makes them.
#pragma once

#include <vector>

#include "decompile/decompile.h"

namespace paramgen::decompile {

/// Gathers lost bytes by the values that own them. `offsets` ascend.
std::vector<Lost> Explain(const image::Image& image, const std::vector<std::uint32_t>& offsets);

}  // namespace paramgen::decompile
