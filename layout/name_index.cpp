#include "layout/name_index.h"

#include <utility>

#include "confaccess/any_case.h"

namespace paramgen::layout {
namespace {

bool IsSameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && SameInAnyCase(a.data(), b.data(), a.size());
}

}  // namespace

std::uint32_t NameIndex::Hash(const KeyView& name) {
    std::uint32_t hash = HashInAnyCase(name.module);
    hash = hash * 31 + HashInAnyCase(name.section);
    return hash * 31 + HashInAnyCase(name.key);
}

bool NameIndex::IsSame(const KeyView& a, const KeyView& b) {
    return IsSameText(a.key, b.key) && IsSameText(a.section, b.section) &&
           IsSameText(a.module, b.module);
}

void NameIndex::Put(const Slot& item) {
    std::size_t at = item.hash;
    while (slots_[at % slots_.size()].number != kNone) {
        ++at;
    }
    slots_[at % slots_.size()] = item;
}

void NameIndex::Grow() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
    for (const Slot& slot : before) {
        if (slot.number != kNone) {
            Put(slot);
        }
    }
}

}  // namespace paramgen::layout
