/// A KEY argument: which values the user means.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace paramgen::layout {

/// "module/section:key", "section:key", "key", with the wildcards "*" and "?", in any case; or
/// "@OFFSET", the value that owns that byte, decimal or with 0x.
class KeyPattern {
public:
    /// Reads an argument. Empty, with what is wrong with it in `error`, when it is malformed.
    static std::optional<KeyPattern> Parse(std::string_view text, std::string* error);

    /// The offset of "@OFFSET".
    std::optional<std::uint32_t> Offset() const { return offset_; }

    /// Whether it names this key. A module given by its real name is matched by the "*" of a
    /// searched module.
    bool Matches(std::string_view module, std::string_view section, std::string_view key) const;

private:
    std::string module_ = "*";
    std::string section_ = "*";
    std::string key_ = "*";
    std::optional<std::uint32_t> offset_;
};

/// Whether `text` is what `pattern` describes: "*" is any number of characters, "?" is one, all
/// others are themselves in either case.
bool MatchesWildcards(std::string_view pattern, std::string_view text);

}  // namespace paramgen::layout
