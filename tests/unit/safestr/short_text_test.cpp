#include "safestr/short_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

TEST(ShortText, SameTextComparesAsManyAsAsked) {
    EXPECT_TRUE(SameText("", "", 8));
    EXPECT_TRUE(SameText("name", "name", 128));
    EXPECT_FALSE(SameText("name", "nam", 128));
    EXPECT_FALSE(SameText("nam", "name", 128));
    EXPECT_FALSE(SameText("name", "Name", 128));
    EXPECT_TRUE(SameText("name one", "name two", 5));
    EXPECT_FALSE(SameText("name one", "name two", 6));
    EXPECT_TRUE(SameText("a", "b", 0));
}

TEST(ShortText, LengthUpToStopsAtTheEndOrTheLimit) {
    EXPECT_EQ(LengthUpTo("", 8), 0U);
    EXPECT_EQ(LengthUpTo("abc", 8), 3U);
    EXPECT_EQ(LengthUpTo("abc", 3), 3U);
    EXPECT_EQ(LengthUpTo("abc", 2), 2U);
    const char noEnd[] = {'a', 'b'};
    EXPECT_EQ(LengthUpTo(noEnd, 2), 2U);
}

TEST(ShortText, LoadPartTakesThatManyAndNoMore) {
    for (std::size_t count = 0; count < 8; ++count) {
        // On the heap without a terminator, so that the sanitizer sees reading too far.
        std::vector<char> text(count);
        Word expected = 0;
        for (std::size_t at = 0; at < count; ++at) {
            text[at] = static_cast<char>(0xF0 + at);
            expected |= Word{0xF0 + at} << (8 * at);
        }
        EXPECT_EQ(LoadPart(text.data(), count), expected) << count;
    }
}

TEST(ShortText, MarkFirstMarksEveryByteAtEveryPlace) {
    for (unsigned sought = 0; sought < 256; ++sought) {
        const char c = static_cast<char>(sought);
        for (unsigned other = 0; other < 256; ++other) {
            std::string text(8, static_cast<char>(other));
            EXPECT_EQ(MarkFirst(LoadWord(text.data()), c) != 0, sought == other);
            for (std::size_t at = 0; at < 8 && sought != other; ++at) {
                text.assign(8, static_cast<char>(other));
                text[at] = c;
                EXPECT_EQ(BytesBefore(MarkFirst(LoadWord(text.data()), c)), at)
                    << sought << " among " << other;
                text[7] = c;
                EXPECT_EQ(BytesBefore(MarkFirst(LoadWord(text.data()), c)), at)
                    << sought << " among " << other;
            }
        }
    }
}

TEST(ShortText, CountCharacterCountsAll) {
    for (std::size_t size = 0; size < 600; ++size) {
        EXPECT_EQ(CountCharacter(std::string(size, 'x'), 'x'), size);
        EXPECT_EQ(CountCharacter(std::string(size, 'x'), 'y'), 0U);
        const std::string text = std::string(size, 'x') + 'y' + std::string(size / 2, 'x') + 'y';
        EXPECT_EQ(CountCharacter(text, 'y'), 2U);
    }
}

TEST(ShortText, FindFirstFindsTheFirstAtEveryPlace) {
    for (std::size_t length = 0; length < 60; ++length) {
        EXPECT_EQ(FindFirst(std::string(length, 'x'), ';'), length);
        for (std::size_t at = 0; at < length; ++at) {
            // On the heap without a terminator, so that the sanitizer sees reading too far.
            std::vector<char> text(length, 'x');
            text[at] = ';';
            EXPECT_EQ(FindFirst({text.data(), length}, ';'), at) << length;
            text.back() = ';';
            EXPECT_EQ(FindFirst({text.data(), length}, ';'), at) << length;
        }
    }
}

TEST(ShortText, FindFirstFindsTheFirstOfSeveralAtEveryPlace) {
    for (std::size_t length = 0; length < 60; ++length) {
        EXPECT_EQ(FindFirst(std::string(length, 'x'), ';', '=', '\0'), length);
        for (std::size_t at = 0; at < length; ++at) {
            for (const char first : {';', '=', '\0'}) {
                std::vector<char> text(length, 'x');
                text.back() = first == ';' ? '=' : ';';
                text[at] = first;
                EXPECT_EQ(FindFirst({text.data(), length}, ';', '=', '\0'), at) << length;
            }
        }
    }
}

TEST(ShortText, SameCharactersComparesThatMany) {
    for (std::size_t count = 0; count < 40; ++count) {
        // On the heap without a terminator, so that the sanitizer sees reading too far.
        const std::vector<char> text(count, 'x');
        std::vector<char> other = text;
        EXPECT_TRUE(SameCharacters(text.data(), other.data(), count)) << count;
        for (std::size_t at = 0; at < count; ++at) {
            other[at] = 'X';
            EXPECT_FALSE(SameCharacters(text.data(), other.data(), count)) << at << " of " << count;
            other[at] = 'x';
        }
    }
}

TEST(ShortText, CopyTextCopiesThatManyAndNoMore) {
    for (std::size_t count = 0; count < 40; ++count) {
        std::vector<char> from(count);
        for (std::size_t at = 0; at < count; ++at) {
            from[at] = static_cast<char>('A' + at);
        }
        std::vector<char> to(count + 2, '#');
        EXPECT_EQ(CopyText(to.data() + 1, count, from.empty() ? "" : from.data(), count), 0);
        EXPECT_EQ(std::string(to.begin(), to.end()),
                  "#" + std::string(from.begin(), from.end()) + "#");
    }
}

TEST(ShortText, CopyTextRefusesWhatDoesNotFit) {
    for (std::size_t count = 1; count < 40; ++count) {
        const std::string from(count, 'A');
        std::vector<char> to(count, '#');
        EXPECT_EQ(CopyText(to.data(), count - 1, from.data(), count), -1);
        EXPECT_EQ(std::string(to.begin(), to.end()), std::string(count, '#'));
    }
    char to[4] = "abc";
    EXPECT_EQ(CopyText(to, sizeof to, nullptr, 2), -1);
    EXPECT_STREQ(to, "abc");
    EXPECT_EQ(CopyText(nullptr, sizeof to, "xyz", 2), -1);
    EXPECT_EQ(CopyText(to, 0, "xyz", 0), 0);
    EXPECT_STREQ(to, "abc");
}

}  // namespace
}  // namespace paramgen::testing
