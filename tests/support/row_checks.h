/// Checks that every row of a section's tables does what it says, through the section's loader.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "param/common/field.h"
#include "support/bytes.h"
#include "support/product_tree.h"
#include "support/table_walk.h"

namespace paramgen::testing {

/// A text for a key, and the bytes that it must put into the image.
struct Probe {
    std::string text;
    std::string bytes;
};

/// A record, its loader, and what it takes to reach every one of its rows.
struct RowSubject {
    std::vector<WalkedField> fields;           ///< the walk over the record's table
    std::size_t size;                          ///< of the record, in bytes
    std::function<Status(void* record)> load;  ///< fills the record from the registered product
    ProductTree base;  ///< the modules, and the counts that make every row be read
    std::map<std::string, Probe> probes = {};  ///< for keys that take no ordinary value
    std::set<std::string> unreachable = {};    ///< full keys that `base` does not reach
};

/// With only `base`, every key's bytes are those of its default, every constant's its value, every
/// copy's those of what it repeats, and reserved bytes are zero. Keys that `base` sets are left
/// out, and so are members that the loader works out.
void CheckAbsentKeys(const RowSubject& subject);

/// Every key, set alone on top of `base`, changes its own bytes (and those of its copies) to what
/// its text stands for, and no others. Keys that `base` sets are left out.
void CheckSetKeys(const RowSubject& subject);

/// Every key that can fail, given a bad value, fails with -1 and with the records of its reader and
/// its label as the first ones. Rows that loaders read in their own way are left out.
void CheckBadValues(const RowSubject& subject);

/// All three.
void CheckRows(const RowSubject& subject);

/// The record that `load` makes of a tree; empty, with a failed expectation, when it fails.
std::string LoadRecord(const ProductTree& tree, std::size_t size,
                       const std::function<Status(void* record)>& load);

/// The status of a load, and what it printed.
struct LoadResult {
    Status status;
    std::string output;
    std::string record;
};
LoadResult RunLoad(const ProductTree& tree, std::size_t size,
                   const std::function<Status(void* record)>& load);

}  // namespace paramgen::testing
