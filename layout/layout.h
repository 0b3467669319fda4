/// The image as a list of values: what every byte of it is, and which key it comes from.
///
/// The list is made from the program's field tables on the first call and kept until the process
/// ends, so everything that these functions refer to stays valid.
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
    KeyName name;
    std::vector<const Value*> values;   ///< kValue: all values that the keys give, by offset
    std::vector<const Value*> spilled;  ///< kValue: those of `SpilledValues()`
};

/// All patterns: first those with values, in the order of their first values, then those of
/// searches and of the entry file. No two have the same name.
std::span<const Pattern> Patterns();

/// One key that a run may ask for.
struct Key {
    KeyRole role;
    KeyName name;                      ///< with the module's real name
    std::vector<const Value*> values;  ///< kValue, kSpill: all values that it gives, by offset
    const Pattern* pattern;            ///< the pattern that it belongs to
};

/// All keys of all modules, with those of spilled elements and of searches. The keys of the entry
/// file are left out: their number is not limited.
std::span<const Key> Keys();

/// The key with this name, compared case-insensitively; null when no table has it. A module that is
/// found by a search is given by its real name.
const Key* FindKey(std::string_view module, std::string_view section, std::string_view key);

/// `condition` in words: "while osd:osdcnt is above 3".
std::string Words(const Condition& condition);

/// The values that a KEY argument stands for, by offset.
std::vector<const Value*> Find(const KeyPattern& pattern);

/// The modules of a product, by name, in the order in which the image holds their values.
std::span<const std::string> Modules();

}  // namespace paramgen::layout
