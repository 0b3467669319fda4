/// The name of a key as one text, for look-ups.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace paramgen::tree {

/// "section:key" in one piece. Needs no memory of its own unless it is very long.
class FullKey {
public:
    FullKey(std::string_view section, std::string_view key);

    /// A name that is in one piece already. `name` has to live as long.
    explicit FullKey(std::string_view name) : view_(name) {}

    FullKey(const FullKey&) = delete;
    FullKey& operator=(const FullKey&) = delete;

    std::string_view View() const { return view_; }

private:
    std::array<char, 256> short_;
    std::string long_;
    std::string_view view_;
};

}  // namespace paramgen::tree
