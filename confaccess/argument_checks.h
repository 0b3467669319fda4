/// Argument checks of configuration access. A failed check prints a message to standard output.
#pragma once

#include <cstddef>
#include <string_view>

#include "confaccess/status.h"
#include "safestr/short_text.h"

namespace paramgen {

/// The fixed line number that identifies a check in its message.
using CheckLine = int;

/// Prints that an argument is null.
void TellNullArgument(const char* function, CheckLine line, const char* argument);

/// Returns whether `pointer` is null; if so, prints a message that names the argument.
inline bool IsNullArgument(const void* pointer, const char* function, CheckLine line,
                           const char* argument) {
    if (pointer == nullptr) {
        TellNullArgument(function, line, argument);
    }
    return pointer == nullptr;
}

/// Returns whether the check fails; if so, prints a message with the expression that should hold.
bool IsFalseExpression(bool holds, const char* function, CheckLine line, const char* expression);

/// Measures `text` up to `limit` characters: a view of `limit` characters is too long. A null text
/// gives a view whose `data()` is null.
inline std::string_view Measured(const char* text, std::size_t limit) {
    return {text, text == nullptr ? 0 : LengthUpTo(text, limit)};
}

/// Each returns whether the text has too many characters for its buffer; if so, prints a message.
bool IsLongConfigName(std::string_view cfgName, const char* function, CheckLine line);
bool IsLongModuleName(std::string_view module, const char* function, CheckLine line);
bool IsLongKey(std::string_view confItem, const char* function, CheckLine line);
bool IsLongPath(std::string_view cfgPath, const char* function, CheckLine line);

/// Formats into `dest`, which has room for `size` bytes. Returns false, printing a message, when
/// the text does not fit.
[[nodiscard]] [[gnu::format(printf, 5, 6)]] bool FormatOrTell(char* dest, std::size_t size,
                                                              const char* function, CheckLine line,
                                                              const char* format, ...);

/// Prints that an inner step failed with `code`.
void TellErrorCode(const char* function, CheckLine line, Status code);

}  // namespace paramgen
