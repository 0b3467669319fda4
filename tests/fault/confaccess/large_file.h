/// A file for tests of memory that runs out.
#pragma once

#include <string>

namespace paramgen::testing {

/// A file that is larger than a chunk of an arena, so that its text and its dictionary each get
/// memory of their own.
inline std::string LargeFile() {
    std::string bytes = "[s]\n";
    while (bytes.size() < std::size_t{300} * 1024) {
        bytes += "key" + std::to_string(bytes.size()) + " = 1\n";
    }
    return bytes;
}
/// Allocations for it, with the chunk that holds the dictionary object.
inline constexpr int kLargeFileAllocations = 4;

}  // namespace paramgen::testing
