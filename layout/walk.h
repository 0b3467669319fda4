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

/// The result of a walk. Offsets and member paths begin at the record.
struct Walked {
    std::vector<Value> values;   ///< in reading order; they cover the record exactly once
    std::vector<Value> spilled;  ///< those of elements beyond their arrays
};

/// Walks `table`. Elements beyond their arrays spill up to the record's end.
Walked Walk(const RecordTable& table, const WalkStart& start = {});

/// Walks `table`, whose members are sections. Elements spill up to the end of their section.
Walked WalkSections(const RecordTable& table);

}  // namespace paramgen::layout
