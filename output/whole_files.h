/// Several files that change together, or not at all.
#pragma once

#include <string>
#include <vector>

namespace paramgen::output {

/// A file and what it is to hold.
struct NewContent {
    std::string path;
    std::string bytes;
};

/// Writes all files: each to a temporary file beside it, which is flushed; when all of them are,
/// they are renamed one after the other. A file that is there keeps its rights and its owner, and a
/// link stays one: what it leads to is replaced. Throws `UserError` when anything fails; all files
/// are then as they were.
void WriteWholeFiles(const std::vector<NewContent>& files);

}  // namespace paramgen::output
