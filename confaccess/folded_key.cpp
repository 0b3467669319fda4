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
    const std::size_t taken = std::min(text.size(), kMax - length_);
    const char* from = text.data();
    char* to = text_ + length_;
    if (taken < sizeof(Word)) {
        StoreWord(to, FoldToLower(LoadPart(from, taken)));
    } else {
        const std::size_t last = taken - sizeof(Word);
        for (std::size_t at = 0; at < last; at += sizeof(Word)) {
            StoreWord(to + at, FoldToLower(LoadWord(from + at)));
        }
        StoreWord(to + last, FoldToLower(LoadWord(from + last)));
    }
    CutTo(length_ + taken);
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

bool FoldedKey::HasAt(std::size_t at, std::string_view text) const {
    const char* own = text_ + at;
    const char* other = text.data();
    if (text.size() < sizeof(Word)) {
        return LoadPart(own, text.size()) == FoldToLower(LoadPart(other, text.size()));
    }
    const std::size_t last = text.size() - sizeof(Word);
    for (std::size_t i = 0; i < last; i += sizeof(Word)) {
        if (LoadWord(own + i) != FoldToLower(LoadWord(other + i))) {
            return false;
        }
    }
    return LoadWord(own + last) == FoldToLower(LoadWord(other + last));
}

}  // namespace paramgen
