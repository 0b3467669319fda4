/// How a value is written into an INI file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace paramgen::tree {

/// The text to write behind a key's '=' so that its value is `text`: the text itself if possible,
/// else in quotes. Nothing when no line can give this value: it contains a ';', a newline or a NUL,
/// or needs quotes and contains both kinds, or is too long for a line.
std::optional<std::string> Spelled(std::string_view text);

}  // namespace paramgen::tree
