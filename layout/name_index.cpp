#include "layout/name_index.h"

#include "confaccess/any_case.h"

namespace paramgen::layout {
namespace {

bool IsSameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && SameInAnyCase(a.data(), b.data(), a.size());
}

}  // namespace

std::size_t NameIndex::Hash(const KeyView& name) {
    std::size_t hash = HashInAnyCase(name.module);
    hash = hash * 31 + HashInAnyCase(name.section);
    return hash * 31 + HashInAnyCase(name.key);
}

bool NameIndex::IsSame(const KeyView& a, const KeyView& b) {
    return IsSameText(a.key, b.key) && IsSameText(a.section, b.section) &&
           IsSameText(a.module, b.module);
}

void NameIndex::Put(const KeyView& name, std::uint32_t number) {
    std::size_t at = Hash(name);
    while (slots_[at % slots_.size()] != kNone) {
        ++at;
    }
    slots_[at % slots_.size()] = number;
}

}  // namespace paramgen::layout
