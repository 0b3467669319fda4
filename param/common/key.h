/// Keys, node prefixes and module names, built from templates.
#pragma once

#include <cstddef>
#include <string_view>

namespace paramgen {

/// A text of at most 127 characters in a fixed buffer.
class Key {
public:
    static constexpr std::size_t kSize = 128;

    Key() { text_[0] = '\0'; }

    /// Sets the text, formatted as by printf. Returns the number of characters, or -1 when they do
    /// not fit; the key is then empty.
    [[gnu::format(printf, 2, 3), nodiscard]] int Format(const char* format, ...);

    /// Sets the text to "node:item". Returns what `Format` does.
    [[nodiscard]] int Join(std::string_view node, std::string_view item);

    /// The text, with its terminator. The pointer stays valid as long as the key.
    const char* c_str() const { return text_; }
    /// The text. It ends in a NUL behind the view.
    std::string_view View() const { return {text_, length_}; }
    operator std::string_view() const { return View(); }

private:
    int Take(int length);

    std::size_t length_ = 0;
    char text_[kSize];
};

}  // namespace paramgen
