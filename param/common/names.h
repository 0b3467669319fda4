/// Enumeration names: how a name in an INI file becomes a number in the image, and back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "confaccess/status.h"
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
    // The number comes first, then the rest of the name: `NameTable` reads them without this type.
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

/// The number of `name` in `table`, which must be one of its names. Returns false when it is none.
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

/// The names of one kind and their numbers, whatever the type of their table: for those who go
/// through all of them, and for the name of a number.
class NameTable {
public:
    template <const char* kPrefix, std::size_t kRestMax, std::size_t kCount>
    constexpr explicit NameTable(const NamedNumber<kPrefix, kRestMax> (&names)[kCount])
        : prefix_(kPrefix), names_(names), stride_(sizeof *names), count_(kCount) {}

    std::size_t Count() const { return count_; }

    /// What all names begin with.
    const char* Prefix() const { return prefix_; }

    /// What name `index`, in the table's order, goes on with.
    const char* Rest(std::size_t index) const { return At(index) + sizeof(std::int16_t); }

    /// The number of name `index`.
    std::int32_t Number(std::size_t index) const {
        std::int16_t number = 0;
        std::memcpy(&number, At(index), sizeof number);
        return number;
    }

    /// Stores where the first name for `number` stands; false when it has none.
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

/// A row's look-up (`NameLookup`) over the look-up `Get` of an enumeration.
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
