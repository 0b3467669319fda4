/// A text with places that are filled in.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace paramgen::report {

/// `text` with each `@name@` replaced by `parts` of that name. What is filled in is not looked at
/// again. An unknown name stays as it is.
std::string Fill(std::string_view text, const std::map<std::string, std::string>& parts);

}  // namespace paramgen::report
