/// A second implementation of the reader of INI files, for tests. It shares no code with the
/// program.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace paramgen::testing::independent {

/// The keys of one file: "section:key" in lower case, and its value. It also holds every section,
/// without a value.
using IniKeys = std::map<std::string, std::optional<std::string>>;

/// The readable modules of a product, by name.
using Product = std::map<std::string, IniKeys>;

/// A text in lower case. Only ASCII letters change.
std::string Lower(std::string text);

/// Reads the text of a file; nothing when one of its lines is wrong or too long.
std::optional<IniKeys> ReadIniText(const std::string& text);

/// Reads the entry file in `directory` and the modules that it lists; relative paths refer to
/// `directory`. Nothing when the entry file must be refused.
std::optional<Product> ReadProduct(const std::filesystem::path& directory);

}  // namespace paramgen::testing::independent
