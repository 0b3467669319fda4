#include "confaccess/dictionary.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <string>
#include <string_view>

namespace paramgen::testing {
namespace {

class DictionaryTest : public ::testing::Test {
protected:
    DictionaryTest() { EXPECT_TRUE(dictionary_.Create()); }

    bool Set(std::string_view key, const char* value) {
        return dictionary_.Set(FoldedKey(key),
                               value == nullptr ? std::string_view() : std::string_view(value));
    }
    const char* Get(std::string_view key, const char* defaultValue) const {
        return dictionary_.Get(FoldedKey(key), defaultValue);
    }

    Dictionary dictionary_;
};

TEST_F(DictionaryTest, AbsentKeyGivesTheDefault) {
    const char* fallback = "default";
    EXPECT_EQ(Get("key", fallback), fallback);
    EXPECT_EQ(Get("key", nullptr), nullptr);
    EXPECT_EQ(Get("", fallback), fallback);
    EXPECT_EQ(dictionary_.Count(), 0U);
}

TEST_F(DictionaryTest, KeepsCopiesOfKeyAndValue) {
    std::string key = "section:key";
    std::string value = "value";
    ASSERT_TRUE(Set(key, value.c_str()));
    key[0] = 'x';
    value[0] = 'x';
    EXPECT_STREQ(Get("section:key", nullptr), "value");
    EXPECT_EQ(Get("xection:key", nullptr), nullptr);
}

TEST_F(DictionaryTest, EmptyKeyAndEmptyValueAreOrdinary) {
    ASSERT_TRUE(Set("", "value of nothing"));
    ASSERT_TRUE(Set("key", ""));
    EXPECT_STREQ(Get("", nullptr), "value of nothing");
    EXPECT_STREQ(Get("key", "default"), "");
}

TEST_F(DictionaryTest, KeysDifferInOneCharacterOrInLength) {
    ASSERT_TRUE(Set("one:key", "key"));
    ASSERT_TRUE(Set("one:kex", "kex"));
    ASSERT_TRUE(Set("two:key", "two"));
    ASSERT_TRUE(Set("one:ke", "shorter"));
    ASSERT_TRUE(Set("one:key1", "longer"));
    EXPECT_STREQ(Get("one:key", nullptr), "key");
    EXPECT_STREQ(Get("one:kex", nullptr), "kex");
    EXPECT_STREQ(Get("two:key", nullptr), "two");
    EXPECT_STREQ(Get("one:ke", nullptr), "shorter");
    EXPECT_STREQ(Get("one:key1", nullptr), "longer");
    EXPECT_EQ(Get("one:key2", nullptr), nullptr);
    EXPECT_EQ(dictionary_.Count(), 5U);
}

TEST_F(DictionaryTest, KeysAreOneInAnyCase) {
    ASSERT_TRUE(Set("Section:Key", "first"));
    ASSERT_TRUE(Set("section:KEY", "second"));
    EXPECT_STREQ(Get("sEcTiOn:kEy", nullptr), "second");
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, ANullValueHidesTheDefault) {
    ASSERT_TRUE(Set("section", nullptr));
    EXPECT_EQ(Get("section", "default"), nullptr);
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, ReplacementKeepsTheKeyOnce) {
    ASSERT_TRUE(Set("key", "first"));
    ASSERT_TRUE(Set("key", "a second, longer value"));
    EXPECT_STREQ(Get("key", nullptr), "a second, longer value");
    ASSERT_TRUE(Set("key", nullptr));
    EXPECT_EQ(Get("key", "default"), nullptr);
    ASSERT_TRUE(Set("key", "back"));
    EXPECT_STREQ(Get("key", nullptr), "back");
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, GrowsWhenThreeQuartersOfItsFirstSlotsAreTaken) {
    EXPECT_EQ(Dictionary::kFirstSlots, 256U);
    for (int number = 0; number < 193; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_TRUE(Set(("key" + text), text.c_str()));
        ASSERT_STREQ(Get("key0", nullptr), "0") << number;
    }
    for (int number = 0; number < 193; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_STREQ(Get(("key" + text), nullptr), text.c_str());
    }
    EXPECT_EQ(dictionary_.Count(), 193U);
}

TEST_F(DictionaryTest, KeysOfOneHashAreToldApart) {
    // Among numbered keys, some tens of thousands are enough for two of one hash.
    std::map<std::uint32_t, std::string> seen;
    std::string first;
    std::string second;
    for (unsigned number = 0; second.empty(); ++number) {
        const std::string key = "k" + std::to_string(number);
        const auto [at, isNew] = seen.emplace(FoldedKey(key).Hash(), key);
        if (!isNew) {
            first = at->second;
            second = key;
        }
    }
    ASSERT_TRUE(Set(first, "one"));
    EXPECT_EQ(Get(second, nullptr), nullptr);
    ASSERT_TRUE(Set(second, "two"));
    EXPECT_STREQ(Get(first, nullptr), "one");
    EXPECT_STREQ(Get(second, nullptr), "two");
}

TEST_F(DictionaryTest, LongestTextsAreKept) {
    const std::string key(FoldedKey::kMax, 'k');
    const std::string value(Dictionary::kValueMax, 'v');
    ASSERT_TRUE(Set("small", "s"));
    ASSERT_TRUE(Set(key, value.c_str()));
    ASSERT_TRUE(Set("after", "a"));
    EXPECT_EQ(Get(key, ""), value);
    EXPECT_STREQ(Get("small", nullptr), "s");
    EXPECT_STREQ(Get("after", nullptr), "a");
}

TEST_F(DictionaryTest, AValueThatIsTooLongIsRefusedAndReplacesNothing) {
    const std::string value(Dictionary::kValueMax + 1, 'v');
    ASSERT_TRUE(Set("key", "old"));
    EXPECT_FALSE(Set("key", value.c_str()));
    EXPECT_FALSE(Set("other", value.c_str()));
    EXPECT_STREQ(Get("key", nullptr), "old");
    EXPECT_EQ(Get("other", nullptr), nullptr);
    EXPECT_EQ(dictionary_.Count(), 1U);
}

TEST_F(DictionaryTest, EntriesOfEveryLengthStandBesideEachOther) {
    for (std::size_t length = 0; length < 700; ++length) {
        ASSERT_TRUE(Set(std::string(length, 'k'), std::string(length * 7 % 1000, 'v').c_str()));
    }
    for (std::size_t length = 0; length < 700; ++length) {
        ASSERT_EQ(Get(std::string(length, 'k'), ""), std::string(length * 7 % 1000, 'v')) << length;
    }
}

TEST_F(DictionaryTest, HoldsAHundredThousandKeysInShortTime) {
    const auto start = std::chrono::steady_clock::now();
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_TRUE(Set(("section:key" + text), text.c_str()));
    }
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_STREQ(Get(("section:key" + text), nullptr), text.c_str());
    }
    EXPECT_EQ(dictionary_.Count(), 100'000U);
    // Scans from slot to slot would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace paramgen::testing
