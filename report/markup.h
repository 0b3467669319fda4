/// Text on its way into an HTML file.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace paramgen::report {

/// `text` as the content of an element or of an attribute in double quotes. Bytes that are no
/// UTF-8, control characters and the like are spelled as `output::Shown` spells them.
std::string EscapeHtml(std::string_view text);

/// The same for a text of several lines.
std::string EscapeLines(std::string_view text);

/// `value` as the content of a data script: nothing in it can end the script or begin a comment.
/// Invalid UTF-8 becomes U+FFFD.
std::string EscapeScript(const nlohmann::ordered_json& value);

/// `text` as the part of a link behind `#`.
std::string EscapeFragment(std::string_view text);

}  // namespace paramgen::report
