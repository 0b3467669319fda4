/// Splits a text into lines.
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

/// Returns the lines of a text one by one, as views into it: the same pieces that fgets reads from
/// a file with a buffer of `kPieceMax` + 1 characters.
class LineReader {
public:
    /// The maximal length of a piece, newline included; a longer line is split into several.
    static constexpr std::size_t kPieceMax = 1023;

    explicit LineReader(std::string_view text) : rest_(text) {}

    /// Takes the next line. Returns false at the text's end.
    bool Next(TextLine* line);

private:
    std::string_view rest_;
};

}  // namespace paramgen
