/// Rules for whole lines. Every reader of INI files applies them, in this order, before it parses a
/// line (`confaccess/ini_line.h`):
/// - a line that is too short is ignored;
/// - a line that is too long makes the file invalid;
/// - the last line is ignored when it ends in a backslash and has no newline.
#pragma once

#include "confaccess/line_reader.h"

namespace paramgen {

/// Whether a line is a newline alone, or one character without a newline.
inline bool IsTooShort(const TextLine& line) {
    return line.text.size() + (line.hasNewline ? 1 : 0) <= 1;
}

/// Whether a line has more than 1022 characters, or a NUL before its newline.
inline bool IsTooLong(const TextLine& line) {
    return line.hasNewline ? false : !line.isLast;
}

/// Whether a line ends in a backslash. It must not be too short.
inline bool AsksForNextLine(const TextLine& line) {
    return line.text.back() == '\\';
}

}  // namespace paramgen
