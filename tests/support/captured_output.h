/// Captures what code under test prints.
#pragma once

#include <functional>
#include <string>

namespace paramgen::testing {

/// Runs `code` and returns everything that it writes to standard output.
std::string CaptureStdout(const std::function<void()>& code);

/// The same for standard error.
std::string CaptureStderr(const std::function<void()>& code);

}  // namespace paramgen::testing
