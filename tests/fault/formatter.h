/// The bounded formatter, which tests wrap to make it fail.
#pragma once

#include <cstdarg>
#include <cstddef>

extern "C" {

// The mangled name, on hosts where std::size_t is unsigned long, and what the linker makes of it.

/// The formatter itself.
int __real__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(char* dest, std::size_t destMax,
                                                             std::size_t count, const char* format,
                                                             std::va_list args);

/// What is called in its place.
int __wrap__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(char* dest, std::size_t destMax,
                                                             std::size_t count, const char* format,
                                                             std::va_list args);

}  // extern "C"
