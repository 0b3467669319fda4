/// The rules of whole lines, which every reader of INI files applies before it parses a line
/// (`confaccess/ini_line.h`), in this order:
/// - one that is too short is passed over;
/// - one that is too long makes the file no INI file;
/// - the last one, when no newline ends it and it asks for a next line, is passed over.
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

/// Whether a '\' ends a line, which is not too short.
inline bool AsksForNextLine(const TextLine& line) {
    return line.text.back() == '\\';
}

}  // namespace paramgen
