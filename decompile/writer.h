/// Writes keys down as the files of a tree.
#pragma once

#include <string>
#include <vector>

#include "decompile/decompile.h"
#include "decompile/solver.h"

namespace paramgen::decompile {

/// A new tree: the entry file, and one file for each module beside it.
std::vector<TreeFile> NewTree(const Solution& solution);

}  // namespace paramgen::decompile
