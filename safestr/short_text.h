/// Short texts, a dozen characters or two, of which there are thousands in a run: a call of libc
/// would cost more than the work. (One libc's memcpy spends 80 ns on any copy.)
#pragma once

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

/// Eight characters at a time.
using Word = std::uint64_t;

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

/// Whether one of the word's bytes is `byte`.
inline bool HasByte(Word word, char byte) {
    // Where they differ, bits are left; of a byte without any, the subtraction borrows.
    const Word left = word ^ EachByte(static_cast<unsigned char>(byte));
    return ((left - EachByte(1)) & ~left & EachByte(0x80)) != 0;
}

/// Where `c` stands in `text`, or the text's end.
inline std::size_t FindCharacter(std::string_view text, char c) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (end - at >= static_cast<std::ptrdiff_t>(sizeof(Word)) && !HasByte(LoadWord(at), c)) {
        at += sizeof(Word);
    }
    while (at != end && *at != c) {
        ++at;
    }
    return static_cast<std::size_t>(at - text.data());
}

/// Copies `count` characters to where there is room for them; the two do not overlap.
inline void CopyText(char* to, const char* from, std::size_t count) {
    if (count < sizeof(Word)) {
        for (std::size_t at = 0; at < count; ++at) {
            to[at] = from[at];
        }
        return;
    }
    for (std::size_t at = 0; at < count - sizeof(Word); at += sizeof(Word)) {
        StoreWord(to + at, LoadWord(from + at));
    }
    const std::size_t last = count - sizeof(Word);
    StoreWord(to + last, LoadWord(from + last));
}

}  // namespace paramgen
