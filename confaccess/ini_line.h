/// The grammar of one line of an INI file.
#pragma once

#include <string_view>

namespace paramgen {

/// What a line of an INI file is.
enum class IniLineKind { kNothing, kSection, kValue, kSyntaxError };

/// A parsed line. The views point into the line.
struct IniLine {
    IniLineKind kind;
    std::string_view name;   ///< section or key name, stripped; its data() is null for "[]"
    std::string_view value;  ///< for kValue; its data() is never null
};

/// Parses a line, cut before its first ';'. It contains no NUL.
IniLine ParseIniLine(std::string_view text);

}  // namespace paramgen
