/// An IMAGE|TREE argument.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "compile/compilation.h"

namespace paramgen::image {

/// What an argument stands for.
struct Input {
    std::string argument;  ///< as it was given
    bool isTree = false;
    compile::Image image = {};

    /// Of a tree: how it was compiled. Its status is 0.
    std::optional<compile::Compilation> compilation;

    /// What the user should know: "is longer than an image; the rest is ignored".
    std::vector<std::string> remarks;
};

/// A tree that the program refuses.
class RefusedTree : public std::runtime_error {
public:
    RefusedTree(std::string tree, const compile::Compilation& compilation);

    const std::string& tree() const { return tree_; }

private:
    std::string tree_;
};

/// Reads an argument: a directory is a tree and is compiled; "-" is standard input; anything else
/// is the file of an image, or a longer one that begins with an image's header. Throws
/// `output::UserError` when it cannot be read or is no image, and when a directory has no entry
/// file; `RefusedTree` when the program would refuse the tree.
Input ReadInput(const std::string& argument);

/// Reads the image in `bytes`, which came from `argument`, as above.
Input TakeImage(const std::string& argument, const std::string& bytes);

}  // namespace paramgen::image
