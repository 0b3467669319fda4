/// Products as files in memory, and what can be done to their text without a change of meaning.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "golden/random_values.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// The files of a product: path within its directory, and bytes.
using Tree = std::map<std::string, std::string>;

/// The plain files in a directory.
Tree ReadTree(const std::filesystem::path& directory);

/// The text with unknown keys and sections, comments and blank lines at random places.
std::string WithUnknownThings(Random& random, const std::string& text);

/// The text with its sections in another order. What stands before the first one stays there, and
/// so does a last line that has no end.
std::string WithSectionsReordered(Random& random, const std::string& text);

/// The text, which ends with a line's end, with `key` ("section:key") given another value.
std::string WithKey(const std::string& text, const std::string& key, const std::string& value);

}  // namespace paramgen::testing
