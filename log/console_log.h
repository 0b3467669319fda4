/// Console log: the records of the generator and of its section loaders, on standard output.
///
/// A record is a prefix (level, module tag, function, source line, and the time when time stamps
/// are on) followed by the caller's message, which carries its own line end. The settings are
/// process-wide and unguarded: the console log serves one thread.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <string_view>

#include "safestr/simple_format.h"

namespace paramgen {

/// Levels of console records. A record is written when its level is not above the current level.
/// Level 1 has no name.
enum ConsoleLevel : std::uint32_t {
    kConsoleFatal = 0,
    kConsoleError = 2,
    kConsoleWarn = 3,
    kConsoleInfo = 4,
    kConsoleDebug = 5,
};

/// Sets what is written: `enabled` and `timeStamps` are flags (any non-zero means on), `level` is
/// the highest level written, 0 to 5. A level above 5 prints "level is invalid" and changes
/// nothing. Initially output and time stamps are on and the level is 4.
void ConsoleLogSetup(std::uint32_t enabled, std::uint32_t timeStamps, std::uint32_t level);

/// Writes one record, if the settings let it pass. `module` (the tag), `function` and `format` may
/// be null and then count as empty. Never fails and keeps nothing.
[[gnu::format(printf, 5, 6)]] void ConsoleLogPrint(std::uint32_t level, const char* module,
                                                   const char* function, std::uint32_t line,
                                                   const char* format, ...);

/// The same with the arguments in `args`.
[[gnu::format(printf, 5, 0)]] void ConsoleLogPrintV(std::uint32_t level, const char* module,
                                                    const char* function, std::uint32_t line,
                                                    const char* format, std::va_list args);

/// The same with a simple format. `place` is "function[line]:"; together with `module` it has at
/// most 400 characters. Returns false, writing nothing, when the record is too long for the buffer
/// or a text among the arguments is null.
[[nodiscard]] bool ConsoleLogPrintSimple(std::uint32_t level, std::string_view module,
                                         std::string_view place, const SimpleFormat& format,
                                         const SimpleFormat::Argument* arguments);

}  // namespace paramgen
