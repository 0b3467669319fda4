#include "confaccess/line_reader.h"

#include <algorithm>
#include <cstring>

namespace paramgen {

void LineReader::Refill() {
    const std::size_t kept = static_cast<std::size_t>(end_ - at_);
    // Less than a piece is left of a buffer that was full: the two do not overlap.
    std::memcpy(buffer_, at_, kept);
    const std::size_t room = sizeof buffer_ - kept;
    const std::size_t count = std::fread(buffer_ + kept, 1, room, file_);
    isEnded_ = count < room;
    // Once for the block: hardly any file has one, and lines are short.
    hasNul_ = hasNul_ || std::memchr(buffer_ + kept, '\0', count) != nullptr;
    at_ = buffer_;
    end_ = buffer_ + kept + count;
}

bool LineReader::Next(TextLine* line) {
    std::size_t rest = static_cast<std::size_t>(end_ - at_);
    const void* newline = std::memchr(at_, '\n', std::min(rest, kPieceMax));
    if (newline == nullptr && rest < kPieceMax && !isEnded_) {
        Refill();
        rest = static_cast<std::size_t>(end_ - at_);
        newline = std::memchr(at_, '\n', std::min(rest, kPieceMax));
    }
    if (rest == 0) {
        return false;
    }
    const char* stop =
        newline == nullptr ? at_ + std::min(rest, kPieceMax) : static_cast<const char*>(newline);
    *line = {.text = {at_, static_cast<std::size_t>(stop - at_)},
             .hasNewline = newline != nullptr,
             .isLast = newline == nullptr && rest < kPieceMax};
    at_ += line->text.size() + (newline == nullptr ? 0 : 1);
    const std::size_t nul = hasNul_ ? line->text.find('\0') : std::string_view::npos;
    if (nul != std::string_view::npos) {
        line->text.remove_suffix(line->text.size() - nul);
        line->hasNewline = false;
    }
    return true;
}

}  // namespace paramgen
