/// Changes of an INI file's text that keep all its other bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tree/ini_file.h"

namespace paramgen::tree {

/// The bytes of `file`, which is accepted, with `value` for `key` ("section:key"). Of several lines
/// for the key the one that counts is changed, and only its value; a missing key goes to the end
/// of its section, a missing section to the end of the file, with the line ends of the lines
/// around. None when no line can say it.
std::optional<std::string> WithKey(const IniFile& file, std::string_view key,
                                   std::string_view value);

/// The bytes of `file` without the lines of `key`.
std::string WithoutKey(const IniFile& file, std::string_view key);

/// The bytes of `file` with the name `item` for `key` in all of its lines.
std::string WithRenamedKey(const IniFile& file, std::string_view key, std::string_view item);

/// The bytes of `file` without a section: its header, its keys, and the empty lines behind them.
/// Comments alone on a line stay.
std::string WithoutSection(const IniFile& file, std::string_view section);

}  // namespace paramgen::tree
