/// Comments that silence warnings: "; paramtool: ignore ID (reason)".
///
/// At the end of a line or alone above it, such a comment is for this line; at a section's header
/// or alone above one, for the section; before the first section, for the file. In the entry file
/// it may name a path behind the id, and is then for what is found about that file as a whole.
#pragma once

#include <functional>
#include <vector>

#include "diagnostics/finding.h"
#include "tree/product.h"

namespace paramgen::diagnostics {

/// Whether a check was made, so that a suppression of it can be told to be unneeded.
using WasMade = std::function<bool(const Rule& rule)>;

/// Removes the warnings that comments of the tree silence, and adds what is wrong with these
/// comments. Errors stay.
void ApplySuppressions(const tree::Product& product, const WasMade& wasMade,
                       std::vector<Finding>* findings);

}  // namespace paramgen::diagnostics
