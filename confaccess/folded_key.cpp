#include "confaccess/folded_key.h"

#include <algorithm>
#include <cstring>

#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// The word with the bytes from 'A' to 'Z' in lower case.
Word FoldToLower(Word word) {
    // What is added to the low seven bits of a byte carries into its top bit from 'A' on, and from
    // behind 'Z' on.
    const Word low = word & EachByte(0x7F);
    const Word fromA = low + EachByte(0x80 - 'A');
    const Word behindZ = low + EachByte(0x7F - 'Z');
    const Word isUpper = fromA & ~behindZ & ~word & EachByte(0x80);
    return word | (isUpper >> 2);  // 0x80 becomes 0x20, the difference between the cases
}

}  // namespace

void FoldedKey::Append(std::string_view text) {
    std::size_t at = length_ / sizeof(Word) * sizeof(Word);
    const std::size_t taken = std::min(text.size(), kMax - length_);
    CopyText(text_ + length_, text.data(), taken);
    CutTo(length_ + taken);
    for (; at < length_; at += sizeof(Word)) {
        StoreWord(text_ + at, FoldToLower(LoadWord(text_ + at)));
    }
}

void FoldedKey::CutTo(std::size_t length) {
    length_ = length;
    StoreWord(text_ + length, 0);
}

std::uint32_t FoldedKey::Hash() const {
    Word hash = length_;
    for (std::size_t at = 0; at < length_; at += sizeof(Word)) {
        hash = (hash ^ LoadWord(text_ + at)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    return static_cast<std::uint32_t>(hash);
}

void FoldedKey::Store(char* dest) const {
    CopyText(dest, text_, StoredKeySize(length_));
}

bool FoldedKey::Is(const char* stored, std::size_t length) const {
    if (length != length_) {
        return false;
    }
    std::size_t at = 0;
    while (at < length && LoadWord(stored + at) == LoadWord(text_ + at)) {
        at += sizeof(Word);
    }
    return at >= length;
}

}  // namespace paramgen
