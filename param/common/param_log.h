/// Console records of the generator and its section loaders: module tag "PARAM", and the name and
/// line of the function that logs.
#pragma once

#include <cstdint>

#include "confaccess/status.h"

namespace paramgen {

/// The module tag of every record of the generator.
inline constexpr char kParamTag[] = "PARAM";

/// What is logged of a count that leads beyond its section: the count's key, and the count.
inline constexpr char kCountBeyondSection[] = "[%s] count[%u] is beyond the section\n";

/// One record at ERROR, or at DEBUG. Few arguments, since loaders call these hundreds of times.
[[gnu::format(printf, 3, 4)]] void LogError(const char* function, std::uint32_t line,
                                            const char* format, ...);
[[gnu::format(printf, 3, 4)]] void LogDebug(const char* function, std::uint32_t line,
                                            const char* format, ...);

/// Logs that the step `label` has failed with `status`, which is returned.
Status LogFailed(const char* function, std::uint32_t line, const char* label, Status status);

/// Logs that the step `label`, which has no code, has failed. Returns -1.
Status LogFailed(const char* function, std::uint32_t line, const char* label);

/// Logs that a loader was given a null record. Returns -1.
Status LogNullRecord(const char* function, std::uint32_t line);

}  // namespace paramgen

/// Begins a statement macro: `line_` in what follows is the line on which the macro's name stands.
/// In the body of a macro with parameters __LINE__ would not do: where a use takes several lines,
/// compilers disagree about which of them it is.
#define AT_THIS_LINE_ if (constexpr std::uint32_t line_ = __LINE__)

/// Logs at ERROR: a format and its arguments.
#define LOG_ERROR AT_THIS_LINE_ LOG_ERROR_
#define LOG_ERROR_(...) ::paramgen::LogError(__func__, line_, __VA_ARGS__)

/// Logs at DEBUG: a format and its arguments.
#define LOG_DEBUG AT_THIS_LINE_ LOG_DEBUG_
#define LOG_DEBUG_(...) ::paramgen::LogDebug(__func__, line_, __VA_ARGS__)
