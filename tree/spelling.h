/// How a value is written into an INI file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace paramgen::tree {

/// What has to stand behind a key's '=' so that its value is `text`: the text itself where that
/// will do, else in quotes. None when no line can say it: it has a ';', a newline or a NUL, or
/// needs quotes and has both kinds of them, or is longer than a line.
std::optional<std::string> Spelled(std::string_view text);

}  // namespace paramgen::tree
