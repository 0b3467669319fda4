/// What a page allows itself.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::report {

/// A content security policy that lets this script and this style work and nothing else, and lets
/// nothing be loaded.
std::string Policy(std::string_view script, std::string_view style);

}  // namespace paramgen::report
