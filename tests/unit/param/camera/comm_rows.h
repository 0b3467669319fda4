/// Helpers for tests of the camera's common settings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/product_tree.h"
#include "support/row_checks.h"

namespace paramgen::testing {

/// A 32-bit word of a record: its offset, its kind and its key.
struct WordRow {
    std::size_t offset;
    std::string kind;  ///< "bool", "i32" or "u32"
    std::string item;
    std::string label = {};  ///< of a failure, when that is not the item
};

/// The lines of `DescribeTable` for `rows` of a record at offset `start`, which are read from
/// module "m" under `node` with default 0.
inline std::vector<std::string> DescribeWords(std::size_t start, const std::string& node,
                                              const std::vector<WordRow>& rows,
                                              const std::string& source = "reader") {
    std::vector<std::string> lines;
    for (const WordRow& row : rows) {
        lines.push_back(std::to_string(start + row.offset) + " 4 " + row.kind + " " + source +
                        " m " + node + ":" + row.item + " 0 " +
                        (row.label.empty() ? row.item : row.label));
    }
    return lines;
}

/// Appends `more` to `lines`.
inline void Append(std::vector<std::string>* lines, const std::vector<std::string>& more) {
    lines->insert(lines->end(), more.begin(), more.end());
}

/// Puts a 32-bit word into a record's expected bytes.
inline void PutWord(std::string* record, std::size_t offset, std::int64_t value) {
    record->replace(offset, 4, LittleEndian(value, 4));
}

/// A product whose only module is "m".
inline ProductTree EmptyModule() {
    return ProductTree().AddModule("m");
}

}  // namespace paramgen::testing
