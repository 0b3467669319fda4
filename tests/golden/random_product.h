/// Random products: their keys, their values, and the style of their files are random. The same
/// number always gives the same product.
#pragma once

#include <cstdint>
#include <vector>

#include "golden/independent_placer.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Every key that the independent builder reads when all modules exist and all counts have their
/// largest value; and neighbours of these keys, which are not stored in the image.
std::vector<independent::AskedKey> AllKeys();

/// Whether the product has a value that must stop the program when it is read.
enum class Health { kGood, kOneBadValue };

/// Writes product `number` with keys out of `keys` to `directory`.
void WriteRandomProduct(const TempDir& directory, const std::vector<independent::AskedKey>& keys,
                        std::uint64_t number, Health health);

}  // namespace paramgen::testing
