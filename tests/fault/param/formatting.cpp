#include "fault/param/formatting.h"

#include <cstdarg>
#include <cstddef>
#include <utility>

#include "fault/formatter.h"

namespace paramgen::testing {
namespace {

std::function<bool(const Formatted&)> g_fits;

}  // namespace

void WatchFormatting(std::function<bool(const Formatted&)> fits) {
    g_fits = std::move(fits);
}

extern "C" {

int __wrap__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(char* dest, std::size_t destMax,
                                                             std::size_t count, const char* format,
                                                             std::va_list args) {
    const int length = __real__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(
        dest, destMax, count, format, args);
    if (length >= 0 && g_fits && !g_fits({.format = format, .text = dest})) {
        dest[0] = '\0';
        return -1;
    }
    return length;
}

}  // extern "C"

}  // namespace paramgen::testing
