/// INI reader: one file into one dictionary.
///
/// The grammar, line by line (at most 1022 characters and a newline each):
/// - a ';' anywhere cuts the line; what remains is stripped of white space; an empty line and one
///   that begins with '#' are ignored;
/// - "[name]" makes `name` the current section (none at first) and a key of its own, without value;
/// - "key = value" gives "section:key" its value. A value in single or double quotes is the text
///   between them; any other value ends before a '#' and is stripped. No text gives the empty
///   value, and so does a pair of quotes;
/// - any other line is a syntax error, and a file with one yields no dictionary.
/// Section and key names are case-insensitive. Where a key occurs twice, the last one counts.
#pragma once

#include <cstdint>
#include <string_view>

#include "confaccess/dictionary.h"

namespace paramgen {

/// The last error of this reader, for debugging only. 3 and 4, a dictionary that cannot grow or
/// take a key, do not occur: memory for all keys is allocated first, and a failure there is 7.
enum class IniError : std::int32_t {
    kNone = 0,
    kNullArgument = 1,
    kNoDictionary = 2,
    kSyntax = 6,  ///< or an over-long line
    kLoadNotInserted = 7,
};

/// The last error of the INI reader in this process.
IniError LastIniError();

/// Reads the file at `path` into a dictionary, which lives in `arena`. Returns null when the file
/// cannot be opened or read, a line is too long or invalid, or memory runs out. A directory reads
/// as an empty file.
const Dictionary* LoadIniFile(const char* path, Arena* arena);

/// Returns the value of `key` ("section:key", case-insensitive; only its first 1024 characters
/// count), or `defaultValue` when there is no such key. The value of a section is null.
const char* FindText(const Dictionary& dictionary, std::string_view key, const char* defaultValue);

/// Returns the value of `key` as an integer in prefixed notation, or `defaultValue` when it has
/// none.
std::int32_t FindInteger(const Dictionary& dictionary, const char* key, std::int32_t defaultValue);

}  // namespace paramgen
