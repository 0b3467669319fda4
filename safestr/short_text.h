/// Short texts, a dozen characters or two, of which there are thousands in a run: a call of libc
/// would cost more than the work. (One libc's memcpy spends 80 ns on any copy.)
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace paramgen {

/// Whether the first `max` characters of two texts agree.
inline bool SameText(const char* a, const char* b, std::size_t max) {
    std::size_t same = 0;
    while (same < max && a[same] == b[same] && a[same] != '\0') {
        ++same;
    }
    return same == max || a[same] == b[same];
}

/// The number of characters of `text`, or `max` when it has more.
inline std::size_t LengthUpTo(const char* text, std::size_t max) {
    std::size_t length = 0;
    while (length < max && text[length] != '\0') {
        ++length;
    }
    return length;
}

/// As many characters at a time as a register holds: four or eight.
using Word = std::uintptr_t;

/// A word whose bytes are all `byte`.
constexpr Word EachByte(unsigned byte) {
    return ~Word{0} / 0xFF * byte;
}

inline Word LoadWord(const char* from) {
    Word word = 0;
    std::memcpy(&word, from, sizeof word);
    return word;
}

inline void StoreWord(char* to, Word word) {
    std::memcpy(to, &word, sizeof word);
}

/// Two numbers, at the beginning and at the end of `count` characters at `from`, as one. They may
/// overlap, and agree where they do.
template <typename Half>
Word LoadHalves(const char* from, std::size_t count) {
    Half first = 0;
    Half last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    return Word{first} | Word{last} << (8 * (count - sizeof last));
}

/// The word that begins with the `count` characters at `from`, fewer than a word has; zeros fill it
/// up. Reads no others.
inline Word LoadPart(const char* from, std::size_t count) {
    if (sizeof(Word) > sizeof(std::uint32_t) && count >= sizeof(std::uint32_t)) {
        return LoadHalves<std::uint32_t>(from, count);
    }
    if (count >= sizeof(std::uint16_t)) {
        return LoadHalves<std::uint16_t>(from, count);
    }
    return count == 0 ? 0 : static_cast<unsigned char>(*from);
}

/// The top bit of the word's first byte that is `byte`, and perhaps some behind it; 0 when there is
/// none.
inline Word MarkFirst(Word word, char byte) {
    // Where they differ, bits are left; of a byte without any, the subtraction borrows.
    const Word left = word ^ EachByte(static_cast<unsigned char>(byte));
    return (left - EachByte(1)) & ~left & EachByte(0x80);
}

/// The number of bytes before the first one that `MarkFirst` has marked.
inline std::size_t BytesBefore(Word marks) {
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

/// Where the first byte that `mark` marks in its word, as `MarkFirst` does, stands in `text`; or
/// the text's end. Zeros, which fill up a short text, are not to be marked.
template <typename Mark>
std::size_t FindMarked(std::string_view text, Mark mark) {
    const std::size_t size = text.size();
    if (size < sizeof(Word)) {
        const Word marks = mark(LoadPart(text.data(), size));
        return marks == 0 ? size : BytesBefore(marks);
    }
    const std::size_t last = size - sizeof(Word);
    for (std::size_t at = 0; at < last; at += sizeof(Word)) {
        const Word marks = mark(LoadWord(text.data() + at));
        if (marks != 0) {
            return at + BytesBefore(marks);
        }
    }
    const Word marks = mark(LoadWord(text.data() + last));
    return marks == 0 ? size : last + BytesBefore(marks);
}

/// Where `c`, which is not NUL, stands in `text`, or the text's end.
inline std::size_t FindCharacter(std::string_view text, char c) {
    return FindMarked(text, [=](Word word) { return MarkFirst(word, c); });
}

/// Where the first of two characters that are not NUL stands in `text`, or the text's end.
inline std::size_t FindEither(std::string_view text, char a, char b) {
    return FindMarked(text, [=](Word word) { return MarkFirst(word, a) | MarkFirst(word, b); });
}

/// Whether `isSame` holds for all words of `count` characters at `a` and of as many at `b`. The
/// last ones of a text overlap those before; zeros fill up a short text.
template <typename IsSame>
bool SameByWords(const char* a, const char* b, std::size_t count, IsSame isSame) {
    if (count < sizeof(Word)) {
        return isSame(LoadPart(a, count), LoadPart(b, count));
    }
    const std::size_t last = count - sizeof(Word);
    for (std::size_t at = 0; at < last; at += sizeof(Word)) {
        if (!isSame(LoadWord(a + at), LoadWord(b + at))) {
            return false;
        }
    }
    return isSame(LoadWord(a + last), LoadWord(b + last));
}

/// Whether `count` characters at `a` are those at `b`.
inline bool SameCharacters(const char* a, const char* b, std::size_t count) {
    return SameByWords(a, b, count, [](Word one, Word other) { return one == other; });
}

/// How often `c` stands in `text`.
inline std::size_t CountCharacter(std::string_view text, char c) {
    std::size_t total = 0;
    for (std::size_t at = 0; at < text.size();) {
        // In blocks that are counted in a byte: a compiler then counts many characters at a time.
        const std::size_t end = std::min(text.size(), at + 128);
        std::uint8_t count = 0;
        for (; at < end; ++at) {
            count = static_cast<std::uint8_t>(count + (text[at] == c ? 1 : 0));
        }
        total += count;
    }
    return total;
}

/// Copies a text that has between one and two `Half`s of characters: its beginning and its end.
template <typename Half>
void CopyHalves(char* to, const char* from, std::size_t count) {
    Half first = 0;
    Half last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + count - sizeof last, &last, sizeof last);
}

/// Copies `count` characters from `from` to `to`, which has room for `room`; the two do not
/// overlap. Returns 0; -1, writing nothing, when `count` exceeds `room` or a pointer is null
/// (`from` may be when `count` is 0).
[[nodiscard]] inline int CopyText(char* to, std::size_t room, const char* from, std::size_t count) {
    if (count > room || to == nullptr || (from == nullptr && count != 0)) {
        return -1;
    }
    constexpr std::size_t kTwo = 2 * sizeof(Word);
    // Two words at a time: of one, compilers make a call of memcpy.
    for (; count > kTwo; count -= kTwo, to += kTwo, from += kTwo) {
        StoreWord(to, LoadWord(from));
        StoreWord(to + sizeof(Word), LoadWord(from + sizeof(Word)));
    }
    if (count >= sizeof(Word)) {
        CopyHalves<Word>(to, from, count);
    } else if (count >= sizeof(std::uint32_t)) {
        CopyHalves<std::uint32_t>(to, from, count);
    } else {
        for (std::size_t at = 0; at < count; ++at) {
            to[at] = from[at];
        }
    }
    return 0;
}

}  // namespace paramgen
