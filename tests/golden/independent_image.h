/// A second builder of the parameter image, for the tests alone: one plain function per record,
/// each value put at an offset that is spelled out. It shares nothing with the program, so that the
/// two agree only when both are right.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "golden/independent_ini.h"
#include "golden/independent_placer.h"

namespace paramgen::testing::independent {

/// An image, and the keys that were asked for to make it.
struct BuiltImage {
    std::string bytes;
    std::vector<AskedKey> asked;
    bool failed;  ///< the program must refuse this product
};

BuiltImage BuildImage(const Product& product);

/// A stretch of the image.
struct Section {
    std::string name;
    std::size_t at;
    std::size_t size;
};

/// Header, sections, gap and tail, in the order of the image.
const std::vector<Section>& Sections();

}  // namespace paramgen::testing::independent

namespace paramgen::testing {

/// The 29928 bytes of the image of the product in `directory`, where relative module paths start.
/// Nothing when the product must be refused.
std::optional<std::string> BuildIndependentImage(const std::filesystem::path& directory);

}  // namespace paramgen::testing
