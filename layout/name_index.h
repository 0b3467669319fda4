/// Finds items of a list by the names of their keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "layout/value.h"

namespace paramgen::layout {

/// The numbers of a list's items, by their `name`. Names are compared case-insensitively.
class NameIndex {
public:
    /// The number of the item called `name`; the number of items when there is none.
    template <typename Item>
    std::size_t NumberOf(const KeyView& name, const std::vector<Item>& items) const {
        const std::uint32_t hash = Hash(name);
        for (std::size_t at = hash;; ++at) {
            const Slot& slot = slots_[at % slots_.size()];
            if (slot.number == kNone) {
                return items.size();
            }
            if (slot.hash == hash && IsSame(items[slot.number].name, name)) {
                return slot.number;
            }
        }
    }

    /// Adds the last of `items`, whose name is new.
    template <typename Item>
    void Add(const std::vector<Item>& items) {
        if (2 * items.size() > slots_.size()) {
            Grow();
        }
        Put({.hash = Hash(items.back().name),
             .number = static_cast<std::uint32_t>(items.size() - 1)});
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    /// An item, and the hash of its name.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = kNone;
    };

    static std::uint32_t Hash(const KeyView& name);
    static bool IsSame(const KeyView& a, const KeyView& b);

    /// Puts an item at the next free place of its name.
    void Put(const Slot& item);

    void Grow();

    std::vector<Slot> slots_ = std::vector<Slot>(1024);
};

}  // namespace paramgen::layout
