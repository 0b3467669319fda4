/// Console records of the generator and its section loaders: module tag "PARAM", and the name and
/// line of the function that logs.
#pragma once

#include <cstdint>

#include "confaccess/status.h"

namespace paramgen {

/// The module tag of every record of the generator.
inline constexpr char kParamTag[] = "PARAM";

/// Format of the record about a count that is too large for its section. It takes the count's key
/// and the count.
inline constexpr char kCountBeyondSection[] = "[%s] count[%u] is beyond the section\n";

/// Logs one record at ERROR, or at DEBUG, under the name and line of the loader. They take few
/// arguments because loaders call them in hundreds of places.
[[gnu::format(printf, 3, 4)]] void LogError(const char* function, std::uint32_t line,
                                            const char* format, ...);
[[gnu::format(printf, 3, 4)]] void LogDebug(const char* function, std::uint32_t line,
                                            const char* format, ...);

/// Logs that the step `label` has failed with `status`. Returns `status`.
Status LogFailed(const char* function, std::uint32_t line, const char* label, Status status);

/// Logs that the step `label` has failed, without a code. Returns -1.
Status LogFailed(const char* function, std::uint32_t line, const char* label);

/// Logs that a loader was given a null record. Returns -1.
Status LogNullRecord(const char* function, std::uint32_t line);

}  // namespace paramgen

/// Begins a statement macro. In the macro, `line_` is the source line of the macro's name. __LINE__
/// in a macro with parameters would not do: when its use takes several lines, compilers disagree
/// which of them it is.
#define AT_THIS_LINE_ if (constexpr std::uint32_t line_ = __LINE__)

/// Logs at ERROR. The arguments are a printf format and its arguments.
#define LOG_ERROR AT_THIS_LINE_ LOG_ERROR_
#define LOG_ERROR_(...) ::paramgen::LogError(__func__, line_, __VA_ARGS__)

/// Logs at DEBUG. The arguments are a printf format and its arguments.
#define LOG_DEBUG AT_THIS_LINE_ LOG_DEBUG_
#define LOG_DEBUG_(...) ::paramgen::LogDebug(__func__, line_, __VA_ARGS__)
