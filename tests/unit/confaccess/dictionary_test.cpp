#include "confaccess/dictionary.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "confaccess/any_case.h"
#include "unit/confaccess/dictionary_fixture.h"

namespace paramgen::testing {
namespace {

TEST(DictionaryRoom, LineThatDoesNotFitIsRefused) {
    Arena arena;
    for (const bool isSection : {false, true}) {
        Dictionary dictionary;
        ASSERT_TRUE(dictionary.Create("k = v\n", &arena));
        const std::string name(1000, 'k');
        if (isSection) {
            dictionary.AddSection(name);
        } else {
            dictionary.AddValue(name, "v");
        }
        EXPECT_FALSE(dictionary.Finish(&arena));
    }
}

TEST_F(DictionaryTest, AbsentKeyGivesTheDefault) {
    Fill();
    const char* fallback = "default";
    EXPECT_EQ(Get("key", fallback), fallback);
    EXPECT_EQ(Get("key", nullptr), nullptr);
    EXPECT_EQ(Get("", fallback), fallback);
    EXPECT_EQ(Count(), 0U);
}

TEST_F(DictionaryTest, EmptyNamesAndValuesAreOrdinary) {
    Section("");
    Value("", "", "value of nothing");
    Value("", "name", "1");
    Value("section", "", "");
    Fill();
    EXPECT_EQ(Get("", "default"), nullptr);
    EXPECT_STREQ(Get(":", nullptr), "value of nothing");
    EXPECT_STREQ(Get(":name", nullptr), "1");
    EXPECT_STREQ(Get("section:", "default"), "");
    EXPECT_EQ(Count(), 5U);
}

TEST_F(DictionaryTest, KeysDifferInOneCharacterOrInLength) {
    Value("one", "key", "key");
    Value("one", "kex", "kex");
    Value("two", "key", "two");
    Value("one", "ke", "shorter");
    Value("one", "key1", "longer");
    Fill();
    EXPECT_STREQ(Get("one:key", nullptr), "key");
    EXPECT_STREQ(Get("one:kex", nullptr), "kex");
    EXPECT_STREQ(Get("two:key", nullptr), "two");
    EXPECT_STREQ(Get("one:ke", nullptr), "shorter");
    EXPECT_STREQ(Get("one:key1", nullptr), "longer");
    EXPECT_EQ(Get("one:key2", nullptr), nullptr);
    EXPECT_EQ(Get("one.key", nullptr), nullptr);
    EXPECT_EQ(Count(), 7U);
}

TEST_F(DictionaryTest, KeysAreOneInAnyCase) {
    Value("Section", "Key", "first");
    Value("section", "KEY", "second");
    Fill();
    EXPECT_STREQ(Get("sEcTiOn:kEy", nullptr), "second");
    EXPECT_EQ(Count(), 2U);
}

// A key is the text "section:name": it does not matter which colon separates the two.
TEST_F(DictionaryTest, KeysAreTheSameWhereverTheirSectionEnds) {
    Value("a", "b:c", "first");
    Value("a:b", "c", "second");
    Value("x", "y", "value");
    Section("x:y");
    Section("u:v");
    Value("u", "v", "now with a value");
    Fill();
    EXPECT_STREQ(Get("a:b:c", nullptr), "second");
    EXPECT_EQ(Get("x:y", "default"), nullptr);
    EXPECT_STREQ(Get("u:v", nullptr), "now with a value");
    EXPECT_EQ(Count(), 7U);
}

TEST_F(DictionaryTest, ASectionHidesTheDefault) {
    Section("section");
    Fill();
    EXPECT_EQ(Get("section", "default"), nullptr);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(DictionaryTest, ReplacementKeepsTheKeyOnce) {
    Value("s", "key", "first");
    Value("s", "other", "other");
    Value("s", "key", "a second, longer value");
    Section("s");
    Section("s");
    Fill();
    EXPECT_STREQ(Get("s:key", nullptr), "a second, longer value");
    EXPECT_STREQ(Get("s:other", nullptr), "other");
    EXPECT_EQ(Count(), 3U);
}

TEST_F(DictionaryTest, EveryLineMayBeAKey) {
    for (std::size_t count = 0; count < 200; ++count) {
        Value("s", "key" + std::to_string(count), std::to_string(count));
    }
    Fill();
    EXPECT_EQ(Count(), 201U);
    EXPECT_EQ(Get("s:key200", nullptr), nullptr);
    for (std::size_t count = 0; count < 200; ++count) {
        EXPECT_EQ(Get("s:key" + std::to_string(count), ""), std::to_string(count));
    }
}

TEST_F(DictionaryTest, KeysAreFoundInWhateverOrderTheyAreAskedFor) {
    for (int section = 0; section < 5; ++section) {
        Section("s" + std::to_string(section));
        for (int name = 0; name < 5; ++name) {
            Value("s" + std::to_string(section), "k" + std::to_string(name),
                  std::to_string(section) + std::to_string(name));
        }
    }
    Value("s2", "k2", "replaced");
    Fill();
    // Every key is looked up after every other, and after an absent one.
    for (int first = 0; first < 25; ++first) {
        for (int second = 0; second < 25; ++second) {
            for (const int number : {first, second}) {
                const std::string section = std::to_string(number / 5);
                const std::string name = std::to_string(number % 5);
                ASSERT_EQ(Get("s" + section + ":k" + name, ""),
                          number == 12 ? "replaced" : section + name)
                    << first << ' ' << second;
                ASSERT_STREQ(Get("s" + section + ":absent", "default"), "default");
                ASSERT_STREQ(Get("s" + section + ":k" + name + "x", "default"), "default");
            }
            ASSERT_EQ(Get("s" + std::to_string(second % 5), "default"), nullptr);
        }
    }
    EXPECT_EQ(Count(), 30U);
}

TEST_F(DictionaryTest, TheKeyAfterTheLastFoundOneIsComparedWhole) {
    Value("one", "a", "1");
    Value("one", "b", "2");
    Fill();
    for (const char* other : {"one.b", "onx:b", "one:c", "one:b ", "one:", "on"}) {
        EXPECT_STREQ(Get("one:a", nullptr), "1");
        EXPECT_STREQ(Get(other, "default"), "default") << other;
    }
    EXPECT_STREQ(Get("one:b", nullptr), "2");
    EXPECT_STREQ(Get("one:c", "default"), "default");
}

TEST_F(DictionaryTest, AReplacedKeyIsNotFoundAfterTheOneBeforeIt) {
    Value("s", "a", "1");
    Value("s", "b", "old");
    Value("s", "c", "3");
    Value("s", "B", "new");
    Section("t");
    Value("s", "d", "4");
    Fill();
    EXPECT_STREQ(Get("s:a", nullptr), "1");
    EXPECT_STREQ(Get("s:b", nullptr), "new");
    EXPECT_STREQ(Get("s:a", nullptr), "1");
    EXPECT_STREQ(Get("s:c", nullptr), "3");
    // The section "s" was continued after "t": its keys are found all the same.
    EXPECT_EQ(Get("s", "default"), nullptr);
    EXPECT_STREQ(Get("s:d", nullptr), "4");
    EXPECT_STREQ(Get("s:c", nullptr), "3");
    EXPECT_EQ(Count(), 6U);
}

TEST_F(DictionaryTest, KeysWithTheSameHashAreDistinguished) {
    // Some tens of thousands of numbered keys are enough to find two with the same hash.
    std::map<std::uint32_t, std::string> seen;
    std::string first;
    std::string second;
    for (unsigned number = 0; second.empty(); ++number) {
        const std::string key = "k" + std::to_string(number);
        const auto [at, isNew] = seen.emplace(HashInAnyCase(":" + key), key);
        if (!isNew) {
            first = at->second;
            second = key;
        }
    }
    Value("", first, "one");
    Value("", second, "two");
    Fill();
    EXPECT_STREQ(Get(":" + first, nullptr), "one");
    EXPECT_STREQ(Get(":" + second, nullptr), "two");
    EXPECT_EQ(Count(), 2U);
}

TEST_F(DictionaryTest, AnAbsentKeyWithTheHashOfAPresentOneIsNotFound) {
    std::map<std::uint32_t, std::string> seen;
    std::string second;
    for (unsigned number = 0; second.empty(); ++number) {
        const std::string key = "k" + std::to_string(number);
        const auto [at, isNew] = seen.emplace(HashInAnyCase(":" + key), key);
        if (!isNew) {
            second = key;
            Value("", at->second, "one");
        }
    }
    Fill();
    EXPECT_EQ(Get(":" + second, nullptr), nullptr);
}

TEST_F(DictionaryTest, SectionsOfAnySizeHaveTheirKeys) {
    for (const int count : {1, 2, 31, 32, 33, 34, 100}) {
        Arena arena;
        Dictionary dictionary;
        ASSERT_TRUE(dictionary.Create(std::string(2000, '\n'), &arena));
        for (const char* section : {"one", "two"}) {
            dictionary.AddSection(section);
            for (int number = 0; number < count; ++number) {
                dictionary.AddValue("key" + std::to_string(number), section);
            }
            dictionary.AddValue("KEY0", "last");
        }
        ASSERT_TRUE(dictionary.Finish(&arena));
        EXPECT_EQ(dictionary.Count(), 2U + 2U * static_cast<unsigned>(count));
        for (int number = count; number-- > 1;) {
            const std::string key = ":key" + std::to_string(number);
            EXPECT_STREQ(dictionary.FindText("one" + key, nullptr), "one") << key << ' ' << count;
            EXPECT_STREQ(dictionary.FindText("TWO" + key, nullptr), "two") << key << ' ' << count;
        }
        EXPECT_STREQ(dictionary.FindText("one:key0", nullptr), "last");
        EXPECT_EQ(dictionary.FindText("one:key" + std::to_string(count), nullptr), nullptr);
        EXPECT_EQ(dictionary.FindText("two", "default"), nullptr);
        EXPECT_STREQ(dictionary.FindText("three:key1", "default"), "default");
    }
}

// A dictionary that is too large for the cache: a section's records are fetched before they are
// searched. The last section has fewer bytes than are fetched, some sections have more.
TEST_F(DictionaryTest, SectionsOfALargeDictionaryHaveTheirKeys) {
    constexpr int kSections = 3002;
    const auto name = [](int section) { return "section" + std::to_string(section); };
    for (int section = 0; section < kSections; ++section) {
        Section(name(section));
        for (int key = 0; key < section % 30; ++key) {
            Value(name(section), "key number " + std::to_string(key), name(section));
        }
    }
    Fill();
    EXPECT_EQ(Count(), 3002U + 100U * (29 * 30 / 2) + 1U);
    constexpr int kStep = 1009;  // all over the dictionary
    for (int number = 0; number < kSections; ++number) {
        const int section = number * kStep % kSections;
        const int keys = section % 30;
        EXPECT_EQ(Get(name(section), "default"), nullptr);
        const std::string key = name(section) + ":KEY number ";
        EXPECT_STREQ(Get(key + std::to_string(keys), "absent"), "absent") << section;
        if (keys != 0) {
            EXPECT_EQ(Get(key + std::to_string(keys - 1), "absent"), name(section));
        }
        EXPECT_STREQ(Get(name(section + kSections) + ":key number 0", "absent"), "absent");
    }
    EXPECT_STREQ(Get("section3001:key number 0", nullptr), "section3001");
}

/// What the last line of each key says, by the key in lower case; nothing for a section.
using LastLines = std::map<std::string, std::optional<std::string>>;

std::string LowerCase(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

TEST_F(DictionaryTest, WhateverTheLinesTheLastOfAKeyCounts) {
    // Names with colons make keys that stand in several sections; some sections begin anew.
    const std::vector<std::string> sections = {"a", "A", "b", "a:b", "", "b:", "long section"};
    const std::vector<std::string> names = {"x", "X", "y", "x:y", ":", "b", "b:x", "name", "mane"};
    std::mt19937 chance(20240611);
    const auto one = [&chance](const std::vector<std::string>& of) {
        return of[chance() % of.size()];
    };
    for (int round = 0; round < 3000; ++round) {
        Arena arena;
        Dictionary dictionary;
        LastLines expected;
        ASSERT_TRUE(dictionary.Create(std::string(2000, '\n'), &arena));
        std::string section;
        const auto lines = chance() % 12;
        for (std::size_t line = 0; line < lines; ++line) {
            if (chance() % 3 == 0) {
                section = one(sections);
                dictionary.AddSection(section);
                expected[LowerCase(section)] = std::nullopt;
            } else {
                const std::string name = one(names);
                const std::string value = std::to_string(line);
                dictionary.AddValue(name, value);
                expected[LowerCase(section + ":" + name)] = value;
            }
        }
        ASSERT_TRUE(dictionary.Finish(&arena));
        EXPECT_EQ(dictionary.Count(), expected.size()) << round;
        for (int question = 0; question < 40; ++question) {
            const std::string key = one(sections) + (chance() % 8 == 0 ? "" : ":" + one(names));
            const auto found = expected.find(LowerCase(key));
            const char* value = dictionary.FindText(key, "absent");
            if (found == expected.end()) {
                EXPECT_STREQ(value, "absent") << key << " in " << round;
            } else if (found->second.has_value()) {
                EXPECT_STREQ(value, found->second->c_str()) << key << " in " << round;
            } else {
                EXPECT_EQ(value, nullptr) << key << " in " << round;
            }
        }
    }
}

TEST_F(DictionaryTest, TextsOfEveryLengthStandBesideEachOther) {
    for (std::size_t length = 0; length < 700; ++length) {
        Value(std::string(length, 's'), std::string(length * 3 % 1000, 'k'),
              std::string(length * 7 % 1000, 'v'));
    }
    Fill();
    for (std::size_t length = 0; length < 700; ++length) {
        ASSERT_EQ(Get(std::string(length, 's') + ":" + std::string(length * 3 % 1000, 'k'), ""),
                  std::string(length * 7 % 1000, 'v'))
            << length;
    }
}

TEST_F(DictionaryTest, HoldsAHundredThousandKeys) {
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        Value("section", "key" + text, text);
    }
    Fill();
    for (int number = 0; number < 100'000; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_STREQ(Get("section:key" + text, nullptr), text.c_str());
    }
    EXPECT_EQ(Count(), 100'001U);
}

}  // namespace
}  // namespace paramgen::testing
