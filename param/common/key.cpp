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
    // Two bytes stay free, for the colon and the terminator.
    if (CopyText(text_, sizeof text_ - 2, node.data(), node.size()) != 0) {
        return Take(-1);
    }
    char* const rest = text_ + node.size() + 1;
    rest[-1] = ':';
    if (CopyText(rest, sizeof text_ - node.size() - 2, item.data(), item.size()) != 0) {
        return Take(-1);
    }
    return Take(static_cast<int>(node.size() + 1 + item.size()));
}

}  // namespace paramgen
