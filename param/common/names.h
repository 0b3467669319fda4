/// Tables of names: from a name in an INI file to its number in the image, and back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "confaccess/status.h"
#include "safestr/short_text.h"

namespace paramgen {

/// Names are compared up to this many characters. Every name in a table has fewer.
inline constexpr std::size_t kNameCompareMax = 64;

namespace names_detail {

// Never defined: a mistake in a table makes the compiler refuse a call of one, and name it.
void TheNameBeginsOtherwise();
void TheNameIsTooLong();

}  // namespace names_detail

/// A name that begins with `kPrefix`, and its number in the image. Only the rest of the name is
/// stored: the prefix, which all names of a table share, would be half of the table.
template <const char* kPrefix, std::size_t kRestMax>
class NamedNumber {
    // The number comes first, then the rest of the name: `NameTable` depends on this order.
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

    /// The name without its prefix.
    constexpr const char* rest() const { return rest_; }
    constexpr std::int32_t number() const { return number_; }

private:
    std::int16_t number_;
    char rest_[kRestMax + 1] = {};
};

/// Stores the number of `name` in `table`. Returns false, storing nothing, when `table` has no such
/// name or `name` is null. The comparison is case-sensitive.
template <const char* kPrefix, std::size_t kRestMax, std::size_t kCount>
bool FindNumber(const NamedNumber<kPrefix, kRestMax> (&table)[kCount], const char* name,
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

/// A table of names without its template parameters, to go through all of its names and to find the
/// name of a number. It refers to the array that it is made from.
class NameTable {
public:
    template <const char* kPrefix, std::size_t kRestMax, std::size_t kCount>
    constexpr explicit NameTable(const NamedNumber<kPrefix, kRestMax> (&names)[kCount])
        : prefix_(kPrefix), names_(names), stride_(sizeof *names), count_(kCount) {}

    std::size_t Count() const { return count_; }

    /// The prefix of all names.
    const char* Prefix() const { return prefix_; }

    /// Name `index`, in the table's order, without the prefix.
    const char* Rest(std::size_t index) const { return At(index) + sizeof(std::int16_t); }

    /// The number of name `index`.
    std::int32_t Number(std::size_t index) const {
        std::int16_t number = 0;
        std::memcpy(&number, At(index), sizeof number);
        return number;
    }

    /// Stores the index of the first name of `number`. Returns false when it has none.
    bool FindName(std::int32_t number, std::size_t* index) const;

private:
    const char* At(std::size_t index) const {
        return static_cast<const char*>(names_) + index * stride_;
    }

    const char* prefix_;
    const void* names_;
    std::uint8_t stride_;
    std::uint8_t count_;
};

/// `Get`, the look-up function of an enumeration, as a row calls it (`NameLookup`).
template <typename Enum, Status (*Get)(const char* name, Enum* value)>
Status LookUpNumber(const char* name, std::int32_t* number) {
    Enum value = {};
    const Status status = Get(name, &value);
    if (status == kOk) {
        *number = value;
    }
    return status;
}

}  // namespace paramgen
