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

int Key::Join(const char* node, const char* item) {
    char* at = text_;
    char* const end = text_ + sizeof text_ - 1;
    while (at != end && *node != '\0') {
        *at++ = *node++;
    }
    if (at != end && *node == '\0') {
        *at++ = ':';
        while (at != end && *item != '\0') {
            *at++ = *item++;
        }
        if (*item == '\0') {
            *at = '\0';
            return static_cast<int>(at - text_);
        }
    }
    text_[0] = '\0';
    return -1;
}

}  // namespace paramgen
