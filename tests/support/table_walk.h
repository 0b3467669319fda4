/// The walk of `layout/`, as the tests of sections use it: over the table of one record.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "param/common/field.h"

namespace paramgen::testing {

/// One value: an element of a row that is no nested record.
struct WalkedField {
    const Field* field;
    std::string module;  ///< of those that a search may find the first
    std::string key;     ///< full key, "node:item"; empty when the row has none
    std::string label;   ///< what a failing loader calls it
    std::size_t offset;  ///< from the start of the record that the walk began at
    std::string member;  ///< its path from there: "gsensor.sensitivity"
};

/// Walks `table`, whose record is read from `module` under `prefix`, in reading order. `numbers`
/// are the numbers of the array elements that lead to the record.
std::vector<WalkedField> WalkTable(const RecordTable& table, const std::string& module,
                                   const std::string& prefix = "",
                                   const std::vector<unsigned>& numbers = {},
                                   std::size_t offset = 0);

/// The fields of a walk, one a line: "OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL", with "-"
/// for what a field does not have. Defaults are given for fields with a key that may have one, and
/// for constants; for a copy its origin's offset within the record.
std::string Describe(const WalkedField& field);
std::vector<std::string> DescribeTable(const RecordTable& table, const std::string& module,
                                       const std::string& prefix = "",
                                       const std::vector<unsigned>& numbers = {});

}  // namespace paramgen::testing
