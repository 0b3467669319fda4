/// One value of the image, and under which condition it is read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "param/common/field.h"
#include "param/common/names.h"

namespace paramgen::layout {

/// Where a value comes from: module "devmng", section "gsensor", key "sensitivity".
struct KeyName {
    std::string module;
    std::string section;
    std::string key;

    friend bool operator==(const KeyName&, const KeyName&) = default;
};

/// "module/section:key".
std::string Text(const KeyName& name);

/// What must hold for a value to be read.
enum class ConditionKind : std::uint8_t {
    kCounted,         ///< the value at `count` is above `number`
    kLeading,         ///< all of `keys` are there; the value at `count` says how many lead
    kOptionalModule,  ///< the product has `module`
    kSearchedModule,  ///< one of the value's modules names the media mode at `wanted`
};

/// One condition. Offsets are bytes from the image's start.
struct Condition {
    ConditionKind kind = ConditionKind::kCounted;

    // kCounted, kLeading
    std::uint32_t number = 0;  ///< of the element that the value is in
    std::uint32_t places = 0;  ///< elements that the array has
    std::uint32_t count = 0;   ///< offset of the value that counts them

    // kCounted
    CountBeyond beyond = CountBeyond::kNotCounted;  ///< what becomes of elements without a place
    std::uint32_t largest = 0;  ///< kRefused, kSpilling: a larger count is an error

    // kLeading
    std::vector<KeyName> keys;  ///< of the elements before this one

    // kOptionalModule
    std::string module;

    // kSearchedModule
    std::uint32_t wanted = 0;              ///< offset of the media mode that is looked for
    const ModuleSearch* search = nullptr;  ///< where each module names its own
};

/// One value: an element of a row that is no nested record.
struct Value {
    const Field* field;    ///< kind, source, names, description, unit
    std::uint32_t offset;  ///< in the image, in bytes
    std::uint32_t size;    ///< in bytes
    std::string member;    ///< where it stands in the image: "devMng.gsensor.sensitivity"

    // With a key only; empty without.
    std::string module;                ///< "devmng"; "cam0_ldccfg_*" when a search finds it
    std::string section;               ///< "gsensor"
    std::string key;                   ///< "sensitivity"
    std::string label;                 ///< what a loader that fails at it calls it
    std::vector<std::string> modules;  ///< all that it may come from: one, or those of the search
    KeyName pattern;  ///< the same key with letters for numbers of elements: "venc.N" "venchdl"

    std::vector<Condition> conditions;  ///< all of them must hold; the outermost first
    std::uint32_t origin;  ///< of a copy: the offset of what it repeats; else its own offset
    std::string context;   ///< what the records around it are, where a row says so: "Volume"
    std::uint32_t times;   ///< the number that the key gives is stored multiplied by this, mostly 1

    FieldKind Kind() const { return field->kind; }
    FieldSource Source() const { return field->source; }
    bool HasKey() const { return !key.empty(); }

    /// Whether an absent key, or a constant, stands for `Default()`. Texts and names have none: an
    /// absent key leaves their bytes zero.
    bool HasDefault() const;
    std::int32_t Default() const { return field->Number(); }

    // What the row says of it; empty when it says nothing.
    std::string About() const;
    std::string Unit() const;
    std::string Numbers() const;
};

/// The names of the numbers that `value` can hold; null when they have none.
const NameTable* NamesOf(const Value& value);

/// The name of `number`; empty when it has none.
std::string NameOf(const NameTable& names, std::int32_t number);

/// The number of `name`, compared to the letter.
std::optional<std::int32_t> NumberOf(const NameTable& names, const std::string& name);

/// All names, in the order of the table.
std::vector<std::string> AllNames(const NameTable& names);

/// "bool", "i32", "u32", "u8", "i16", "u64", "f32", "text", "name", "record", "bytes".
const char* KindName(FieldKind kind);

/// "reader", "query", "loader", "constant", "copy", "table", "nobody".
const char* SourceName(FieldSource source);

}  // namespace paramgen::layout
