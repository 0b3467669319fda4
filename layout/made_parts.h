/// Generated parts of files that are otherwise written by hand.
#pragma once

#include <optional>
#include <string>

namespace paramgen::layout {

/// Returns `text` with its generated parts renewed. A generated part begins behind a line that
/// contains "made: NAME" and ends before the next line that contains "end of what is made". NAME is
/// "table PART", see `FormatTable`, or "fuzz words". When a part has another name or no end,
/// returns nothing and stores in `error` why.
std::optional<std::string> RenewMadeParts(const std::string& text, std::string* error);

}  // namespace paramgen::layout
