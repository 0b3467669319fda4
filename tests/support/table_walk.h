/// The table walk of `layout/`, for tests of sections: over the table of one record.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "param/common/field.h"

namespace paramgen::testing {

/// One value: an element of a row that is not a nested record.
struct WalkedField {
    const Field* field;
    std::string module;  ///< of several that a search may find, the first
    std::string key;     ///< full key, "node:item"; empty when the row has none
    std::string label;   ///< the label that its loader logs when it fails
    std::size_t offset;  ///< in bytes from the start of the walked record
    std::string member;  ///< member path from that record: "gsensor.sensitivity"
};

/// Walks `table`, whose record is read from `module` under `prefix`, in reading order. `numbers`
/// are the indices of the array elements around the record.
std::vector<WalkedField> WalkTable(const RecordTable& table, const std::string& module,
                                   const std::string& prefix = "",
                                   const std::vector<unsigned>& numbers = {},
                                   std::size_t offset = 0);

/// A field in one line: "OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL", with "-" for what it
/// does not have. DEFAULT is also the value of a constant, and the original's offset of a copy.
std::string Describe(const WalkedField& field);
std::vector<std::string> DescribeTable(const RecordTable& table, const std::string& module,
                                       const std::string& prefix = "",
                                       const std::vector<unsigned>& numbers = {});

}  // namespace paramgen::testing
