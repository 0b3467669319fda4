#include "confaccess/line_reader.h"

#include <algorithm>

#include "safestr/short_text.h"

namespace paramgen {
namespace {

void CutAtNul(TextLine* line) {
    const std::size_t nul = line->text.find('\0');
    if (nul != std::string_view::npos) {
        line->text.remove_suffix(line->text.size() - nul);
        line->content = {line->content.data(), std::min(line->content.size(), nul)};
        line->hasNewline = false;
    }
}

}  // namespace

LineReader::LineReader(std::string_view text)
    : rest_(text), hasNul_(CountCharacter(text, '\0') != 0) {}

bool LineReader::Next(TextLine* line) {
    if (rest_.empty()) {
        return false;
    }
    const std::string_view piece(rest_.data(), std::min(rest_.size(), kPieceMax));
    const std::size_t content = FindEither(piece, '\n', ';');
    std::size_t length = content;
    if (content < piece.size() && piece[content] == ';') {
        length += FindCharacter({piece.data() + content, piece.size() - content}, '\n');
    }
    const bool isWhole = length < piece.size();
    *line = {.text = {piece.data(), length},
             .content = {piece.data(), content},
             .hasNewline = isWhole,
             .isLast = !isWhole && rest_.size() < kPieceMax};
    rest_.remove_prefix(length + (isWhole ? 1 : 0));
    if (hasNul_) {
        CutAtNul(line);
    }
    return true;
}

}  // namespace paramgen
