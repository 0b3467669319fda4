/// A second, plain reader of a product's INI files, for the tests alone. It shares nothing with the
/// program.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace paramgen::testing::independent {

/// The keys of one file: "section:key" in lower case, and the value. A section itself stands there
/// too, without a value.
using IniKeys = std::map<std::string, std::optional<std::string>>;

/// The modules of a product that could be read, by name.
using Product = std::map<std::string, IniKeys>;

/// A text in lower case, as sections and keys are stored.
std::string Lower(std::string text);

/// Reads the text of a file; nothing when one of its lines is wrong or too long.
std::optional<IniKeys> ReadIniText(const std::string& text);

/// Reads the entry file in `directory` and the modules that it names; relative paths start at
/// `directory`. Nothing when the entry file must be refused.
std::optional<Product> ReadProduct(const std::filesystem::path& directory);

}  // namespace paramgen::testing::independent
