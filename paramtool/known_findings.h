/// Findings that were there before, which --against hides.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "check/check.h"

namespace paramgen::paramtool {

class KnownFindings {
public:
    /// Those of a tree, or of a file that `paramtool check --format=json` wrote. Throws
    /// `output::UserError` when the file cannot be read, or is none.
    static KnownFindings Load(const std::string& treeOrFile, const check::Choice& choice);

    /// Removes from `findings` what is known, wherever it stands in its file now. Returns how many
    /// errors that were.
    std::size_t Remove(std::vector<diagnostics::Finding>* findings);

private:
    /// By what they say, the files in which they were found.
    std::multimap<std::string, std::string> files_;
};

}  // namespace paramgen::paramtool
