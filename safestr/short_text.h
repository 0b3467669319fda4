/// Short texts, a dozen characters or two, of which there are thousands in a run: a call of libc
/// would cost more than the work. (One libc's memcpy spends 80 ns on any copy.)
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

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

/// Copies `count` characters to where there is room for them; the two do not overlap.
inline void CopyText(char* to, const char* from, std::size_t count) {
    using Word = std::uint64_t;
    const auto copyWord = [&](std::size_t at) {
        Word word = 0;
        std::memcpy(&word, from + at, sizeof word);
        std::memcpy(to + at, &word, sizeof word);
    };
    if (count < sizeof(Word)) {
        for (std::size_t at = 0; at < count; ++at) {
            to[at] = from[at];
        }
        return;
    }
    for (std::size_t at = 0; at < count - sizeof(Word); at += sizeof(Word)) {
        copyWord(at);
    }
    copyWord(count - sizeof(Word));
}

}  // namespace paramgen
