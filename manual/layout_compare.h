/// What changes of a layout mean for those who read images by the old one.
#pragma once

#include <string>
#include <vector>

#include "output/json.h"

namespace paramgen::manual {

/// One difference between two layouts.
struct LayoutChange {
    std::string kind;  ///< "moved", "resized", "retyped", "vanished", "renamed", "rekeyed", "added"
    std::string member;  ///< in the old layout; of what is added, in the new one
    std::string text;    ///< "from 24316 to 24320"
    bool misreads;       ///< whether an old reader would take the value for something else
};

/// The differences from `before` to `after`, both as `LayoutJson` makes them; in the order of the
/// old offsets, what is added last. Throws `output::UserError` when one is no layout.
std::vector<LayoutChange> CompareLayouts(const output::Json& before, const output::Json& after);

}  // namespace paramgen::manual
