/// What could stand next on a command line, for shells that complete it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace paramgen::paramtool {

/// What a word could become.
struct Candidate {
    std::string text;  ///< the whole word; one that ends in '/', ':' or '=' is to be gone on with
    std::string description;  ///< one line, or empty
};

/// Whether paths are possible as well. The shell itself completes them.
enum class Paths { kNone, kFiles, kDirectories };

struct Completion {
    std::vector<Candidate> candidates;
    Paths paths = Paths::kNone;
};

/// What the last of `words` could become, behind the others, on the command line of `app`. The
/// program's own name is not among the words; the last one may be empty.
Completion Complete(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace paramgen::paramtool
