/// Products as nobody would write them: broken files, files of other kinds, limits and beyond.
#pragma once

#include <string>

#include "golden/independent_placer.h"
#include "golden/random_values.h"
#include "properties/tree.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Writes a small product out of a few of `keys` to `directory`, and does it harm at random.
/// Returns what was done, for people.
std::string WriteHostileProduct(const TempDir& directory,
                                const std::vector<independent::AskedKey>& keys,
                                std::uint64_t number);

}  // namespace paramgen::testing
