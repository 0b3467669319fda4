#include "confaccess/line_reader.h"

#include <algorithm>

#include "safestr/short_text.h"

namespace paramgen {

bool LineReader::Next(TextLine* line) {
    if (rest_.empty()) {
        return false;
    }
    const std::string_view piece(rest_.data(), std::min(rest_.size(), kPieceMax));
    const std::size_t content = FindFirst(piece, '\n', ';', '\0');
    std::size_t end = content;  // of the text
    if (content != piece.size() && piece[content] == ';') {
        end += FindFirst({piece.data() + content, piece.size() - content}, '\n', '\0');
    }
    std::size_t next = end;
    const bool isCut = end != piece.size() && piece[end] == '\0';
    if (isCut) {
        next += FindFirst({piece.data() + end, piece.size() - end}, '\n');
    }
    const bool isWhole = next != piece.size();
    *line = {.text = {piece.data(), end},
             .content = {piece.data(), content},
             .hasNewline = isWhole && !isCut,
             .isLast = !isWhole && rest_.size() < kPieceMax};
    rest_.remove_prefix(next + (isWhole ? 1 : 0));
    return true;
}

}  // namespace paramgen
