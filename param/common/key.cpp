#include "param/common/key.h"

#include <cstdarg>
#include <cstring>

#include "safestr/safestr.h"
#include "safestr/short_text.h"

namespace paramgen {

/// Takes a text of that length over; none of -1.
int Key::Take(int length) {
    length_ = length == -1 ? 0 : static_cast<std::size_t>(length);
    text_[length_] = '\0';
    return length;
}

int Key::Format(const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(text_, sizeof text_, sizeof text_, format, args);
    va_end(args);
    return Take(length);
}

int Key::Join(const char* node, const char* item) {
    const std::size_t nodeLength = std::strlen(node);
    const std::size_t itemLength = std::strlen(item);
    if (nodeLength >= sizeof text_ || itemLength >= sizeof text_ - 1 - nodeLength) {
        return Take(-1);
    }
    CopyText(text_, node, nodeLength);
    text_[nodeLength] = ':';
    CopyText(text_ + nodeLength + 1, item, itemLength);
    return Take(static_cast<int>(nodeLength + 1 + itemLength));
}

}  // namespace paramgen
