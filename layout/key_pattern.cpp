#include "layout/key_pattern.h"

#include <charconv>

namespace paramgen::layout {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::optional<std::uint32_t> ParseOffset(std::string_view digits) {
    int base = 10;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        base = 16;
        digits.remove_prefix(2);
    }
    std::uint32_t offset = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, offset, base);
    if (error != std::errc() || stop != end || digits.empty()) {
        return std::nullopt;
    }
    return offset;
}

}  // namespace

std::optional<KeyPattern> KeyPattern::Parse(std::string_view text, std::string* error) {
    KeyPattern pattern;
    if (text.starts_with('@')) {
        pattern.offset_ = ParseOffset(text.substr(1));
        if (!pattern.offset_) {
            *error = "'" + std::string(text) + "': an offset is a number, such as @404 or @0x194";
            return std::nullopt;
        }
        return pattern;
    }
    const std::size_t slash = text.find('/');
    if (slash != std::string_view::npos) {
        pattern.module_ = text.substr(0, slash);
        text.remove_prefix(slash + 1);
    }
    const std::size_t colon = text.rfind(':');
    if (colon != std::string_view::npos) {
        pattern.section_ = text.substr(0, colon);
        text.remove_prefix(colon + 1);
    }
    pattern.key_ = text;
    if (pattern.module_.empty() || pattern.section_.empty() || pattern.key_.empty()) {
        *error = "a key is written module/section:key, section:key or key";
        return std::nullopt;
    }
    return pattern;
}

bool KeyPattern::Matches(std::string_view module, std::string_view section,
                         std::string_view key) const {
    return (MatchesWildcards(module_, module) || MatchesWildcards(module, module_)) &&
           MatchesWildcards(section_, section) && MatchesWildcards(key_, key);
}

bool MatchesWildcards(std::string_view pattern, std::string_view text) {
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t star = std::string_view::npos;  // index of the last "*" in `pattern`
    std::size_t resume = 0;                     // end of the text that this "*" stands for
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || Lower(pattern[p]) == Lower(text[t]))) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace paramgen::layout
