/// Texts of the layout: keys, sections, modules, member paths.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::layout {

/// A text that stays valid until the process ends. Names are only references, so that the thousands
/// of values can share them; they become strings where one is needed, and are joined like strings.
class Name : public std::string_view {
public:
    constexpr Name() = default;
    constexpr Name(std::string_view text) : std::string_view(text) {}
    constexpr Name(const char* text) : std::string_view(text) {}

    operator std::string() const { return std::string(data(), size()); }

    friend std::string operator+(std::string text, Name name) { return std::move(text += name); }
    friend std::string operator+(Name name, std::string_view text) {
        return std::string(name) += text;
    }
};

}  // namespace paramgen::layout
