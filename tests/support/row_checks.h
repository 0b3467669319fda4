/// Checks of every row of a section's tables, through the section's loader.
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

/// A text for a key, and the bytes that must be stored for it.
struct Probe {
    std::string text;
    std::string bytes;
};

/// A record, its loader, and a product in which every row of the record is read.
struct RowSubject {
    std::vector<WalkedField> fields;           ///< the walk over the record's table
    std::size_t size;                          ///< of the record, in bytes
    std::function<Status(void* record)> load;  ///< fills the record from the registered product
    ProductTree base;  ///< the modules, with counts that are large enough for every row
    std::map<std::string, Probe> probes = {};  ///< probes of keys that need special ones
    std::set<std::string> unreachable = {};    ///< full keys that are not read even so
};

/// Checks that, with `base` alone, every key has its default, every constant its value and every
/// copy the bytes of its original, and that reserved bytes are zero. Skips keys that `base` sets
/// and members that the loader computes.
void CheckAbsentKeys(const RowSubject& subject);

/// Checks that every key, set alone on top of `base`, changes its own bytes and those of its copies
/// to the probe's, and no others. Skips keys that `base` sets.
void CheckSetKeys(const RowSubject& subject);

/// Checks that every key that can fail does so for a bad value: with -1, and with the records of
/// its reader and of its label first. Skips rows that loaders read with code of their own.
void CheckBadValues(const RowSubject& subject);

/// Makes all three checks.
void CheckRows(const RowSubject& subject);

/// The record that `load` fills from a tree. When it fails, so does the test, and the record is
/// empty.
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
