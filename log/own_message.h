/// Messages of the library log about itself.
#pragma once

#include "log/output.h"

namespace paramgen {

/// Prints "[function]line: message" to standard output. `line` is the fixed number that identifies
/// the message.
inline void PrintOwnMessage(const char* function, int line, const char* text) {
    PrintOutput("[%s]%d: %s\n", function, line, text);
}

}  // namespace paramgen
