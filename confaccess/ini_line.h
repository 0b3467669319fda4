/// The grammar of one line of an INI file.
#pragma once

namespace paramgen {

/// What a line of an INI file is.
enum class IniLineKind { kNothing, kSection, kValue, kSyntaxError };

/// A line taken apart. The texts point into the line.
struct IniLine {
    IniLineKind kind;
    char* name;   ///< section or key name, stripped and in lower case; null for "[]"
    char* value;  ///< for kValue; never null
};

/// Takes a line apart in place: `text` is changed.
IniLine ParseIniLine(char* text);

/// Folds the ASCII letters of `text` to lower case.
void FoldToLower(char* text);

}  // namespace paramgen
