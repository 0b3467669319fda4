/// From an image back to a tree that compiles to it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "image/bytes.h"

namespace paramgen::decompile {

/// Bytes of an image that the tree does not make.
struct Lost {
    std::uint32_t offset;
    std::uint32_t size;
    std::string member;  ///< the value that owns them
    std::string reason;  ///< why no tree can make them, as far as that is known
};

/// A file of a tree.
struct TreeFile {
    std::string path;  ///< from the tree's directory
    std::string bytes;
};

struct Options {
    bool all = false;                 ///< every key that is read, at its default too
    std::optional<std::string> like;  ///< the tree whose files are changed as little as can be
};

/// The result of decompiling.
struct Decompiled {
    std::vector<TreeFile> files;  ///< the entry file first
    std::vector<Lost> lost;       ///< empty: the tree makes just this image
    image::Image image;           ///< what the tree compiles to
};

/// Finds a tree for `image`. Throws `output::UserError` when the tree that it should be like cannot
/// be read or has files outside of its directory, `image::RefusedTree` when the program refuses it.
Decompiled Decompile(const image::Image& image, const Options& options);

}  // namespace paramgen::decompile
