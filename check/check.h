/// Everything that is wrong or suspicious in a product's tree.
///
/// What a value becomes, which keys are read and where the program stops is found by running its
/// own loaders and watching them: a finding is an error exactly when the program fails because of
/// it.
#pragma once

#include <string>
#include <vector>

#include "diagnostics/finding.h"

namespace paramgen::check {

/// Which kinds of findings are looked for. Each of the names is an id, a group or "all"; errors are
/// always told.
struct Choice {
    std::vector<std::string> enabled;   ///< besides those that are on anyway
    std::vector<std::string> disabled;  ///< wins

    bool IsOn(const diagnostics::Rule& rule) const;
};

/// What is wrong with a tree.
struct Verdict {
    std::vector<diagnostics::Finding> findings;  ///< sorted
    std::vector<std::string> lacking;            ///< listed modules that the image lacks
};

/// Checks the tree in `directory`. One thread at a time may do so (see `compile/session.h`).
Verdict Check(const std::string& directory, const Choice& choice);

}  // namespace paramgen::check
