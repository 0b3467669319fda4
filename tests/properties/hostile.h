/// Hostile products: damaged files, special files, and values at their limits and beyond.
#pragma once

#include <string>

#include "golden/independent_placer.h"
#include "golden/random_values.h"
#include "properties/tree.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Writes a small product with a few of `keys` to `directory`, and damages it at random. Returns a
/// description of the damage.
std::string WriteHostileProduct(const TempDir& directory,
                                const std::vector<independent::AskedKey>& keys,
                                std::uint64_t number);

}  // namespace paramgen::testing
