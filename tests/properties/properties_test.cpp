// Properties that hold for every product, good or bad, checked on random products.
//
// PARAMGEN_TREES is the number of products, PARAMGEN_SEED the number of the first one.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "golden/independent_image.h"
#include "golden/random_product.h"
#include "properties/hostile.h"
#include "properties/tree.h"
#include "support/program.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using independent::AskedKey;
using independent::Kind;

constexpr std::size_t kImageSize = 29928;
constexpr const char* kImages[] = {"param.bin", "paramdef.bin"};

/// The number in an environment variable; `otherwise` when it is not set. Exits with a message when
/// it holds no number, because the tests would check nothing.
std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    if (text == nullptr) {
        return otherwise;
    }
    char* end = nullptr;
    const std::uint64_t number = std::strtoull(text, &end, 10);
    if (end == text || *end != '\0' || *text == '-') {
        std::fprintf(stderr, "%s is no number: \"%s\"\n", name, text);
        std::exit(2);
    }
    return number;
}

const std::vector<AskedKey>& Keys() {
    static const std::vector<AskedKey> keys = AllKeys();
    return keys;
}

/// The results of a run.
struct Left {
    ProgramRun run;
    std::string output;  ///< with time stamps masked
    std::string image;
};

Left RunIn(const TempDir& directory) {
    Left left = {.run = RunProgram(directory.path()), .output = "", .image = ""};
    left.output = MaskTimes(left.run.output);
    left.image = ReadFile(directory.path() / kImages[0]);
    return left;
}

class Properties : public ::testing::Test {
protected:
    Properties() {
        EXPECT_GT(count_, 0U) << "PARAMGEN_TREES asks for no product";
        std::printf("PARAMGEN_SEED=%llu PARAMGEN_TREES=%llu\n",
                    static_cast<unsigned long long>(first_),
                    static_cast<unsigned long long>(count_));
    }

    /// Tries a part of the products: one in `share`.
    template <typename Try>
    void ForProducts(std::uint64_t share, const Try& tryProduct) const {
        for (std::uint64_t number = first_; number < first_ + (count_ + share - 1) / share;
             ++number) {
            SCOPED_TRACE("again: PARAMGEN_TREES=1 PARAMGEN_SEED=" + std::to_string(number));
            tryProduct(number);
            if (HasFailure()) {
                return;
            }
        }
    }

    std::uint64_t first_ = FromEnvironment("PARAMGEN_SEED", 20240611);
    std::uint64_t count_ = FromEnvironment("PARAMGEN_TREES", 2000);
};

/// The eight digits of a record's code; empty when it has none.
std::string CodeOf(const std::string& record) {
    const std::size_t at = record.rfind("] failed[0x");
    return at == std::string::npos ? "" : record.substr(at + 11, 8);
}

/// Expects that the last records are those of the entry point, with the code that the exit status
/// is made of.
void ExpectChain(const ProgramRun& run) {
    const std::vector<std::string> errors = ErrorsOf(run.output);
    ASSERT_GE(errors.size(), 2U) << run.output;
    const std::string code = CodeOf(errors.back());
    EXPECT_EQ(errors.back(), "main: [load config] failed[0x" + code + "]\n");
    EXPECT_EQ(errors[errors.size() - 2].rfind("PDT_INIPARAM_LoadCfg: [", 0), 0U);
    EXPECT_EQ(CodeOf(errors[errors.size() - 2]), code);
    EXPECT_EQ(run.exitStatus, static_cast<int>(std::stoul(code, nullptr, 16) & 0xFFU));
    EXPECT_TRUE(code == "FFFFFFFF" || code.rfind("A14180", 0) == 0) << code;
}

/// Offsets of words that loaders compute: copies of others, and counts.
std::vector<std::size_t> WorkedOutWords() {
    std::vector<std::size_t> words = {9616, 22876, 22884};  // sample rate, pre-allocations
    for (const std::size_t common : {9664U, 10828U, 11992U}) {
        words.push_back(common + 744);  // encoders
    }
    for (std::size_t mode = 0; mode < 5; ++mode) {
        const std::size_t spec = 13160 + 1864 * mode;
        words.push_back(spec + 216);   // WDR mode
        words.push_back(spec + 1676);  // encoders
    }
    return words;
}

/// Expects zeros in all bytes that no key was read for.
void ExpectUnreadBytesAreZero(const std::string& image, const std::vector<AskedKey>& asked) {
    std::string rest = image;
    rest.replace(0, 8, 8, '\0');      // mark and size
    rest.replace(29920, 4, 4, '\0');  // the mark at the end
    for (const std::size_t stream : {8928U, 9076U}) {
        EXPECT_EQ(rest.substr(stream + 140, 8), std::string("\x55\0\0\0\x4B\0\0\0", 8));
        rest.replace(stream + 140, 8, 8, '\0');
    }
    for (const std::size_t word : WorkedOutWords()) {
        rest.replace(word, 4, 4, '\0');
    }
    for (const AskedKey& key : asked) {
        if (key.at != AskedKey::kNowhere) {
            rest.replace(key.at, key.width, key.width, '\0');
        }
    }
    const std::size_t found = rest.find_first_not_of('\0');
    EXPECT_TRUE(found == std::string::npos) << "byte " << found << " is not zero";
}

TEST_F(Properties, ARunWritesBothImagesOrFailsWithAChainAndTouchesNothing) {
    int good = 0;
    int bad = 0;
    ForProducts(1, [&](std::uint64_t number) {
        const TempDir directory;
        const std::string harm = WriteHostileProduct(directory, Keys(), number);
        SCOPED_TRACE(harm);
        const std::string old(number % 3 * 20000, 'o');
        for (const char* image : kImages) {
            directory.Write(image, old);
        }
        const Left left = RunIn(directory);
        const std::string second = ReadFile(directory.path() / kImages[1]);
        EXPECT_EQ(left.image == second, true);
        if (left.run.exitStatus == 0) {
            ASSERT_EQ(left.image.size(), kImageSize);
            EXPECT_EQ(EchoOf(left.output).back(), "main: parambin update end\n");
            ++good;
        } else {
            ExpectChain(left.run);
            EXPECT_TRUE(left.image == old);
            ++bad;
        }
        const std::optional<std::string> expected = BuildIndependentImage(directory.path());
        EXPECT_EQ(left.run.exitStatus == 0, expected.has_value());
        EXPECT_TRUE(!expected || left.image == *expected);
    });
    std::printf("%d products loaded, %d were refused\n", good, bad);
}

TEST_F(Properties, BytesThatNoKeyIsReadForAreZero) {
    ForProducts(10, [&](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const Left left = RunIn(directory);
        ASSERT_EQ(left.image.size(), kImageSize);
        const auto product = independent::ReadProduct(directory.path());
        ExpectUnreadBytesAreZero(left.image, independent::BuildImage(product.value()).asked);
    });
}

TEST_F(Properties, ASecondRunDoesTheSame) {
    ForProducts(10, [&](std::uint64_t number) {
        const TempDir directory;
        WriteHostileProduct(directory, Keys(), number);
        const Left first = RunIn(directory);
        const Left second = RunIn(directory);
        EXPECT_EQ(second.run.exitStatus, first.run.exitStatus);
        EXPECT_EQ(second.output, first.output);
        EXPECT_TRUE(second.image == first.image);
    });
}

/// Runs a product before and after `change` is applied to the text of every file, and expects the
/// same results.
template <typename Change>
void ExpectNoDifference(std::uint64_t number, const Change& change) {
    const TempDir directory;
    WriteRandomProduct(directory, Keys(), number, Health::kGood);
    const Tree before = ReadTree(directory.path());
    const Left expected = RunIn(directory);
    Random random(number);
    for (const auto& [path, text] : before) {
        directory.Write(path, change(random, text));
    }
    const Left left = RunIn(directory);
    EXPECT_EQ(left.run.exitStatus, 0);
    EXPECT_EQ(left.output, expected.output);
    EXPECT_TRUE(left.image == expected.image);
}

TEST_F(Properties, UnknownKeysSectionsCommentsAndBlankLinesChangeNothing) {
    ForProducts(8, [](std::uint64_t number) { ExpectNoDifference(number, WithUnknownThings); });
}

TEST_F(Properties, TheOrderOfSectionsDoesNotMatter) {
    ForProducts(8, [](std::uint64_t number) { ExpectNoDifference(number, WithSectionsReordered); });
}

/// Whether a key only has a value of its own: it neither counts elements nor selects a media mode.
bool StandsForItself(const independent::Product& product, const AskedKey& key) {
    return key.at != AskedKey::kNowhere && key.kind != Kind::kCount && key.kind != Kind::kMode &&
           product.at(key.module).count(independent::Lower(key.key)) != 0;
}

/// One key of a product, and the offsets at which its value is stored.
struct Chosen {
    AskedKey key;
    std::vector<std::size_t> places;
};

std::optional<Chosen> ChooseKey(Random& random, const std::filesystem::path& directory) {
    const std::optional<independent::Product> product = independent::ReadProduct(directory);
    std::vector<AskedKey> asked;
    for (const AskedKey& key : independent::BuildImage(product.value()).asked) {
        if (product->count(key.module) != 0 && StandsForItself(*product, key)) {
            asked.push_back(key);
        }
    }
    if (asked.empty()) {
        return std::nullopt;
    }
    Chosen chosen = {.key = asked[random.Below(asked.size())], .places = {}};
    for (const AskedKey& key : asked) {
        if (key.module == chosen.key.module && key.key == chosen.key.key) {
            chosen.places.push_back(key.at);
        }
    }
    return chosen;
}

/// Whether the word at `at` equals the chosen key's value in both images.
bool IsCopy(const Chosen& chosen, std::size_t at, const std::string& before,
            const std::string& after) {
    const std::size_t word = at / 4 * 4;
    return chosen.key.width == 4 && before.substr(word, 4) == before.substr(chosen.key.at, 4) &&
           after.substr(word, 4) == after.substr(chosen.key.at, 4);
}

/// Expects that two images differ only in the bytes of the key's value. Returns whether they
/// differ.
bool ExpectOnlyItsBytes(const Chosen& chosen, const std::string& before, const std::string& after) {
    EXPECT_EQ(after.size(), kImageSize);
    for (std::size_t at = 0; at < after.size(); ++at) {
        bool isIts = false;
        for (const std::size_t place : chosen.places) {
            isIts = isIts || (at >= place && at < place + chosen.key.width);
        }
        EXPECT_TRUE(before[at] == after[at] || isIts || IsCopy(chosen, at, before, after))
            << "byte " << at;
    }
    return before != after;
}

TEST_F(Properties, OneKeyChangesOnlyItsBytes) {
    int changed = 0;
    ForProducts(8, [&](std::uint64_t number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        Random random(number);
        const std::optional<Chosen> chosen = ChooseKey(random, directory.path());
        if (!chosen) {
            return;
        }
        SCOPED_TRACE(chosen->key.module + " " + chosen->key.key);
        for (auto& [path, text] : ReadTree(directory.path())) {
            if (std::filesystem::path(path).filename() == chosen->key.module + ".ini") {
                // Drop a last line without a line end: the new line would continue it.
                const std::string ended = text.substr(0, text.find_last_of('\n') + 1);
                directory.Write(path, ended);
                const Left before = RunIn(directory);
                directory.Write(
                    path, WithKey(ended, chosen->key.key, GoodValue(random, chosen->key, {})));
                const Left after = RunIn(directory);
                EXPECT_EQ(after.run.exitStatus, 0);
                changed += ExpectOnlyItsBytes(*chosen, before.image, after.image) ? 1 : 0;
            }
        }
    });
    std::printf("%d keys changed something\n", changed);
    EXPECT_TRUE(changed > 0 || count_ < 100);
}

}  // namespace
}  // namespace paramgen::testing
