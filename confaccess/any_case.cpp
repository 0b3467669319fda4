#include "confaccess/any_case.h"

#include <sys/auxv.h>

#include "safestr/short_text.h"

// Texts are hashed and compared a word at a time, which takes a third of the time that bytes take.

namespace paramgen {
namespace {

/// Returns `word` with all upper-case letters in lower case.
Word ToLower(Word word) {
    // The additions set the top bit of a byte whose low seven bits are at least 'A', or above 'Z'.
    const Word low = word & EachByte(0x7F);
    const Word fromA = low + EachByte(0x80 - 'A');
    const Word behindZ = low + EachByte(0x7F - 'Z');
    const Word isUpper = fromA & ~behindZ & ~word & EachByte(0x80);
    return word | (isUpper >> 2);  // 0x80 becomes 0x20, the difference between the cases
}

bool IsSame(Word a, Word b) {
    return a == b || ToLower(a) == ToLower(b);
}

/// An integer with twice as many bits as a word.
#ifdef __SIZEOF_INT128__
__extension__ using DoubleWord = unsigned __int128;
#else
using DoubleWord = std::uint64_t;
#endif
static_assert(sizeof(DoubleWord) == 2 * sizeof(Word));

/// The random seed of all hashes of a process.
struct Secret {
    Word start;
    Word factor;
};

/// Makes a secret of the random bytes that the kernel gives each process at its start. Needs no
/// system call.
Secret NewSecret() noexcept {
    Secret secret = {.start = 0, .factor = static_cast<Word>(0x9E3779B97F4A7C15U)};
    const unsigned long address = getauxval(AT_RANDOM);  // of 16 bytes
    const void* random = nullptr;
    static_assert(sizeof random == sizeof address);
    std::memcpy(&random, &address, sizeof random);
    if (random != nullptr) {
        std::memcpy(&secret, random, sizeof secret);
    }
    secret.factor |= 1;
    return secret;
}

const Secret g_secret = NewSecret();

Word Mix(Word hash, Word word) {
    // Both halves of the product are used: the low bits of its lower half depend only on the low
    // bits of the word, whatever the factor is, so that the next word could cancel a difference.
    const DoubleWord product = DoubleWord{hash ^ word} * g_secret.factor;
    return static_cast<Word>(product) ^ static_cast<Word>(product >> (8 * sizeof(Word)));
}

std::uint32_t Hash(std::string_view text, bool inAnyCase) {
    const auto fold = [=](Word word) { return inAnyCase ? ToLower(word) : word; };
    const char* at = text.data();
    std::size_t left = text.size();
    Word hash = g_secret.start ^ left;
    for (; left >= sizeof(Word); left -= sizeof(Word)) {
        hash = Mix(hash, fold(LoadWord(at)));
        at += sizeof(Word);
    }
    return static_cast<std::uint32_t>(left == 0 ? hash : Mix(hash, fold(LoadPart(at, left))));
}

}  // namespace

std::uint32_t HashOf(std::string_view text) {
    return Hash(text, false);
}

std::uint32_t HashInAnyCase(std::string_view text) {
    return Hash(text, true);
}

bool SameInAnyCase(const char* a, const char* b, std::size_t count) {
    return SameByWords(a, b, count, IsSame);
}

}  // namespace paramgen
