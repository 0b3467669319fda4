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
        for (std::size_t at = Hash(name);; ++at) {
            const std::uint32_t number = slots_[at % slots_.size()];
            if (number == kNone) {
                return items.size();
            }
            if (IsSame(items[number].name, name)) {
                return number;
            }
        }
    }

    /// Adds the last of `items`, whose name is new.
    template <typename Item>
    void Add(const std::vector<Item>& items) {
        if (2 * items.size() > slots_.size()) {
            slots_.assign(2 * slots_.size(), kNone);
            for (std::uint32_t i = 0; i + 1 < items.size(); ++i) {
                Put(items[i].name, i);
            }
        }
        Put(items.back().name, static_cast<std::uint32_t>(items.size() - 1));
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    static std::size_t Hash(const KeyView& name);
    static bool IsSame(const KeyView& a, const KeyView& b);

    /// Puts a number at the next free place of its name.
    void Put(const KeyView& name, std::uint32_t number);

    std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(1024, kNone);
};

}  // namespace paramgen::layout
