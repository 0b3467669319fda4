// Images of random products are decompiled, and compiled again by the real program.
//
// PARAMGEN_TREES is the number of products, PARAMGEN_SEED the number of the first one.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "compile/session.h"
#include "decompile/decompile.h"
#include "decompile/tree_directory.h"
#include "golden/random_product.h"
#include "layout/layout.h"
#include "properties/hostile.h"
#include "support/program.h"
#include "support/temp_dir.h"

namespace paramgen::decompile {
namespace {

using paramgen::testing::AllKeys;
using paramgen::testing::Health;
using paramgen::testing::ReadFile;
using paramgen::testing::TempDir;

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

const std::vector<paramgen::testing::independent::AskedKey>& Keys() {
    static const auto keys = AllKeys();
    return keys;
}

std::string Bytes(const image::Image& image) {
    return {reinterpret_cast<const char*>(image.data()), image.size()};
}

class RoundTrip : public ::testing::Test {
protected:
    /// Tries `count_` products, divided by `share`.
    template <typename Try>
    void ForNumbers(std::uint64_t share, const Try& tryNumber) const {
        const std::uint64_t first = FromEnvironment("PARAMGEN_SEED", 20240611);
        const std::uint64_t count = FromEnvironment("PARAMGEN_TREES", 300);
        for (std::uint64_t number = first; number < first + (count + share - 1) / share; ++number) {
            SCOPED_TRACE("again: PARAMGEN_TREES=1 PARAMGEN_SEED=" + std::to_string(number));
            tryNumber(number);
            if (HasFailure()) {
                return;
            }
        }
    }
};

/// Decompiles an image, and expects that the program makes it again from the resulting tree.
void ExpectBack(const image::Image& image, const Options& options) {
    const Decompiled result = Decompile(image, options);
    for (const Lost& lost : result.lost) {
        ADD_FAILURE() << lost.offset << " " << lost.member << ": " << lost.reason;
    }
    const TempDir home;
    const std::string directory = (home.path() / "tree").string();
    WrittenTree tree(result.files, directory, Old::kNone);
    ASSERT_TRUE(tree.image().has_value());
    tree.Appear();
    for (std::size_t at = 0; at < image.size(); ++at) {
        ASSERT_EQ((*tree.image())[at], image[at])
            << at << " " << layout::ValueAt(static_cast<std::uint32_t>(at))->member;
    }
    EXPECT_EQ(paramgen::testing::RunProgram(directory).exitStatus, 0);
    EXPECT_TRUE(ReadFile(std::filesystem::path(directory) / "param.bin") == Bytes(image));
}

TEST_F(RoundTrip, AProductComesBackFromItsImage) {
    ForNumbers(1, [](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const compile::Compilation compiled =
            compile::Compile(directory.path(), {.answers = false, .log = false});
        ASSERT_EQ(compiled.status, kOk);
        ExpectBack(compiled.image, {.all = number % 2 == 1, .like = std::nullopt});
    });
}

TEST_F(RoundTrip, AProductAsNobodyWouldWriteItComesBackFromItsImage) {
    int count = 0;
    ForNumbers(1, [&](std::uint64_t number) {
        const TempDir directory;
        WriteHostileProduct(directory, Keys(), number);
        const compile::Compilation compiled =
            compile::Compile(directory.path(), {.answers = false, .log = false});
        if (compiled.status == kOk) {
            ++count;
            ExpectBack(compiled.image, {.all = number % 2 == 0, .like = std::nullopt});
        }
    });
    std::printf("%d products came back\n", count);
}

/// Number of files of the tree that differ from those in `directory`. An entry file with absolute
/// paths must differ.
std::size_t ChangedFiles(const std::filesystem::path& directory, const Decompiled& result) {
    std::size_t changed = 0;
    for (const TreeFile& file : result.files) {
        const std::string before = ReadFile(directory / file.path);
        if (before != file.bytes && before.find(directory.string()) == std::string::npos) {
            ++changed;
        }
    }
    return changed;
}

TEST_F(RoundTrip, ATreeThatIsLikeItsOwnIsTheSame) {
    ForNumbers(4, [](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const compile::Compilation compiled = compile::Compile(directory.path());
        ASSERT_EQ(compiled.status, kOk);
        const Decompiled result =
            Decompile(compiled.image, {.all = false, .like = directory.path().string()});
        EXPECT_TRUE(result.lost.empty());
        EXPECT_EQ(ChangedFiles(directory.path(), result), 0U);
    });
}

TEST_F(RoundTrip, ATreeThatIsLikeAnotherMakesTheImage) {
    ForNumbers(50, [](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const TempDir other;
        WriteRandomProduct(other, Keys(), number + 1000000, Health::kGood);
        const compile::Compilation compiled = compile::Compile(directory.path());
        ASSERT_EQ(compiled.status, kOk);
        ExpectBack(compiled.image, {.all = false, .like = other.path().string()});
    });
}

/// Bytes that no tree can give are listed one by one; all others must be the same again.
TEST_F(RoundTrip, WhatCannotComeBackIsToldExactly) {
    ForNumbers(30, [](std::uint64_t number) {
        std::mt19937_64 random(number);
        image::Image image = {};
        for (std::byte& byte : image) {
            byte = static_cast<std::byte>(random());
        }
        const Decompiled result = Decompile(image, {.all = number % 2 == 0, .like = std::nullopt});
        const TempDir home;
        const WrittenTree tree(result.files, (home.path() / "tree").string(), Old::kNone);
        ASSERT_TRUE(tree.image().has_value());
        std::size_t differences = 0;
        for (std::size_t at = 0; at < image.size(); ++at) {
            differences += (*tree.image())[at] == image[at] ? 0 : 1;
        }
        EXPECT_GT(differences, 0U);
        std::size_t told = 0;
        for (const Lost& lost : result.lost) {
            told += lost.size;
        }
        EXPECT_GE(told, differences);
    });
}

}  // namespace
}  // namespace paramgen::decompile
