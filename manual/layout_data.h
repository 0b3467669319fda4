/// Where everything lies, as data.
#pragma once

#include <string>

#include "output/json.h"

namespace paramgen::manual {

/// The layout with all that is known of each value, after schemas/layout.schema.json.
output::Json LayoutJson();

/// The same as a text with one value a line, so that two of them can be compared by lines.
std::string LayoutText();

/// An id of the layout: a hash of that text. Programs with the same one agree on where everything
/// lies and what it means.
std::string LayoutId();

/// The values' places as a table for spreadsheets: a row of titles, then one for each value.
std::string LayoutCsv();

/// `text` as a cell of such a table: in quotes when that is necessary.
std::string CsvCell(const std::string& text);

}  // namespace paramgen::manual
