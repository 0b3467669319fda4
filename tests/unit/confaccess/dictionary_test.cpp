#include "confaccess/dictionary.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <string>

namespace paramgen::testing {
namespace {

/// The hash, once more: byte by byte, without the carry of a wider type.
std::uint32_t HashByHand(const std::string& key) {
    std::uint64_t h = 0;
    for (const char c : key) {
        h = (h + static_cast<unsigned char>(c)) % 0x100000000U;
        h = (h * 1025) % 0x100000000U;  // h + (h << 10)
        h = h ^ (h / 64);               // h >> 6
    }
    h = (h * 9) % 0x100000000U;
    h = h ^ (h / 2048);
    h = (h * 32769) % 0x100000000U;
    return static_cast<std::uint32_t>(h);
}

TEST(DictionaryHash, OfShortKeysWorkedOutByHand) {
    EXPECT_EQ(Dictionary::Hash(""), 0U);
    // "\1": h = 1; 1025; 1025 ^ 16 = 1041. At the end: 9369; 9369 ^ 4 = 9373; 9373 * 32769.
    EXPECT_EQ(Dictionary::Hash("\1"), 307143837U);
    // "a", 97: 99425; 99425 ^ 1553 = 97904. 881136; 881136 ^ 430 = 881310; 881310 * 32769 - 6 *
    // 2^32.
    EXPECT_EQ(Dictionary::Hash("a"), 0xCA2E9442U);
}

TEST(DictionaryHash, OfLongerKeysAndOfHighBytes) {
    for (const char* key : {"section:key", "vcap.pipe.0.chn.1:enable", "\xff", "\x80\xff\xc3\xa9",
                            "module:module_num", "A", "[", ":"}) {
        EXPECT_EQ(Dictionary::Hash(key), HashByHand(key)) << key;
    }
    const std::string longKey(2049, '\xee');
    EXPECT_EQ(Dictionary::Hash(longKey.c_str()), HashByHand(longKey));
}

class DictionaryTest : public ::testing::Test {
protected:
    DictionaryTest() { EXPECT_TRUE(dictionary_.Create()); }

    Dictionary dictionary_;
};

TEST_F(DictionaryTest, AbsentKeyGivesTheDefault) {
    const char* fallback = "default";
    EXPECT_EQ(dictionary_.Get("key", fallback), fallback);
    EXPECT_EQ(dictionary_.Get("key", nullptr), nullptr);
    EXPECT_EQ(dictionary_.Get("", fallback), fallback);
    EXPECT_EQ(dictionary_.Count(), 0U);
}

TEST_F(DictionaryTest, KeepsCopiesOfKeyAndValue) {
    std::string key = "section:key";
    std::string value = "value";
    ASSERT_TRUE(dictionary_.Set(key.c_str(), value.c_str()));
    key[0] = 'x';
    value[0] = 'x';
    EXPECT_STREQ(dictionary_.Get("section:key", nullptr), "value");
    EXPECT_EQ(dictionary_.Get("xection:key", nullptr), nullptr);
}

TEST_F(DictionaryTest, EmptyKeyAndEmptyValueAreOrdinary) {
    ASSERT_TRUE(dictionary_.Set("", "value of nothing"));
    ASSERT_TRUE(dictionary_.Set("key", ""));
    EXPECT_STREQ(dictionary_.Get("", nullptr), "value of nothing");
    EXPECT_STREQ(dictionary_.Get("key", "default"), "");
}

TEST_F(DictionaryTest, KeysAreComparedAsTheyAre) {
    ASSERT_TRUE(dictionary_.Set("key", "lower"));
    ASSERT_TRUE(dictionary_.Set("KEY", "upper"));
    ASSERT_TRUE(dictionary_.Set("ke", "shorter"));
    EXPECT_STREQ(dictionary_.Get("key", nullptr), "lower");
    EXPECT_STREQ(dictionary_.Get("KEY", nullptr), "upper");
    EXPECT_STREQ(dictionary_.Get("ke", nullptr), "shorter");
    EXPECT_EQ(dictionary_.Get("Key", nullptr), nullptr);
    EXPECT_EQ(dictionary_.Count(), 3U);
}

TEST_F(DictionaryTest, ANullValueHidesTheDefault) {
    ASSERT_TRUE(dictionary_.Set("section", nullptr));
    EXPECT_EQ(dictionary_.Get("section", "default"), nullptr);
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, ReplacementKeepsTheKeyOnce) {
    ASSERT_TRUE(dictionary_.Set("key", "first"));
    ASSERT_TRUE(dictionary_.Set("key", "a second, longer value"));
    EXPECT_STREQ(dictionary_.Get("key", nullptr), "a second, longer value");
    ASSERT_TRUE(dictionary_.Set("key", nullptr));
    EXPECT_EQ(dictionary_.Get("key", "default"), nullptr);
    ASSERT_TRUE(dictionary_.Set("key", "back"));
    EXPECT_STREQ(dictionary_.Get("key", nullptr), "back");
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, GrowsWhenItsFirstSlotsAreTaken) {
    EXPECT_EQ(Dictionary::kInitialSlots, 128U);
    for (int number = 0; number < 129; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_TRUE(dictionary_.Set(("key" + text).c_str(), text.c_str()));
        ASSERT_STREQ(dictionary_.Get("key0", nullptr), "0") << number;
    }
    for (int number = 0; number < 129; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_STREQ(dictionary_.Get(("key" + text).c_str(), nullptr), text.c_str());
    }
    EXPECT_EQ(dictionary_.Count(), 129U);
}

TEST_F(DictionaryTest, KeysOfOneHashAreToldApart) {
    // Among numbered keys, some tens of thousands are enough for two of one hash.
    std::map<std::uint32_t, std::string> seen;
    std::string first;
    std::string second;
    for (unsigned number = 0; second.empty(); ++number) {
        const std::string key = "k" + std::to_string(number);
        const auto [at, isNew] = seen.emplace(HashByHand(key), key);
        if (!isNew) {
            first = at->second;
            second = key;
        }
    }
    ASSERT_TRUE(dictionary_.Set(first.c_str(), "one"));
    EXPECT_EQ(dictionary_.Get(second.c_str(), nullptr), nullptr);
    ASSERT_TRUE(dictionary_.Set(second.c_str(), "two"));
    EXPECT_STREQ(dictionary_.Get(first.c_str(), nullptr), "one");
    EXPECT_STREQ(dictionary_.Get(second.c_str(), nullptr), "two");
}

TEST_F(DictionaryTest, TextsLongerThanAnyBlockAreKept) {
    const std::string huge(std::size_t{700} * 1024, 'v');
    ASSERT_TRUE(dictionary_.Set("small", "s"));
    ASSERT_TRUE(dictionary_.Set("huge", huge.c_str()));
    ASSERT_TRUE(dictionary_.Set("after", "a"));
    EXPECT_STREQ(dictionary_.Get("huge", nullptr), huge.c_str());
    EXPECT_STREQ(dictionary_.Get("small", nullptr), "s");
    EXPECT_STREQ(dictionary_.Get("after", nullptr), "a");
}

TEST_F(DictionaryTest, HoldsAHundredThousandKeysInShortTime) {
    const auto start = std::chrono::steady_clock::now();
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_TRUE(dictionary_.Set(("section:key" + text).c_str(), text.c_str()));
    }
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_STREQ(dictionary_.Get(("section:key" + text).c_str(), nullptr), text.c_str());
    }
    EXPECT_EQ(dictionary_.Count(), 100'000U);
    // Scans from slot to slot would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace paramgen::testing
