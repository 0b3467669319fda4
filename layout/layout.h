/// The image as a list of values: what every byte of it is, and which key it comes from.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "param/common/field.h"

namespace paramgen::layout {

/// One value: an element of a row that is no nested record.
struct Value {
    const Field* field;    ///< kind, source, default, names, description, unit
    std::uint32_t offset;  ///< in the image, in bytes
    std::uint32_t size;    ///< in bytes
    std::string member;    ///< where it stands in the image: "devMng.gsensor.sensitivity"
    std::string module;   ///< "devmng"; "cam0_ldccfg_*" when a search finds it; empty without a key
    std::string section;  ///< "gsensor"; empty without a key
    std::string key;      ///< "sensitivity"; empty without a key
    std::string label;    ///< what a loader that fails at it calls it
};

/// All values in the order of their offsets. They cover the image exactly once. Made on the first
/// call.
std::span<const Value> Values();

/// The value that owns the byte at `offset`; null when the image has no such byte.
const Value* ValueAt(std::uint32_t offset);

}  // namespace paramgen::layout
