#include "confaccess/folded_key.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

/// The key's text in lower case, byte by byte.
std::string Lower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c + 32);
        }
    }
    return text;
}

TEST(FoldedKey, FoldsEveryByteAtEveryPlace) {
    for (int byte = 0; byte < 256; ++byte) {
        for (std::size_t before = 0; before < 17; ++before) {
            const std::string text = std::string(before, 'M') + static_cast<char>(byte) + "mZ";
            EXPECT_EQ(FoldedKey(text).Text(), Lower(text)) << byte << " behind " << before;
        }
    }
}

TEST(FoldedKey, GrowsPieceByPiece) {
    const std::string text = "Vcap.Pipe.0.Chn.1:Frame_Rate_Of_The_Sensor";
    for (std::size_t first = 0; first <= text.size(); ++first) {
        FoldedKey key;
        key.Append(text.substr(0, first));
        key.Append(text.substr(first));
        EXPECT_EQ(key.Text(), Lower(text));
        EXPECT_EQ(key.Hash(), FoldedKey(text).Hash()) << first;
    }
}

TEST(FoldedKey, ForgetsWhatIsCut) {
    FoldedKey key("section:");
    for (const char* name : {"a", "a much longer name", "", "bb"}) {
        key.Append(name);
        const FoldedKey fresh(std::string("section:") + name);
        EXPECT_EQ(key.Text(), fresh.Text());
        EXPECT_EQ(key.Hash(), fresh.Hash());
        key.CutTo(8);
    }
    EXPECT_EQ(key.Hash(), FoldedKey("section:").Hash());
}

TEST(FoldedKey, TakesAsMuchAsThereIsRoomFor) {
    FoldedKey key(std::string(FoldedKey::kMax - 1, 'x'));
    key.Append("yz");
    EXPECT_EQ(key.Text(), std::string(FoldedKey::kMax - 1, 'x') + "y");
    key.Append("more");
    EXPECT_EQ(key.Text().size(), FoldedKey::kMax);
}

TEST(FoldedKey, HasTextsInAnyCaseWhereTheyStand) {
    const std::string text = "section.0.of.the.file:number_of_streams";
    const FoldedKey key(text);
    for (std::size_t at = 0; at <= text.size(); ++at) {
        for (std::size_t length = 0; at + length <= text.size(); ++length) {
            // On the heap, without a terminator, so that reading too far is noticed.
            std::vector<char> part(text.begin() + static_cast<std::ptrdiff_t>(at),
                                   text.begin() + static_cast<std::ptrdiff_t>(at + length));
            EXPECT_TRUE(key.HasAt(at, {part.data(), length})) << at << ", " << length;
            for (char& c : part) {
                const char before = c;
                c = static_cast<char>(std::toupper(static_cast<unsigned char>(before)));
                EXPECT_TRUE(key.HasAt(at, {part.data(), length})) << at << ", " << length;
                c = static_cast<char>(before ^ 1);
                EXPECT_FALSE(key.HasAt(at, {part.data(), length})) << at << ", " << length;
                c = static_cast<char>(before ^ '\x80');
                EXPECT_FALSE(key.HasAt(at, {part.data(), length})) << at << ", " << length;
                c = before;
            }
        }
    }
}

TEST(FoldedKey, HashesOfNumberedKeysSpread) {
    // Of 100,000 random numbers of 32 bits, one or two are equal to another; in the low bits that
    // choose a slot of a table of 2^18, some 17% fall together.
    std::set<std::uint32_t> hashes;
    std::set<std::uint32_t> slots;
    for (int number = 0; number < 100'000; ++number) {
        const std::uint32_t hash =
            FoldedKey("sect" + std::to_string(number / 20) + ":key" + std::to_string(number % 20))
                .Hash();
        hashes.insert(hash);
        slots.insert(hash % (1U << 18));
    }
    EXPECT_GT(hashes.size(), 99'900U);
    EXPECT_GT(slots.size(), 80'000U);
}

}  // namespace
}  // namespace paramgen::testing
