/// What writers of files share.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::output {

/// Writes all bytes to an open file. Returns false, with `errno`, when that fails.
bool WriteAll(int descriptor, std::string_view bytes);

/// Throws the `UserError` of a file that cannot be written; `errno` tells the reason.
[[noreturn]] void FailToWrite(const std::string& path);

}  // namespace paramgen::output
