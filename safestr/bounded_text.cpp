#include <cstdio>
#include <cstring>

#include "safestr/plain_format.h"
#include "safestr/safestr.h"

namespace paramgen {

int vsnprintf_s(char* dest, std::size_t destMax, std::size_t count, const char* format,
                std::va_list args) {
    if (dest == nullptr || destMax == 0) {
        return -1;
    }
    dest[0] = '\0';
    if (format == nullptr) {
        return -1;
    }
    int length = FormatPlain(dest, destMax, format, std::strlen(format), args);
    if (length == kNotPlain) {
        length = std::vsnprintf(dest, destMax, format, args);
    }
    if (length < 0 || static_cast<std::size_t>(length) >= destMax ||
        static_cast<std::size_t>(length) > count) {
        dest[0] = '\0';
        return -1;
    }
    return length;
}

int snprintf_s(char* dest, std::size_t destMax, std::size_t count, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(dest, destMax, count, format, args);
    va_end(args);
    return length;
}

int sprintf_s(char* dest, std::size_t destMax, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(dest, destMax, destMax, format, args);
    va_end(args);
    return length;
}

}  // namespace paramgen
