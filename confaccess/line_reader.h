/// Takes a text apart into lines.
#pragma once

#include <cstddef>
#include <string_view>

namespace paramgen {

/// A line, or a piece of one that is too long.
struct TextLine {
    std::string_view text;     ///< up to the newline or the first NUL
    std::string_view content;  ///< the same up to the first ';': the rest is a comment
    bool hasNewline;           ///< a newline follows
    bool isLast;               ///< the text ends in this line
};

/// Hands out the lines of a text, as parts of it. What it finds is what fgets finds in a file with
/// a buffer of `kPieceMax` + 1 characters.
class LineReader {
public:
    /// The most characters of a piece, newline included; what is longer comes in several.
    static constexpr std::size_t kPieceMax = 1023;

    explicit LineReader(std::string_view text);

    /// Takes the next line. Returns false at the text's end.
    bool Next(TextLine* line);

private:
    std::string_view rest_;
    bool hasNul_;  ///< hardly any text has one, and lines are short: it is looked for only once
};

}  // namespace paramgen
