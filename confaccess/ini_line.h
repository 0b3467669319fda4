/// The grammar of one line of an INI file.
#pragma once

#include <string_view>

namespace paramgen {

/// What a line of an INI file is.
enum class IniLineKind { kNothing, kSection, kValue, kSyntaxError };

/// A line taken apart. The texts are parts of the line.
struct IniLine {
    IniLineKind kind;
    std::string_view name;   ///< section or key name, stripped; without data for "[]"
    std::string_view value;  ///< for kValue; never without data
};

/// Takes apart what a line has before its first ';'. It holds no NUL.
IniLine ParseIniLine(std::string_view text);

}  // namespace paramgen
