/// Where the values of a row of keys lie, in one line.
#pragma once

#include <string>

#include "layout/layout.h"

namespace paramgen::manual {

/// "9228"; "11056 + 48 N" when the places follow from the numbers in the key's name; all places of
/// a key that feeds several. Empty when the keys give no value of the image.
std::string OffsetsOf(const layout::Pattern& pattern);

}  // namespace paramgen::manual
