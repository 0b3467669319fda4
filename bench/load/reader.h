/// The interface of the compared readers. Each is linked into a program of its own.
#pragma once

#include <cstddef>

/// A key in the forms that the readers need.
struct BenchKey {
    char section[32];
    char name[32];
    char joined[64];  ///< section:name
    char dotted[64];  ///< section.name
};

// C names, and never inlined, so that callgrind can count only inside of them.
extern "C" {

/// Loads the file, and keeps it loaded. Returns 0 on failure.
[[gnu::noinline]] int BenchLoad(const char* path);

/// The sum of the keys' values as integers; other values count as 0.
[[gnu::noinline]] long BenchSum(const BenchKey* keys, std::size_t count);
}
