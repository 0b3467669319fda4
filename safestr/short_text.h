/// Functions for short texts. A run copies and compares thousands of texts of a dozen characters or
/// two; inline code is faster for them than a call of libc.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace paramgen {

/// Returns whether two NUL-terminated texts agree in their first `max` characters, as strncmp does.
inline bool SameText(const char* a, const char* b, std::size_t max) {
    std::size_t same = 0;
    while (same < max && a[same] == b[same] && a[same] != '\0') {
        ++same;
    }
    return same == max || a[same] == b[same];
}

/// Returns whether `c` is white space of the C locale.
constexpr bool IsSpace(char c) {
    return c <= ' ' && (c == ' ' || (c >= '\t' && c <= '\r'));
}

/// Returns the length of `text`, at most `max`, as strnlen does.
inline std::size_t LengthUpTo(const char* text, std::size_t max) {
    std::size_t length = 0;
    while (length < max && text[length] != '\0') {
        ++length;
    }
    return length;
}

/// Characters are loaded, compared and stored in words of the size of a register: 4 or 8 bytes.
using Word = std::uintptr_t;

/// Returns a word whose bytes are all `byte`.
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

/// Loads `count` bytes, between one and two `Half`s, as one number: the first `Half` and the last
/// one. They overlap when `count` is less than two `Half`s.
template <typename Half>
Word LoadHalves(const char* from, std::size_t count) {
    Half first = 0;
    Half last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    return Word{first} | Word{last} << (8 * (count - sizeof last));
}

/// Loads `count` bytes, fewer than a word has, and fills the rest of the word with zeros. Reads no
/// other bytes.
inline Word LoadPart(const char* from, std::size_t count) {
    if (sizeof(Word) > sizeof(std::uint32_t) && count >= sizeof(std::uint32_t)) {
        return LoadHalves<std::uint32_t>(from, count);
    }
    if (count >= sizeof(std::uint16_t)) {
        return LoadHalves<std::uint16_t>(from, count);
    }
    return count == 0 ? 0 : static_cast<unsigned char>(*from);
}

/// Marks the first byte of `word` that equals `byte`: its top bit is set in the result. Bytes
/// behind it may be marked wrongly; the result is 0 when no byte equals `byte`.
inline Word MarkFirst(Word word, char byte) {
    // Where they differ, bits are left; of a byte without any, the subtraction borrows.
    const Word left = word ^ EachByte(static_cast<unsigned char>(byte));
    return (left - EachByte(1)) & ~left & EachByte(0x80);
}

/// Returns the index of the first byte that `MarkFirst` has marked; `marks` is not 0.
inline std::size_t BytesBefore(Word marks) {
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

#if defined(__SSE2__)

/// Returns the index of the first character of `text` that is one of `wanted`, or its size.
/// Searches blocks of 16 characters, then words; the last one of a text overlaps the one before,
/// and a text shorter than a word is filled up with zeros. Every character of a run's files goes
/// through here. Inlined, it takes half the instructions: the characters are constants.
template <typename... Character>
[[gnu::always_inline]] inline std::size_t FindFirst(std::string_view text, Character... wanted) {
    const auto wordMarks = [=](std::size_t at) {
        return (... | MarkFirst(LoadWord(text.data() + at), wanted));
    };
    const std::size_t size = text.size();
    if (size < sizeof(Word)) {
        const Word word = LoadPart(text.data(), size);
        const Word marks = (... | MarkFirst(word, wanted));
        return marks == 0 ? size : std::min(BytesBefore(marks), size);
    }
    if (size < sizeof(__m128i)) {
        const std::size_t last = size - sizeof(Word);
        const Word first = wordMarks(0);
        const Word marks = first == 0 ? wordMarks(last) : first;
        return marks == 0 ? size : (first == 0 ? last : 0) + BytesBefore(marks);
    }
    const std::size_t last = size - sizeof(__m128i);
    for (std::size_t at = 0;; at = std::min(at + sizeof(__m128i), last)) {
        __m128i block;
        std::memcpy(&block, text.data() + at, sizeof block);
        const __m128i found = (... | _mm_cmpeq_epi8(block, _mm_set1_epi8(wanted)));
        const auto marks = static_cast<unsigned>(_mm_movemask_epi8(found));
        if (marks != 0) {
            return at + static_cast<std::size_t>(std::countr_zero(marks));
        }
        if (at == last) {
            return size;
        }
    }
}

#else

/// The same on other machines, where short code counts more.
template <typename... Character>
std::size_t FindFirst(std::string_view text, Character... wanted) {
    std::size_t at = 0;
    while (at != text.size() && ((text[at] != wanted) && ...)) {
        ++at;
    }
    return at;
}

#endif

/// Compares `count` characters at `a` and `b` word by word with `isSame`. The last word of a text
/// overlaps the one before; a text shorter than a word is filled up with zeros.
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

/// Returns whether the `count` characters at `a` and `b` are equal, as memcmp does.
inline bool SameCharacters(const char* a, const char* b, std::size_t count) {
    return SameByWords(a, b, count, [](Word one, Word other) { return one == other; });
}

/// Returns how often `c` occurs in `text`.
inline std::size_t CountCharacter(std::string_view text, char c) {
    std::size_t total = 0;
    for (std::size_t at = 0; at < text.size();) {
        // Blocks whose count fits a byte let the compiler count many characters at a time.
        const std::size_t end = std::min(text.size(), at + 128);
        std::uint8_t count = 0;
        for (; at < end; ++at) {
            count = static_cast<std::uint8_t>(count + (text[at] == c ? 1 : 0));
        }
        total += count;
    }
    return total;
}

/// Copies between one and two `Half`s of characters: the first `Half` and the last one, which may
/// overlap.
template <typename Half>
void CopyHalves(char* to, const char* from, std::size_t count) {
    Half first = 0;
    Half last = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + count - sizeof last, &last, sizeof last);
}

/// Copies `text` to `to`, which does not overlap it, and returns the end of the copy. The caller
/// has made sure that there is room.
inline char* PutCharacters(char* to, std::string_view text) {
    const char* from = text.data();
    std::size_t count = text.size();
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
    return to + count;
}

/// Copies `count` characters from `from` to `to`, which has room for `room`; the two do not
/// overlap. Returns 0; -1, writing nothing, when `count` exceeds `room` or a pointer is null
/// (`from` may be when `count` is 0).
[[nodiscard]] inline int CopyText(char* to, std::size_t room, const char* from, std::size_t count) {
    if (count > room || to == nullptr || (from == nullptr && count != 0)) {
        return -1;
    }
    PutCharacters(to, {from, count});
    return 0;
}

}  // namespace paramgen
