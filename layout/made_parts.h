/// Files that people write, with parts that are made from the field tables.
#pragma once

#include <optional>
#include <string>

namespace paramgen::layout {

/// `text` with its made parts renewed. A made part begins behind a line that contains
/// "made: NAME" and ends before the next one that contains "end of what is made". NAME is "table
/// PART", see `FormatTable`, or "fuzz words". Empty, with what is wrong in `error`, when a part has
/// no such name or no end.
std::optional<std::string> RenewMadeParts(const std::string& text, std::string* error);

}  // namespace paramgen::layout
