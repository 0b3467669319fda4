/// A second implementation of the parameter image, for tests: one plain function per record, with
/// literal offsets. It shares no code with the program, so a mistake in one of them shows.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "golden/independent_ini.h"
#include "golden/independent_placer.h"

namespace paramgen::testing::independent {

/// An image, and the keys that were read for it.
struct BuiltImage {
    std::string bytes;
    std::vector<AskedKey> asked;
    bool failed;  ///< the program must refuse this product
};

BuiltImage BuildImage(const Product& product);

/// A part of the image.
struct Section {
    std::string name;
    std::size_t at;
    std::size_t size;
};

/// Header, sections, gap and tail, in the order of the image.
const std::vector<Section>& Sections();

}  // namespace paramgen::testing::independent

namespace paramgen::testing {

/// The 29928 bytes of the image of the product in `directory`, to which relative module paths
/// refer. Nothing when the product must be refused.
std::optional<std::string> BuildIndependentImage(const std::filesystem::path& directory);

}  // namespace paramgen::testing
