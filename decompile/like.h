/// Decompiles to a tree that is like another one.
#pragma once

#include "decompile/decompile.h"

namespace paramgen::decompile {

/// As `Decompile`, with the files of the tree `options.like` changed as little as can be.
Decompiled DecompileLike(const image::Image& image, const Options& options);

}  // namespace paramgen::decompile
