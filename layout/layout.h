/// The image as a list of values: what every byte of it is, and which key it comes from.
///
/// The values are listed from the program's field tables on the first call, the keys and patterns
/// when they are first asked for. The lists are kept until the process ends, so everything that
/// these functions refer to stays valid.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "layout/key_pattern.h"
#include "layout/value.h"

namespace paramgen::layout {

/// All values in the order of their offsets. They cover the image exactly once.
std::span<const Value> Values();

/// The value that owns the byte at `offset`; null when the image has no such byte.
const Value* ValueAt(std::uint32_t offset);

/// The values of elements beyond their arrays, up to the largest count that is not an error. They
/// own no bytes: they are stored in the bytes of other values.
std::span<const Value> SpilledValues();

/// The key of a value that owns bytes, with letters for the indices of elements: "venc.N:venchdl".
/// Its names are empty when the value has no key.
const KeyView& PatternOf(const Value& value);

/// What a key is for.
enum class KeyRole : std::uint8_t {
    kValue,   ///< it gives values of the image
    kSpill,   ///< it gives an element beyond its array, stored in the bytes behind it
    kSearch,  ///< it names the media mode that a module found by a search serves
    kEntry,   ///< it stands in the entry file; its module is empty
};

/// The keys of one table row, written with letters for the indices of elements: "venc.N:venchdl".
struct Pattern {
    KeyRole role;
    KeyView name;
    std::vector<const Value*> values;  ///< kValue: all values that the keys give, by offset
};

/// All patterns: first those with values, in the order of their first values, then those of
/// searches and of the entry file. No two have the same name.
std::span<const Pattern> Patterns();

/// One key that a run may ask for.
struct Key {
    KeyRole role;
    KeyView name;                          ///< with the module's real name
    std::span<const Value* const> values;  ///< kValue, kSpill: all values that it gives, by offset
};

/// All keys of all modules, with those of searches, and without those of spilled elements. The keys
/// of the entry file are left out: their number is not limited.
std::span<const Key> Keys();

/// The keys that only give elements beyond their arrays.
std::span<const Key> SpilledKeys();

/// The key with this name, compared case-insensitively; null when no table has it. Those of spilled
/// elements are found too. A module that is found by a search is given by its real name.
const Key* FindKey(std::string_view module, std::string_view section, std::string_view key);

/// `condition` in words: "while osd:osdcnt is above 3".
std::string Words(const Condition& condition);

/// The values that a KEY argument stands for, by offset.
std::vector<const Value*> Find(const KeyPattern& pattern);

/// The modules of a product, by name, in the order in which the image holds their values.
std::span<const std::string> Modules();

}  // namespace paramgen::layout
