#include "param/common/key.h"

#include <cstdarg>

#include "safestr/safestr.h"

namespace paramgen {

int Key::Format(const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(text_, sizeof text_, sizeof text_, format, args);
    va_end(args);
    return length;
}

}  // namespace paramgen
