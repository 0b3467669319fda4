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

/// Whether the lines are all that is said when a key did not fit its buffer: the innermost record,
/// which names no code, then one for each level, from the loader up to `main`.
bool IsFormattingChain(const Lines& lines);

}  // namespace paramgen::testing
