/// Hashes of texts, and texts that are one in any case. ASCII letters alone have cases.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paramgen {

/// A number for `text`, and another one in every process, so that nobody can prepare texts of one
/// number. Nothing that outlives the process, or is seen outside of it, may depend on it.
std::uint32_t HashOf(std::string_view text);

/// The same, and texts that are one in any case have the same number.
std::uint32_t HashInAnyCase(std::string_view text);

/// Whether `count` characters at `a` are those at `b`, in any case.
bool SameInAnyCase(const char* a, const char* b, std::size_t count);

}  // namespace paramgen
