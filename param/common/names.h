/// Enumeration names: how a name in an INI file becomes a number in the image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "safestr/short_text.h"

namespace paramgen {

/// How many characters of two names are compared. Every name in a table has fewer.
inline constexpr std::size_t kNameCompareMax = 64;

namespace names_detail {

// Never defined: a compiler that has to evaluate one of these names the mistake in a table.
void TheNameBeginsOtherwise();
void TheNameIsTooLong();

}  // namespace names_detail

/// A name that begins with `kPrefix`, and the number that stands for it in the image. What all
/// names of a table begin with is kept once: it would be half of the table.
template <const char* kPrefix, std::size_t kRestMax>
class NamedNumber {
public:
    consteval NamedNumber(std::string_view name, int number)
        : number_(static_cast<std::int16_t>(number)) {
        const std::string_view prefix = kPrefix;
        if (!name.starts_with(prefix)) {
            names_detail::TheNameBeginsOtherwise();
        }
        name.remove_prefix(prefix.size());
        if (name.size() > kRestMax || prefix.size() + name.size() >= kNameCompareMax) {
            names_detail::TheNameIsTooLong();
        }
        name.copy(rest_, kRestMax);
    }

    /// What the name goes on with after the prefix.
    constexpr const char* rest() const { return rest_; }
    constexpr std::int32_t number() const { return number_; }

private:
    std::int16_t number_;
    char rest_[kRestMax + 1] = {};
};

/// The number of `name` in `table`, of whose names it has to be one. Returns false when it is none.
template <const char* kPrefix, std::size_t kRestMax, std::size_t kCount>
bool FindName(const NamedNumber<kPrefix, kRestMax> (&table)[kCount], const char* name,
              std::int32_t* number) {
    const std::size_t prefixLength = std::string_view(kPrefix).size();
    if (name == nullptr || !SameText(kPrefix, name, prefixLength)) {
        return false;
    }
    for (const NamedNumber<kPrefix, kRestMax>& entry : table) {
        if (SameText(entry.rest(), name + prefixLength, kNameCompareMax - prefixLength)) {
            *number = entry.number();
            return true;
        }
    }
    return false;
}

}  // namespace paramgen
