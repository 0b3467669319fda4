/// What a run said, line by line, in a form that tests can spell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace paramgen::testing {

using Lines = std::vector<std::string>;

/// The lines of an output, empty ones left out. A console record reads "LEVEL FUNCTION: MESSAGE",
/// and time stamps read "[time]".
Lines Said(std::string_view output);

/// The first line, and the last; empty when nothing was said.
inline std::string FirstOf(const Lines& lines) {
    return lines.empty() ? "" : lines.front();
}
inline std::string LastOf(const Lines& lines) {
    return lines.empty() ? "" : lines.back();
}

/// Whether the lines are all that a failure of this code says when a query for a value failed: what
/// the query says, then one record for each level, from the reader or loader up to `main`.
bool IsChain(const Lines& lines, const std::string& code);

/// The same when a key did not fit its buffer: the innermost record names no code.
bool IsFormattingChain(const Lines& lines);

}  // namespace paramgen::testing
