/// Console records of the generator and its section loaders: module tag "PARAM", and the name and
/// line of the function that logs.
#pragma once

#include "log/console_log.h"

namespace paramgen {

/// The module tag of every record of the generator.
inline constexpr char kParamTag[] = "PARAM";

}  // namespace paramgen

/// Logs at ERROR: a format and its arguments.
#define LOG_ERROR(...)                                                                      \
    ::paramgen::ConsoleLogPrint(::paramgen::kConsoleError, ::paramgen::kParamTag, __func__, \
                                static_cast<std::uint32_t>(__LINE__), __VA_ARGS__)

/// Logs at DEBUG: a format and its arguments.
#define LOG_DEBUG(...)                                                                      \
    ::paramgen::ConsoleLogPrint(::paramgen::kConsoleDebug, ::paramgen::kParamTag, __func__, \
                                static_cast<std::uint32_t>(__LINE__), __VA_ARGS__)
