/// Products as files in memory, and changes of their text that do not change their meaning.
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

/// The regular files in a directory.
Tree ReadTree(const std::filesystem::path& directory);

/// The text with unknown keys and sections, comments and blank lines at random places.
std::string WithUnknownThings(Random& random, const std::string& text);

/// The text with its sections in another order. Lines before the first section stay there, and so
/// does a last line without a line end.
std::string WithSectionsReordered(Random& random, const std::string& text);

/// The text, which must end with a line end, with another value for `key` ("section:key").
std::string WithKey(const std::string& text, const std::string& key, const std::string& value);

}  // namespace paramgen::testing
