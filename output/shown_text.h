/// Texts of the input as people see them: nothing in them reaches the terminal that could do more
/// than be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace paramgen::output {

/// A character of a text, or a byte that belongs to none.
struct Character {
    std::uint32_t code;  ///< code point; of an invalid byte its value
    std::uint8_t size;   ///< in bytes, at least 1
    bool isValid;        ///< false: a byte that is no UTF-8
};

/// The character that `text` begins with. `text` must not be empty.
Character FirstCharacter(std::string_view text);

/// The columns that a terminal gives a character: 0 for one that combines with the one before, 2
/// for a wide one.
int WidthOf(std::uint32_t code);

/// `text` as it is shown: an invalid byte as "<e9>"; control characters, and those that turn the
/// direction of writing, as "<U+001B>"; everything else as it is.
std::string Shown(std::string_view text);

/// A source line as it is shown, and where parts of it are.
struct ShownLine {
    std::string text;       ///< tabs are spaces up to stops of 8
    std::size_t begin = 0;  ///< column from 0, on a terminal, of byte `from`
    std::size_t end = 0;    ///< and of byte `to`
};

/// Shows `line`, and where its bytes `from` up to `to` are then.
ShownLine ShowLine(std::string_view line, std::size_t from, std::size_t to);

/// The columns that a text takes that has been shown.
std::size_t WidthOf(std::string_view shown);

/// The number of characters in `text`, where an invalid byte counts as one.
std::size_t CountCharacters(std::string_view text);

/// `text` as valid UTF-8: every invalid byte becomes U+FFFD.
std::string ValidUtf8(std::string_view text);

}  // namespace paramgen::output
