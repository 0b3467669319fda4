#include "param/common/key.h"

#include <cstdarg>

#include "safestr/safestr.h"
#include "safestr/short_text.h"

namespace paramgen {

/// Sets the length of the text in the buffer and terminates it; -1 makes the key empty. Returns
/// `length`.
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

int Key::Join(std::string_view node, std::string_view item) {
    if (node.size() >= sizeof text_ || item.size() >= sizeof text_ - node.size() - 1) {
        return Take(-1);
    }
    char* const colon = PutCharacters(text_, node);
    *colon = ':';
    char* const end = PutCharacters(colon + 1, item);
    return Take(static_cast<int>(end - text_));
}

}  // namespace paramgen
