#include "confaccess/any_case.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Compares copies on the heap without terminators, so that the sanitizer sees reading too far.
bool Same(const std::string& a, const std::string& b) {
    const std::vector<char> one(a.begin(), a.end());
    const std::vector<char> other(b.begin(), b.end());
    return SameInAnyCase(one.data(), other.data(), one.size());
}

std::uint32_t Hash(const std::string& text) {
    const std::vector<char> copy(text.begin(), text.end());
    return HashInAnyCase({copy.data(), copy.size()});
}

// Each pair of bytes is compared at the first and the last byte of a word, and in between.
TEST(AnyCase, BytesAreEqualWhenTheirLowerCaseIs) {
    for (int byte = 0; byte < 256; ++byte) {
        for (int other = 0; other < 256; ++other) {
            const char a = static_cast<char>(byte);
            const char b = static_cast<char>(other);
            const bool expected = Lower(a) == Lower(b);
            for (const std::size_t before : {0U, 3U, 7U, 8U, 12U}) {
                const std::string head(before, 'M');
                ASSERT_EQ(Same(head + a + "mZ", head + b + "Mz"), expected) << byte << ' ' << other;
                if (expected) {
                    ASSERT_EQ(Hash(head + a + "mZ"), Hash(head + b + "Mz")) << byte << ' ' << other;
                }
            }
        }
    }
}

TEST(AnyCase, EveryCharacterOfEveryLengthCounts) {
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string text(length, 'k');
        EXPECT_TRUE(Same(text, std::string(length, 'K'))) << length;
        EXPECT_EQ(Hash(text), Hash(std::string(length, 'K'))) << length;
        EXPECT_NE(Hash(text), Hash(text + "k")) << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = text;
            other[at] = 'x';
            EXPECT_FALSE(Same(text, other)) << at << " of " << length;
            EXPECT_NE(Hash(text), Hash(other)) << at << " of " << length;
        }
    }
}

TEST(AnyCase, HashesOfNumberedKeysSpread) {
    // Expected of 100,000 random 32-bit hashes: one or two collide; in the low 18 bits, which
    // choose a slot of a table, some 17% do.
    std::set<std::uint32_t> hashes;
    std::set<std::uint32_t> slots;
    for (int number = 0; number < 100'000; ++number) {
        const std::uint32_t hash = HashInAnyCase("sect" + std::to_string(number / 20) + ":key" +
                                                 std::to_string(number % 20));
        hashes.insert(hash);
        slots.insert(hash % (1U << 18));
    }
    EXPECT_GT(hashes.size(), 99'900U);
    EXPECT_GT(slots.size(), 80'000U);
}

TEST(AnyCase, CharactersOtherThanLettersAreNotFolded) {
    for (const char* pair : {"@`", "[{", "\\|", "]}", "^~", "_\x7F", "\xC1\xE1", "0\x10"}) {
        EXPECT_NE(Hash({pair[0]}), Hash({pair[1]})) << pair;
    }
}

TEST(Hash, IsCaseSensitive) {
    std::set<std::uint32_t> hashes;
    for (unsigned number = 0; number < 1024; ++number) {
        std::string text = "abcdefghij";
        for (unsigned bit = 0; bit < 10; ++bit) {
            text[bit] = static_cast<char>(text[bit] - ((number >> bit & 1U) != 0 ? 32 : 0));
        }
        hashes.insert(HashOf(text));
        EXPECT_EQ(HashOf(text), HashOf(std::string(text)));
    }
    EXPECT_GT(hashes.size(), 1020U);
}

}  // namespace
}  // namespace paramgen::testing
