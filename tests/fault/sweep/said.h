/// The output of a run, line by line, in a form that tests can write down.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace paramgen::testing {

using Lines = std::vector<std::string>;

/// The lines of an output, empty ones left out. A console record reads "LEVEL FUNCTION: MESSAGE",
/// and time stamps read "[time]".
Lines Said(std::string_view output);

/// The first line, and the last; empty when there is none.
inline std::string FirstOf(const Lines& lines) {
    return lines.empty() ? "" : lines.front();
}
inline std::string LastOf(const Lines& lines) {
    return lines.empty() ? "" : lines.back();
}

/// Whether the lines are exactly those of a key that did not fit its buffer: a record without a
/// code, then one for each caller, from the loader up to `main`.
bool IsFormattingChain(const Lines& lines);

}  // namespace paramgen::testing
