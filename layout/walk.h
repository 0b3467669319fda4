/// The walk over field tables: from a record down to every value in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "layout/value.h"
#include "param/common/field.h"

namespace paramgen::layout {

/// Where a walk begins.
struct WalkStart {
    std::string module;                  ///< that the record is read from
    std::string prefix;                  ///< the node that its loader is given
    std::vector<std::uint32_t> numbers;  ///< of the array elements that lead to the record
};

/// What a walk finds. Offsets and member paths begin at the record.
struct Walked {
    std::vector<Value> values;   ///< in reading order; they cover the record exactly once
    std::vector<Value> spilled;  ///< of elements that are counted but have no place
};

/// Walks `table`. Elements spill up to the record's end.
Walked Walk(const RecordTable& table, const WalkStart& start = {});

/// Walks `table`, whose members are sections: elements spill up to the end of theirs.
Walked WalkSections(const RecordTable& table);

}  // namespace paramgen::layout
