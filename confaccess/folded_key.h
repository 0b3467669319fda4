/// Keys as a dictionary knows them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paramgen {

/// A key in lower case that grows at its end.
///
/// Zeros fill its last word up: thousands of keys are folded, hashed and compared, and a word at a
/// time that takes a third of the time.
class FoldedKey {
public:
    /// The most characters of a section name, and of a key name.
    static constexpr std::size_t kNameMax = 1024;

    /// The most characters: two names and a colon.
    static constexpr std::size_t kMax = 2 * kNameMax + 1;

    FoldedKey() { CutTo(0); }
    explicit FoldedKey(std::string_view text) : FoldedKey() { Append(text); }

    /// Adds `text`, or as much of it as there is room for, its ASCII letters in lower case.
    void Append(std::string_view text);

    /// Forgets all but the first `length` characters.
    void CutTo(std::size_t length);

    std::string_view Text() const { return {text_, length_}; }
    std::uint32_t Hash() const;

    /// Whether `text`, in any case, stands at `at`. It must not go beyond the key's end.
    bool HasAt(std::size_t at, std::string_view text) const;

private:
    std::size_t length_ = 0;
    char text_[(kMax + 15) / 8 * 8];  // filled as far as the word that the length is in
};

}  // namespace paramgen
