/// One value of the image, and the conditions under which it is read.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "layout/name.h"
#include "param/common/field.h"
#include "param/common/names.h"

namespace paramgen::layout {

/// Full name of a key: module "devmng", section "gsensor", key "sensitivity".
struct KeyName {
    std::string module;
    std::string section;
    std::string key;

    friend bool operator==(const KeyName&, const KeyName&) = default;
};

/// "module/section:key".
std::string Text(const KeyName& name);

/// Full name of a key of the layout.
struct KeyView {
    Name module;
    Name section;
    Name key;

    operator KeyName() const { return {module, section, key}; }

    friend bool operator==(const KeyView& view, const KeyName& name) {
        return view.module == name.module && view.section == name.section && view.key == name.key;
    }
};

/// Kinds of conditions that must hold for a value to be read.
enum class ConditionKind : std::uint8_t {
    kCounted,         ///< the value at `count` is above `number`
    kLeading,         ///< all of `keys` exist; `count` is the number of leading elements
    kOptionalModule,  ///< the product has `module`
    kSearchedModule,  ///< one of the value's modules names the media mode at `wanted`
};

/// One condition. Offsets are bytes from the image's start.
struct Condition {
    ConditionKind kind = ConditionKind::kCounted;

    // kCounted, kLeading
    std::uint32_t number = 0;  ///< index of the element that the value is in
    std::uint32_t places = 0;  ///< number of elements that the array has room for
    std::uint32_t count = 0;   ///< offset of the array's count

    // kCounted
    CountBeyond beyond = CountBeyond::kNotCounted;  ///< what happens to elements beyond the array
    std::uint32_t largest = 0;  ///< kRefused, kSpilling: a larger count is an error

    // kLeading
    std::span<const KeyView> keys;  ///< of the elements before this one

    // kOptionalModule
    Name module;

    // kSearchedModule
    std::uint32_t wanted = 0;              ///< offset of the media mode that is searched for
    const ModuleSearch* search = nullptr;  ///< the search
};

/// One value: an element of a row that is not a nested record.
struct Value {
    const Field* field;    ///< kind, source, names, description, unit
    std::uint32_t offset;  ///< in the image, in bytes
    std::uint32_t size;    ///< in bytes
    Name record;           ///< member path of its record from the image: "devMng.gsensor"
    std::uint32_t number;  ///< of the element, in an array

    // With a key only; empty without.
    Name module;                    ///< "devmng"; "cam0_ldccfg_*" when a search finds it
    Name section;                   ///< "gsensor"
    Name key;                       ///< "sensitivity"
    std::span<const Name> modules;  ///< its module, or all that the search goes through

    std::span<const Condition> conditions;  ///< all of them must hold; the outermost first
    Name context;          ///< `About` of the innermost record around it that has one: "Volume"
    std::uint32_t origin;  ///< of a copy: the offset of the original; else its own offset
    std::uint32_t times;   ///< factor of the key's number when it is stored, mostly 1

    /// Its member path from the image: "devMng.gsensor.sensitivity".
    std::string Member() const;

    FieldKind Kind() const { return field->kind; }
    FieldSource Source() const { return field->source; }
    bool HasKey() const { return !key.empty(); }

    /// Whether it has a default: the value of a constant, or the value when the key is absent.
    /// Texts and names have none: their bytes stay zero when the key is absent.
    bool HasDefault() const;
    std::int32_t Default() const { return field->Number(); }

    /// The label that its loader logs when it fails; empty without a key.
    std::string Label() const;

    // The row's notes; empty when it has none.
    std::string About() const;
    std::string Unit() const;
    std::string Numbers() const;
};

/// The table of names of the numbers that `value` can hold; null when they have no names.
const NameTable* NamesOf(const Value& value);

/// The name of `number`; empty when it has none.
std::string NameOf(const NameTable& names, std::int32_t number);

/// The number of `name`; nothing when the table does not have it. The comparison is case-sensitive.
std::optional<std::int32_t> NumberOf(const NameTable& names, const std::string& name);

/// All names, in the order of the table.
std::vector<std::string> AllNames(const NameTable& names);

/// "bool", "i32", "u32", "u8", "i16", "u64", "f32", "text", "name", "record", "bytes".
const char* KindName(FieldKind kind);

/// "reader", "query", "loader", "constant", "copy", "table", "nobody".
const char* SourceName(FieldSource source);

}  // namespace paramgen::layout
