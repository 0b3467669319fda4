/// A small product to begin with: every key that it reads is there, with what it means.
#pragma once

#include <string>
#include <vector>

namespace paramgen::starter {

/// A file of the product.
struct StarterFile {
    std::string path;  ///< from the tree's directory
    std::string bytes;
};

/// The files of a complete product: the modules that every product needs and one media mode, with
/// one encoder; keys that are read stand there at their default, the others as comments.
std::vector<StarterFile> StarterProduct();

}  // namespace paramgen::starter
