/// Reads a text file line by line.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace paramgen {

/// A line, or a piece of one that is too long.
struct TextLine {
    std::string_view
        text;         ///< up to the newline or the first NUL; valid until the next line is read
    bool hasNewline;  ///< a newline follows
    bool isLast;      ///< the file ended in this line
};

/// Hands out the lines of a file, from large blocks and with no copy of each. What it finds is what
/// fgets finds with a buffer of `kPieceMax` + 1 characters.
class LineReader {
public:
    /// The most characters of a piece, newline included; what is longer comes in several.
    static constexpr std::size_t kPieceMax = 1023;

    /// Reads from `file`, which the caller keeps open and closes.
    explicit LineReader(std::FILE* file) : file_(file), at_(buffer_), end_(buffer_) {}
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// Takes the next line. Returns false at the file's end, and when it cannot be read further.
    bool Next(TextLine* line);

private:
    static constexpr std::size_t kBufferSize = std::size_t{16} * 1024;

    void Refill();

    std::FILE* file_;
    char* at_;
    char* end_;
    bool isEnded_ = false;  ///< there is nothing to read behind the buffer
    bool hasNul_ = false;   ///< there may be a NUL in the buffer
    char buffer_[kBufferSize];
};

}  // namespace paramgen
