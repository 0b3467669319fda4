/// Products made up at random: which keys they have, what stands behind them, and how their files
/// are written. A number always gives the same product.
#pragma once

#include <cstdint>
#include <vector>

#include "golden/independent_placer.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Every key that the independent builder asks for when all modules are there and all counts are as
/// high as they may be, and neighbours of those keys: they have no place in the image.
std::vector<independent::AskedKey> AllKeys();

/// Whether one of the values is such that the program must stop if it reads it.
enum class Health { kGood, kOneBadValue };

/// Writes product `number` with keys out of `keys` to `directory`.
void WriteRandomProduct(const TempDir& directory, const std::vector<independent::AskedKey>& keys,
                        std::uint64_t number, Health health);

}  // namespace paramgen::testing
