/// Lines of an INI file as they are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tree/ini_file.h"

namespace paramgen::tree {

/// Ways to write a value, the plainest first. Empty when no line can say it.
std::vector<std::string> Spellings(std::string_view value);

/// A part of a file, and the text that takes its place.
struct ChangedPart {
    Span part;
    std::string text;
};

/// What gives a kValue line of an accepted file another value, and changes nothing else of the
/// line. None when the line cannot say it.
std::optional<ChangedPart> ChangedValue(const IniFile& file, const Line& line,
                                        std::string_view value);

/// What ends the line of `text`: "\r\n" or "\n". A last line without an end gets that of the line
/// before.
std::string LineEnd(const std::string& bytes, Span text);

/// One past the newline of the line of `text`; the end of the file when it has none.
std::uint32_t NextLine(const std::string& bytes, Span text);

/// A line for the key `item` with its end, in the style of the line `before`.
std::string NewLine(const IniFile& file, const Line& before, std::string_view item,
                    const std::string& spelling);

}  // namespace paramgen::tree
