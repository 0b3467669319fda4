/// What a run has read that made an image.
#pragma once

#include "compile/compilation.h"
#include "image/bytes.h"

namespace paramgen::paramtool {

/// The keys that are read in a run that makes this image, with the text that a tree has for each.
/// The result has nothing but answers. A lens value's module is "cam0_ldccfg_*".
compile::Compilation ReadBack(const image::Image& image);

}  // namespace paramgen::paramtool
