/// What the library log has to say about itself.
#pragma once

#include "log/output.h"

namespace paramgen {

/// Prints a message of the step `function` to standard output. `line` is the number that the step
/// goes by in this message.
inline void PrintOwnMessage(const char* function, int line, const char* text) {
    PrintOutput("[%s]%d: %s\n", function, line, text);
}

}  // namespace paramgen
