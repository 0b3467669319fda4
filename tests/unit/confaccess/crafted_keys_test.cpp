// Keys that are crafted to collide take no more probes than others.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/confaccess/dictionary_fixture.h"

namespace paramgen::testing {
namespace {

/// Keys that an attacker might craft to have colliding hashes.
struct CraftedKeys {
    std::string what;
    std::string
        zero;  ///< a key has this piece for each 0 of its number in binary, `one` for each 1
    std::string one;
};

class CraftedKeysTest : public DictionaryTest, public ::testing::WithParamInterface<CraftedKeys> {};

TEST_P(CraftedKeysTest, TakeNoMoreProbesThanOthers) {
    constexpr unsigned kBits = 16;
    std::vector<std::string> names;
    for (unsigned number = 0; number < 1U << kBits; ++number) {
        std::string name;
        for (unsigned bit = 0; bit < kBits; ++bit) {
            name += (number >> bit & 1U) != 0 ? GetParam().one : GetParam().zero;
        }
        names.push_back(name);
    }
    // 2^16 keys in 2^17 slots: with random hashes a look-up probes 1.5 slots on average.
    EXPECT_LT(ProbesForAll(names), 1.5 * 1.05 * (1U << kBits));
}

INSTANTIATE_TEST_SUITE_P(
    Dictionary, CraftedKeysTest,
    ::testing::Values(
        CraftedKeys{.what = "Numbered", .zero = "0", .one = "1"},
        CraftedKeys{.what = "BesideTheLetters", .zero = "@", .one = "`"},
        CraftedKeys{.what = "BehindTheLetters", .zero = "^", .one = "~"},
        // Multiplied by an odd factor, two words that differ in the top bit alone still do, and a
        // difference in the next word could cancel this one. A colon precedes the first piece, so
        // words end with the seventh and the fifteenth character of a piece.
        CraftedKeys{.what = "TopBits", .zero = "sixteen.letters.", .one = "sixtee\xEE.letter\xF3."},
        CraftedKeys{.what = "TopBitsAndHalves",
                    .zero = "sixteen.letters.",
                    .one = "sixtee\xEE.le\xF4ter\xF3."}),
    [](const auto& test) { return test.param.what; });

}  // namespace
}  // namespace paramgen::testing
