/// Enumeration names: how a name in an INI file becomes a number in the image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace paramgen {

/// How many characters of two names are compared.
inline constexpr std::size_t kNameCompareMax = 64;

/// A name and the number that stands for it in the image.
struct NamedNumber {
    const char* name;
    std::int32_t number;
};

/// The first entry of `table` whose first 64 characters agree with `name`'s, or null.
const NamedNumber* FindName(std::span<const NamedNumber> table, const char* name);

}  // namespace paramgen
