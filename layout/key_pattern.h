/// KEY arguments of commands, which select values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace paramgen::layout {

/// "module/section:key", "section:key" or "key", case-insensitive and with the wildcards "*" and
/// "?"; or "@OFFSET", the value that owns the byte at that offset, decimal or with 0x.
class KeyPattern {
public:
    /// Parses an argument. When it is malformed, returns nothing and stores in `error` why.
    static std::optional<KeyPattern> Parse(std::string_view text, std::string* error);

    /// The offset of "@OFFSET"; empty for all other forms.
    std::optional<std::uint32_t> Offset() const { return offset_; }

    /// Whether it selects this key. `module` may hold a "*" itself, as that of a module that is
    /// found by a search does: it matches the real names.
    bool Matches(std::string_view module, std::string_view section, std::string_view key) const;

private:
    std::string module_ = "*";
    std::string section_ = "*";
    std::string key_ = "*";
    std::optional<std::uint32_t> offset_;
};

/// Whether `text` matches `pattern`: "*" stands for any number of characters, "?" for one; letters
/// are compared case-insensitively.
bool MatchesWildcards(std::string_view pattern, std::string_view text);

}  // namespace paramgen::layout
