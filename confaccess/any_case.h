/// Texts that are one in any case. ASCII letters alone have cases.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paramgen {

/// A number for `text`, the same in any case.
std::uint32_t HashInAnyCase(std::string_view text);

/// Whether `count` characters at `a` are those at `b`, in any case.
bool SameInAnyCase(const char* a, const char* b, std::size_t count);

}  // namespace paramgen
