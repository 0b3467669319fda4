/// What each of the compared readers does for the benchmark, in a program of its own.
#pragma once

#include <cstddef>

/// A key in the forms that the readers want it in.
struct BenchKey {
    char section[32];
    char name[32];
    char joined[64];  ///< section:name
    char dotted[64];  ///< section.name
};

// Plain names, and functions of their own however the program is optimised, for callgrind to
// collect between.
extern "C" {

/// Loads the file, and keeps what was loaded for good. Returns 0 when it has failed.
[[gnu::noinline]] int BenchLoad(const char* path);

/// The sum of the keys' values as integers; a value that is none counts 0.
[[gnu::noinline]] long BenchSum(const BenchKey* keys, std::size_t count);
}
