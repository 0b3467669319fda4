#include "confaccess/line_reader.h"

#include <algorithm>

#include "safestr/short_text.h"

namespace paramgen {

LineReader::LineReader(std::string_view text)
    : rest_(text), hasNul_(CountCharacter(text, '\0') != 0) {}

bool LineReader::Next(TextLine* line) {
    if (rest_.empty()) {
        return false;
    }
    const std::string_view piece(rest_.data(), std::min(rest_.size(), kPieceMax));
    const std::size_t length = FindCharacter(piece, '\n');
    const bool isWhole = length < piece.size();
    *line = {.text = {piece.data(), length},
             .hasNewline = isWhole,
             .isLast = !isWhole && rest_.size() < kPieceMax};
    rest_.remove_prefix(length + (isWhole ? 1 : 0));
    const std::size_t nul = hasNul_ ? line->text.find('\0') : std::string_view::npos;
    if (nul != std::string_view::npos) {
        line->text.remove_suffix(length - nul);
        line->hasNewline = false;
    }
    return true;
}

}  // namespace paramgen
