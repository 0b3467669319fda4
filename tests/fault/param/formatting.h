/// Fault injection: makes the bounded formatter fail. The test program is linked with a wrapper
/// around it.
#pragma once

#include <functional>
#include <string>

namespace paramgen::testing {

/// A formatted text, and the format that it was made with.
struct Formatted {
    std::string format;
    std::string text;
};

/// Calls `fits` with every formatted text from now on; when it returns false the formatter fails,
/// as if the text did not fit. An empty function ends this.
void WatchFormatting(std::function<bool(const Formatted&)> fits);

}  // namespace paramgen::testing
