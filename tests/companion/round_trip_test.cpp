// Images of random products are decompiled, and compiled again by the real program.
//
// PARAMGEN_TREES is the number of products, PARAMGEN_SEED the number of the first one.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "compile/session.h"
#include "decompile/decompile.h"
#include "decompile/tree_directory.h"
#include "golden/random_product.h"
#include "image/key_text.h"
#include "layout/layout.h"
#include "properties/hostile.h"
#include "support/program.h"
#include "support/temp_dir.h"
#include "tree/spelling.h"

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
            << at << " " << layout::ValueAt(static_cast<std::uint32_t>(at))->Member();
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

/// Another text for the value of a key.
std::string OtherText(const layout::Value& value, const std::string& text) {
    if (const NameTable* names = layout::NamesOf(value)) {
        const std::vector<std::string> all = layout::AllNames(*names);
        return all.front() == text ? all.back() : all.front();
    }
    return text == "1" ? "0" : "1";
}

/// Whether two runs asked for the same keys.
bool AskedForTheSame(const compile::Compilation& a, const compile::Compilation& b) {
    return std::equal(a.answers.begin(), a.answers.end(), b.answers.begin(), b.answers.end(),
                      [](const compile::Answer& one, const compile::Answer& other) {
                          return one.module == other.module && one.key == other.key;
                      });
}

/// A product's image after another value was given to a key that the tree has, which decides about
/// no other key.
std::optional<image::Image> WithOneKeyChanged(const std::filesystem::path& directory,
                                              std::uint64_t number) {
    compile::Session session(directory);
    const compile::Compilation before = session.Run();
    std::mt19937_64 random(number);
    for (int i = 0; i < 100; ++i) {
        const compile::Answer& answer = before.answers[random() % before.answers.size()];
        if (!answer.place || !answer.text) {
            continue;
        }
        const layout::Value& value = *layout::ValueAt(answer.place->offset);
        compile::Pretence pretence;
        pretence.texts[{answer.module, answer.key}] = OtherText(value, *answer.text);
        const compile::Compilation after = session.Run(pretence);
        if (after.status == kOk && AskedForTheSame(before, after) && before.image != after.image) {
            return after.image;
        }
    }
    return std::nullopt;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Number of lines in which the files differ from those in `directory`, but for the entry file; a
/// line that is there on one side only counts, too.
std::size_t ChangedLines(const std::filesystem::path& directory, const Decompiled& result) {
    std::size_t changed = 0;
    for (const TreeFile& file : result.files) {
        if (file.path == "config_cfgaccess_entry.ini") {
            continue;
        }
        const std::vector<std::string> before = LinesOf(ReadFile(directory / file.path));
        const std::vector<std::string> after = LinesOf(file.bytes);
        changed += before.size() > after.size() ? before.size() - after.size()
                                                : after.size() - before.size();
        for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            changed += before[i] == after[i] ? 0 : 1;
        }
    }
    return changed;
}

TEST_F(RoundTrip, AfterOneChangedValueExactlyOneLineIsAnother) {
    int count = 0;
    ForNumbers(20, [&](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const std::optional<image::Image> image = WithOneKeyChanged(directory.path(), number);
        if (!image) {
            return;
        }
        ++count;
        const Decompiled result =
            Decompile(*image, {.all = false, .like = directory.path().string()});
        EXPECT_TRUE(result.lost.empty());
        EXPECT_EQ(ChangedLines(directory.path(), result), 1U);
    });
    std::printf("%d trees with one changed value\n", count);
    EXPECT_GT(count, 0);
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

/// Number of bytes in which two images differ.
std::size_t CountDifferent(const image::Image& a, const image::Image& b) {
    std::size_t different = 0;
    for (std::size_t at = 0; at < a.size(); ++at) {
        different += a[at] == b[at] ? 0 : 1;
    }
    return different;
}

/// A product's image with some bytes changed at random.
image::Image Disturbed(image::Image image, std::mt19937_64* random) {
    for (int i = 0; i < 12; ++i) {
        const std::size_t at = (*random)() % image.size();
        const std::size_t size = std::min<std::size_t>(1 + (*random)() % 4, image.size() - at);
        for (std::size_t j = 0; j < size; ++j) {
            image[at + j] = static_cast<std::byte>((*random)());
        }
    }
    return image;
}

/// Whether `image` has more of the wanted values than `found`, and all that this has.
bool IsBetter(const image::Image& image, const image::Image& found, const image::Image& wanted) {
    bool hasMore = false;
    for (const layout::Value& value : layout::Values()) {
        const auto isRight = [&](const image::Image& each) {
            return std::ranges::equal(image::BytesOf(each, value), image::BytesOf(wanted, value));
        };
        if (isRight(found) && !isRight(image)) {
            return false;
        }
        hasMore = hasMore || (isRight(image) && !isRight(found));
    }
    return hasMore;
}

/// Expects that no value of the key of a lost value makes bytes right and no others wrong.
void ExpectNothingBetter(const image::Image& wanted, const Decompiled& result,
                         const std::string& directory) {
    compile::Session session(directory);
    const image::Image found = session.Run().image;
    for (const Lost& lost : result.lost) {
        const layout::Value& value = *layout::ValueAt(lost.offset);
        const std::optional<std::string> text =
            value.HasKey() ? image::KeyText(value, image::BytesOf(wanted, value)) : std::nullopt;
        for (const std::string& candidate : {text.value_or("0"), std::string("1"), std::string()}) {
            if (!tree::Spelled(candidate)) {
                continue;  // no line can say it
            }
            compile::Pretence pretence;
            for (const auto& module : value.modules) {
                const std::string key = std::string(value.section) + ":" + std::string(value.key);
                pretence.texts[{std::string(module), key}] = candidate;
            }
            const compile::Compilation other = session.Run(pretence);
            EXPECT_FALSE(other.status == kOk && IsBetter(other.image, found, wanted))
                << lost.offset << " " << lost.member << " = '" << candidate << "'";
        }
    }
}

TEST_F(RoundTrip, WhatIsToldToBeLostCannotBe) {
    std::size_t lost = 0;
    ForNumbers(50, [&](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        std::mt19937_64 random(number);
        const image::Image wanted = Disturbed(
            compile::Compile(directory.path(), {.answers = false, .log = false}).image, &random);
        const Decompiled result = Decompile(wanted, {.all = false, .like = std::nullopt});
        lost += result.lost.size();
        const TempDir home;
        WrittenTree tree(result.files, (home.path() / "tree").string(), Old::kNone);
        tree.Appear();
        ASSERT_TRUE(tree.image().has_value());
        EXPECT_EQ(CountDifferent(wanted, *tree.image()), CountDifferent(wanted, result.image));
        ExpectNothingBetter(wanted, result, (home.path() / "tree").string());
    });
    std::printf("%zu values were lost\n", lost);
}

}  // namespace
}  // namespace paramgen::decompile
