/// What the layout says about decompiling, looked up once.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "decompile/keys.h"
#include "layout/layout.h"

namespace paramgen::decompile {

/// An element that a count reaches.
struct CountedElement {
    std::uint32_t number;  ///< it is there when the count is above this
    std::uint32_t offset;
    std::uint32_t size;
};

/// A key that counts by being there.
struct LeadingKey {
    std::uint32_t count;   ///< offset of the number of those that lead
    std::uint32_t number;  ///< its own
};

/// The value that a key gives when it goes to `offset`; null for a key that gives none.
const layout::Value* ValueOf(KeyId key, std::uint32_t offset);

/// Elements by the offset of what counts them.
const std::map<std::uint32_t, std::vector<CountedElement>>& CountedElements();

/// Whether a key whose value goes to `offset` counts elements. Another key's element may be stored
/// at the same place.
bool IsCount(KeyId key, std::uint32_t offset);

/// Keys that count by being there.
const std::unordered_map<KeyId, LeadingKey>& LeadingKeys();

/// Whether a module may be left out.
bool IsOptional(const std::string& module);

/// Names of modules that every product has, in the order in which the image holds their values.
const std::vector<std::string>& NeededModules();

}  // namespace paramgen::decompile
