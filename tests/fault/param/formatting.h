/// Texts that do not fit when a test wants it. A program has them when it is linked so that calls
/// of the bounded formatter come by here first.
#pragma once

#include <functional>
#include <string>

namespace paramgen::testing {

/// A text that was put together from a template.
struct Formatted {
    std::string format;
    std::string text;
};

/// Has every text shown to `fits`, after it was formatted: the answer no makes the formatter fail.
/// An empty function ends this.
void WatchFormatting(std::function<bool(const Formatted&)> fits);

}  // namespace paramgen::testing
