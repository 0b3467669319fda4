/// A decompiled tree on its way to its directory.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "decompile/decompile.h"

namespace paramgen::decompile {

/// What becomes of files that are in the directory already.
enum class Old {
    kNone,              ///< there must be none
    kNoneUnlessForced,  ///< the same, and the user is told of --force
    kReplaced,
};

/// A tree that has been written down, beside the directory that it is meant for, and compiled.
/// Where nothing can be made beside that, it is written within.
class WrittenTree {
public:
    /// Writes `files`. `directory` need not be there. Throws `output::UserError` when it is no
    /// directory, when it is not empty and nothing is to be replaced, and when writing fails.
    WrittenTree(const std::vector<TreeFile>& files, const std::string& directory, Old old);
    ~WrittenTree();
    WrittenTree(const WrittenTree&) = delete;
    WrittenTree& operator=(const WrittenTree&) = delete;

    /// What the program makes of it; no image when it refuses it.
    const std::optional<image::Image>& image() const { return image_; }

    /// Lets it appear in its directory: all files, or none. A directory that is there stays the
    /// same one, with its owner and rights.
    void Appear();

private:
    const std::vector<TreeFile>& files_;
    std::filesystem::path given_;      ///< the directory as it was given
    std::filesystem::path directory_;  ///< absolute: the tree is compiled in its own directory
    std::filesystem::path temporary_;
    std::optional<image::Image> image_;
};

}  // namespace paramgen::decompile
