/// Helpers of the tests of decompiling.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "compile/session.h"
#include "decompile/decompile.h"
#include "decompile/tree_directory.h"
#include "support/product_tree.h"
#include "support/temp_dir.h"

namespace paramgen::decompile {

using paramgen::testing::ProductTree;
using paramgen::testing::SmallestProduct;
using paramgen::testing::TempDir;

/// The image of a product.
inline image::Image Compiled(const ProductTree& tree) {
    const TempDir directory;
    tree.WriteTo(directory);
    const compile::Compilation result = compile::Compile(directory.path());
    EXPECT_EQ(result.status, kOk);
    return result.image;
}

/// Stores a number.
inline void Put(image::Image* image, std::uint32_t offset, std::uint32_t number) {
    std::memcpy(&(*image)[offset], &number, sizeof number);
}

/// The file of a module; empty when it has none.
inline std::string FileOf(const Decompiled& result, const std::string& module) {
    for (const TreeFile& file : result.files) {
        if (file.path == module + ".ini") {
            return file.bytes;
        }
    }
    return "";
}

inline bool HasModule(const Decompiled& result, const std::string& module) {
    return result.files.front().bytes.find("\n[" + module + "]\n") != std::string::npos;
}

inline bool HasFile(const Decompiled& result, const std::string& path) {
    return std::any_of(result.files.begin(), result.files.end(),
                       [&](const TreeFile& file) { return file.path == path; });
}

/// Decompiles `image`, and expects that the resulting tree gives the same image.
inline Decompiled Back(const image::Image& image, const Options& options = {}) {
    Decompiled result = Decompile(image, options);
    EXPECT_THAT(result.lost, ::testing::IsEmpty());
    const TempDir home;
    const WrittenTree tree(result.files, (home.path() / "t").string(), Old::kNone);
    EXPECT_EQ(tree.image(), image);
    return result;
}

/// Where bytes are listed as lost.
inline std::vector<std::uint32_t> LostOffsets(const image::Image& image) {
    std::vector<std::uint32_t> offsets;
    for (const Lost& lost : Decompile(image, {}).lost) {
        offsets.push_back(lost.offset);
    }
    return offsets;
}

}  // namespace paramgen::decompile
