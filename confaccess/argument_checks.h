/// Checks of configuration access, told on standard output.
#pragma once

#include <cstddef>
#include <string_view>

#include "confaccess/status.h"
#include "safestr/short_text.h"

namespace paramgen {

/// Where a check stands: the line that its message names.
using CheckLine = int;

/// Tells that an argument is null.
void TellNullArgument(const char* function, CheckLine line, const char* argument);

/// Whether `pointer` is null; tells so, naming the argument.
inline bool IsNullArgument(const void* pointer, const char* function, CheckLine line,
                           const char* argument) {
    if (pointer == nullptr) {
        TellNullArgument(function, line, argument);
    }
    return pointer == nullptr;
}

/// Whether a check has failed; tells so, quoting the expression that should hold.
bool IsFalseExpression(bool holds, const char* function, CheckLine line, const char* expression);

/// A text and its length, as far as that matters: up to `limit` characters, which are too many. A
/// null text gives one without data.
inline std::string_view Measured(const char* text, std::size_t limit) {
    return {text, text == nullptr ? 0 : LengthUpTo(text, limit)};
}

/// Whether the name of a configuration, the name of a module, a key or a path has too many
/// characters for its buffer; tells so.
bool IsLongConfigName(std::string_view cfgName, const char* function, CheckLine line);
bool IsLongModuleName(std::string_view module, const char* function, CheckLine line);
bool IsLongKey(std::string_view confItem, const char* function, CheckLine line);
bool IsLongPath(std::string_view cfgPath, const char* function, CheckLine line);

/// Formats into `dest`, which holds `size` bytes. Returns false when the text does not fit, and
/// tells so.
[[nodiscard]] [[gnu::format(printf, 5, 6)]] bool FormatOrTell(char* dest, std::size_t size,
                                                              const char* function, CheckLine line,
                                                              const char* format, ...);

/// Tells that an inner step failed with `code`.
void TellErrorCode(const char* function, CheckLine line, Status code);

}  // namespace paramgen
