/// The values of an image in the forms in which people and programs take them.
#pragma once

#include <string>
#include <vector>

#include "image/entry.h"
#include "output/json.h"

namespace paramgen::image {

/// A table: offset, size, bytes, type, member, key, value, name and flags.
std::string TextDump(const std::vector<Entry>& entries);

/// The same with a header line, as RFC 4180 has it. In texts, what is no UTF-8 is U+FFFD; all bytes
/// are in `raw`.
std::string CsvDump(const std::vector<Entry>& entries);

/// The same as an object, schema 1.
output::Json JsonDump(const Image& image, const std::vector<Entry>& entries);

/// "module/section:key"; empty when the value has none.
std::string KeyOf(const layout::Value& value);

}  // namespace paramgen::image
