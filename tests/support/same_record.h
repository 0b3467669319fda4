/// Compares records and tells where they differ.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "param/common/field.h"
#include "support/table_walk.h"

namespace paramgen::testing {

/// Whether two records are the same. If not, the message tells the first offset at which they
/// differ, the member there, and both values of it.
::testing::AssertionResult SameRecord(const std::vector<WalkedField>& fields,
                                      const std::string& expected, const std::string& actual);
::testing::AssertionResult SameRecord(const RecordTable& table, const std::string& expected,
                                      const std::string& actual);

}  // namespace paramgen::testing
