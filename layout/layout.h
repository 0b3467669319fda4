/// The image as a list of values: what every byte of it is, and which key it comes from.
///
/// All of it is made from the program's field tables on the first call, and stays.
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

/// The values of elements that are counted beyond their arrays, up to the largest count that is no
/// error. They own no bytes: they are stored where other values lie.
std::span<const Value> SpilledValues();

/// What a key is for.
enum class KeyRole : std::uint8_t {
    kValue,   ///< it gives values of the image
    kSpill,   ///< it gives an element without a place in its array, stored behind it
    kSearch,  ///< it names the media mode that a module found by a search serves
    kEntry,   ///< it stands in the entry file; its module is empty
};

/// One row of keys, with letters for the numbers of elements: "venc.N:venchdl".
struct Pattern {
    KeyRole role;
    KeyName name;
    std::vector<const Value*> values;   ///< kValue: all that it gives, by offset
    std::vector<const Value*> spilled;  ///< kValue: further ones, of `SpilledValues()`
};

/// All rows of keys: those with values in the order of their first ones, then those of searches and
/// of the entry file. No two have the same name.
std::span<const Pattern> Patterns();

/// One key that a run may ask for.
struct Key {
    KeyRole role;
    KeyName name;                      ///< with the module's real name
    std::vector<const Value*> values;  ///< kValue, kSpill: all that it gives, by offset
    const Pattern* pattern;            ///< its row
};

/// All keys of all modules, spilled ones and those of searches included, without the entry file's,
/// which have no end.
std::span<const Key> Keys();

/// The key with this name, in any case; null when no table knows it. The module may be a searched
/// one's real name.
const Key* FindKey(std::string_view module, std::string_view section, std::string_view key);

/// `condition` of a value of the image in words: "while osd:osdcnt is above 3".
std::string Words(const Condition& condition);

/// The values that a KEY argument stands for, by offset.
std::vector<const Value*> Find(const KeyPattern& pattern);

/// The modules of a product, by name, in the order in which the image holds their values.
std::span<const std::string> Modules();

}  // namespace paramgen::layout
