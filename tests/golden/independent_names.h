/// The names of numbers in the image.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace paramgen::testing::independent {

/// A name and its number.
struct NamedNumber {
    std::string name;
    std::int32_t number;
};

const std::vector<NamedNumber>& MediaModes();
const std::vector<NamedNumber>& CscMatrices();

}  // namespace paramgen::testing::independent
