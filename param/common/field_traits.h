/// How a record's member is read, decided by its type alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/values.h"

namespace paramgen {

/// How a value is converted from its text and stored.
enum class FieldKind : std::uint8_t {
    kBool,    ///< a boolean word
    kInt32,   ///< a signed number
    kUint32,  ///< a signed number, its 32 bits stored as they are
    kUint8,   ///< a signed number, its low byte stored
    kInt16,   ///< a signed number; one beyond 16 bits is an error
    kUint64,  ///< a signed 32-bit number, sign-extended to 64 bits
    kFloat,   ///< a double, converted to float
    kText,    ///< a text; one that does not fit with its terminator is an error
    kName,    ///< a name, stored as its number
    kRecord,  ///< a record with a table of its own
    kBytes,   ///< reserved bytes
};

/// Stores the number of `name`, and logs both. Returns -1, having logged it, for an unknown name.
/// It runs under the configuration's lock and must not query the configuration.
using NameLookup = Status (*)(const char* name, std::int32_t* number);

class NameTable;

/// Traits of a type that a member may have. An enumeration of names specialises it beside its
/// definition, with its look-up function and its table of names.
template <typename T>
struct FieldTraits;

template <FieldKind kind>
struct PlainFieldTraits {
    static constexpr FieldKind kKind = kind;
    static constexpr NameLookup Lookup = nullptr;
    static constexpr const NameTable* kNames = nullptr;
};

template <>
struct FieldTraits<Bool32> : PlainFieldTraits<FieldKind::kBool> {};
template <>
struct FieldTraits<std::int32_t> : PlainFieldTraits<FieldKind::kInt32> {};
template <>
struct FieldTraits<std::uint32_t> : PlainFieldTraits<FieldKind::kUint32> {};
template <>
struct FieldTraits<std::uint8_t> : PlainFieldTraits<FieldKind::kUint8> {};
template <>
struct FieldTraits<std::int16_t> : PlainFieldTraits<FieldKind::kInt16> {};
template <>
struct FieldTraits<std::uint64_t> : PlainFieldTraits<FieldKind::kUint64> {};
template <>
struct FieldTraits<float> : PlainFieldTraits<FieldKind::kFloat> {};
template <std::size_t N>
struct FieldTraits<char[N]> : PlainFieldTraits<FieldKind::kText> {};

}  // namespace paramgen
