#include "confaccess/any_case.h"

#include "safestr/short_text.h"

// Thousands of keys are hashed and compared: by words, that takes a third of the time.

namespace paramgen {
namespace {

/// The word with the bytes from 'A' to 'Z' in lower case.
Word ToLower(Word word) {
    // What is added to the low seven bits of a byte carries into its top bit from 'A' on, and from
    // behind 'Z' on.
    const Word low = word & EachByte(0x7F);
    const Word fromA = low + EachByte(0x80 - 'A');
    const Word behindZ = low + EachByte(0x7F - 'Z');
    const Word isUpper = fromA & ~behindZ & ~word & EachByte(0x80);
    return word | (isUpper >> 2);  // 0x80 becomes 0x20, the difference between the cases
}

bool IsSame(Word a, Word b) {
    return a == b || ToLower(a) == ToLower(b);
}

Word Mix(Word hash, Word word) {
    // With this bit set, letters are the same in either case. Other characters that become the same
    // are rare in keys, and told apart when they are compared.
    const Word anyCase = word | EachByte(0x20);
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15U;
    hash = (hash ^ anyCase) * static_cast<Word>(kGoldenRatio);
    return hash ^ hash >> (sizeof hash * 4);
}

}  // namespace

std::uint32_t HashInAnyCase(std::string_view text) {
    const char* at = text.data();
    std::size_t left = text.size();
    Word hash = left;
    for (; left >= sizeof(Word); left -= sizeof(Word)) {
        hash = Mix(hash, LoadWord(at));
        at += sizeof(Word);
    }
    return static_cast<std::uint32_t>(left == 0 ? hash : Mix(hash, LoadPart(at, left)));
}

bool SameInAnyCase(const char* a, const char* b, std::size_t count) {
    return SameByWords(a, b, count, IsSame);
}

}  // namespace paramgen
