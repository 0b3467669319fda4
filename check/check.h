/// Finds everything that is wrong or suspicious in a product's tree.
///
/// It runs the program's own loaders and observes them, to learn how values are stored, which keys
/// are read and where the program stops. So a finding is an error exactly when the program fails
/// because of it.
#pragma once

#include <string>
#include <vector>

#include "diagnostics/finding.h"

namespace paramgen::check {

/// The kinds of findings to search for. Each name is an id, a group or "all". Errors are always
/// reported.
struct Choice {
    std::vector<std::string> enabled;   ///< in addition to those that are on by default
    std::vector<std::string> disabled;  ///< takes precedence over `enabled`

    bool IsOn(const diagnostics::Rule& rule) const;
};

/// The result of checking a tree.
struct Verdict {
    std::vector<diagnostics::Finding> findings;  ///< sorted
    std::vector<std::string> lacking;            ///< listed modules that the image lacks
};

/// Checks the tree in `directory`. One thread at a time may do so (see `compile/session.h`).
Verdict Check(const std::string& directory, const Choice& choice);

}  // namespace paramgen::check
