/// Hashing and comparing texts, case-insensitively. Only ASCII letters have case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paramgen {

/// Returns a hash of `text`. It is seeded per process, so that nobody can prepare texts that
/// collide. Nothing may depend on it that outlives the process or is visible outside.
std::uint32_t HashOf(std::string_view text);

/// Returns a case-insensitive hash of `text`, seeded as well.
std::uint32_t HashInAnyCase(std::string_view text);

/// Returns whether the `count` characters at `a` and `b` are equal, case-insensitively.
bool SameInAnyCase(const char* a, const char* b, std::size_t count);

}  // namespace paramgen
