/// The walk over field tables: it lists every value of a record and of the records nested in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "layout/value.h"
#include "param/common/field.h"

namespace paramgen::layout {

/// The context of the record that a walk begins with.
struct WalkStart {
    std::string module;                  ///< the module that the record is read from
    std::string prefix;                  ///< the node that the record's loader is given
    std::vector<std::uint32_t> numbers;  ///< indices of the array elements around the record
};

/// The values of the record of `table`, in reading order. They cover it exactly once. Offsets and
/// member paths begin at the record.
std::vector<Value> Walk(const RecordTable& table, const WalkStart& start = {});

/// How names spell the indices of array elements.
enum class Indices : std::uint8_t {
    kNumbers,  ///< as they are read: "venc.1"
    kLetters,  ///< with a letter for each that has several values: "venc.N"
};

/// The values of a table whose members are sections, in the order of their offsets.
std::vector<Value> WalkSections(const RecordTable& table, Indices indices);

/// The values of elements beyond their arrays, for a table whose members are sections: elements
/// spill up to the end of their section.
std::vector<Value> WalkSpilled(const RecordTable& table);

}  // namespace paramgen::layout
