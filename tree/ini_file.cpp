#include "tree/ini_file.h"

#include <algorithm>
#include <utility>

#include "confaccess/any_case.h"
#include "confaccess/ini_line.h"
#include "confaccess/line_reader.h"
#include "confaccess/line_rules.h"
#include "safestr/short_text.h"

namespace paramgen::tree {
namespace {

/// What becomes of a piece before its grammar; `kNothing` when it is to be parsed. From its
/// beginning on its line has `rest` characters.
LineKind KindByRules(const TextLine& piece, std::size_t rest) {
    const bool endsInNul = piece.text.size() < std::min(rest, LineReader::kPieceMax);
    if (IsTooShort(piece)) {
        const bool isEmpty = rest == 0;
        return isEmpty ? LineKind::kNothing
                       : (endsInNul ? LineKind::kCutAtNul : LineKind::kIgnored);
    }
    if (IsTooLong(piece)) {
        return endsInNul ? LineKind::kNul : LineKind::kTooLong;
    }
    return !piece.hasNewline && AsksForNextLine(piece) ? LineKind::kIgnored : LineKind::kNothing;
}

LineKind KindOf(IniLineKind kind) {
    switch (kind) {
        case IniLineKind::kSection:
            return LineKind::kSection;
        case IniLineKind::kValue:
            return LineKind::kValue;
        case IniLineKind::kSyntaxError:
            return LineKind::kSyntaxError;
        case IniLineKind::kNothing:
            break;
    }
    return LineKind::kNothing;
}

/// Makes lines of one file's pieces.
class LineMaker {
public:
    explicit LineMaker(std::string_view bytes) : bytes_(bytes) {}

    /// The line that `piece` makes, without its number and section.
    Line Make(const TextLine& piece) {
        const std::uint32_t begin = PlaceOf(piece.text);
        if (begin >= whole_.end) {
            const std::size_t newline = bytes_.find('\n', begin);
            whole_ = {begin, static_cast<std::uint32_t>(std::min(newline, bytes_.size()))};
        }
        Line line;
        line.text = whole_;
        line.comment = line.text.end;
        line.hasNul = PartOf(line.text).find('\0') != std::string_view::npos;
        line.kind = KindByRules(piece, whole_.end - begin);
        if (line.kind == LineKind::kNothing) {
            Parse(piece.content, &line);
        }
        return line;
    }

    /// Whether a piece goes on with the line of the one before it.
    bool Continues(const TextLine& piece) const {
        return whole_.begin < PlaceOf(piece.text) && PlaceOf(piece.text) < whole_.end;
    }

    std::string_view CommentOf(const Line& line) const {
        return PartOf({line.comment, line.text.end});
    }

private:
    std::uint32_t PlaceOf(std::string_view part) const {
        return static_cast<std::uint32_t>(part.data() - bytes_.data());
    }

    std::string_view PartOf(Span part) const { return bytes_.substr(part.begin, part.Size()); }

    /// Where `part` stands; `otherwise` when it is without data.
    Span SpanOf(std::string_view part, std::uint32_t otherwise) const {
        const std::uint32_t begin = part.data() == nullptr ? otherwise : PlaceOf(part);
        return {begin, begin + static_cast<std::uint32_t>(part.size())};
    }

    void Parse(std::string_view content, Line* line) const {
        const IniLine parsed = ParseIniLine(content);
        line->kind = KindOf(parsed.kind);
        line->isBare = line->kind == LineKind::kSection && parsed.name.data() == nullptr;
        line->name = SpanOf(parsed.name, line->text.begin);
        line->value = SpanOf(parsed.value, line->text.end);
        line->comment = FindComment(*line, PlaceOf(content) + content.size());
    }

    /// Where the value of a line ends, the quotes around it included.
    std::uint32_t EndOfValue(const Line& line) const {
        const char before = bytes_[line.value.begin - 1];
        const std::string_view pair = bytes_.substr(line.value.begin, 2);
        if (line.value.Size() == 0 && (pair == "\"\"" || pair == "''")) {
            return line.value.begin + 2;
        }
        const bool isQuoted = before == '"' || before == '\'';
        const bool isClosed =
            isQuoted && line.value.end < line.text.end && bytes_[line.value.end] == before;
        return line.value.end + (isClosed ? 1 : 0);
    }

    /// Where the comment begins of a line whose content ends at `end`: at a '#' where the grammar
    /// has such comments, else at the ';' that ended the content, if one did.
    std::uint32_t FindComment(const Line& line, std::size_t end) const {
        if (line.kind == LineKind::kNothing || line.kind == LineKind::kValue) {
            std::uint32_t at = line.kind == LineKind::kValue ? EndOfValue(line) : line.text.begin;
            while (at < end && IsSpace(bytes_[at])) {
                ++at;
            }
            if (at < end && bytes_[at] == '#') {
                return at;
            }
        }
        const bool hasComment = end < line.text.end && bytes_[end] == ';';
        return hasComment ? static_cast<std::uint32_t>(end) : line.text.end;
    }

    std::string_view bytes_;
    Span whole_;  ///< the line, from newline to newline, that the last piece was of
};

/// Counts lines up to places that come in the file's order.
class LineCounter {
public:
    explicit LineCounter(std::string_view bytes) : bytes_(bytes) {}

    std::uint32_t NumberOf(std::uint32_t place) {
        const auto newlines = std::count(bytes_.begin() + counted_, bytes_.begin() + place, '\n');
        number_ += static_cast<std::uint32_t>(newlines);
        counted_ = place;
        return number_;
    }

private:
    std::string_view bytes_;
    std::uint32_t number_ = 1;
    std::uint32_t counted_ = 0;
};

bool HasDirective(std::string_view comment) {
    return comment.find(kDirective) != std::string_view::npos;
}

bool IsSameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && SameInAnyCase(a.data(), b.data(), a.size());
}

}  // namespace

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return lower;
}

IniFile::IniFile(std::string bytes) : bytes_(std::move(bytes)) {
    TakeLines();
}

void IniFile::TakeLines() {
    LineMaker maker(bytes_);
    LineReader reader(bytes_);
    LineCounter counter(bytes_);
    std::uint32_t section = kNoLine;
    bool isTooLong = false;
    TextLine piece;
    while (reader.Next(&piece)) {
        if (isTooLong && maker.Continues(piece)) {
            continue;
        }
        Line line = maker.Make(piece);
        isTooLong = line.kind == LineKind::kTooLong || line.kind == LineKind::kNul;
        if (line.kind == LineKind::kNothing && HasDirective(maker.CommentOf(line))) {
            line.kind = LineKind::kComment;
        }
        if (line.kind == LineKind::kNothing) {
            continue;
        }
        line.number = counter.NumberOf(line.text.begin);
        line.section = section;
        if (line.kind == LineKind::kSection && !line.isBare) {
            section = static_cast<std::uint32_t>(lines_.size());
        }
        Keep(line);
    }
    if (!isAccepted_) {
        slots_.assign(1, {});
        keyCount_ = 0;
    }
}

void IniFile::Keep(const Line& line) {
    lines_.push_back(line);
    switch (line.kind) {
        case LineKind::kSyntaxError:
        case LineKind::kTooLong:
        case LineKind::kNul:
            isAccepted_ = false;
            break;
        case LineKind::kSection:
        case LineKind::kValue:
            SetKey(&lines_.back());
            break;
        default:
            break;
    }
}

void IniFile::SetKey(Line* line) {
    const auto number = static_cast<std::uint32_t>(lines_.size() - 1);
    const FullKey name = NameOf(*line);
    const std::uint32_t hash = HashInAnyCase(name.View());
    Slot& slot = slots_[SlotOf(hash, name.View())];
    if (slot.line != kNoLine) {
        line->former = std::exchange(slot.line, number);
        lines_[line->former].isReplaced = true;
        return;
    }
    slot = {.hash = hash, .line = number};
    ++keyCount_;
    if (2 * keyCount_ > slots_.size()) {
        GrowSlots();
    }
}

/// The place of a key, or the free one where it belongs.
std::size_t IniFile::SlotOf(std::uint32_t hash, std::string_view name) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.line == kNoLine) {
            return at;
        }
        if (slot.hash == hash && IsSameName(NameOf(lines_[slot.line]).View(), name)) {
            return at;
        }
    }
}

void IniFile::GrowSlots() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : before) {
        std::size_t at = slot.hash & mask;
        while (slot.line != kNoLine && slots_[at].line != kNoLine) {
            at = (at + 1) & mask;
        }
        slots_[at] = slot.line != kNoLine ? slot : slots_[at];
    }
}

std::string_view IniFile::SectionOf(const Line& line) const {
    return line.section == kNoLine ? std::string_view() : TextOf(lines_[line.section].name);
}

FullKey IniFile::NameOf(const Line& line) const {
    if (line.kind == LineKind::kSection) {
        return FullKey(line.isBare ? SectionOf(line) : TextOf(line.name));
    }
    return {SectionOf(line), TextOf(line.name)};
}

std::string IniFile::KeyOf(const Line& line) const {
    return LowerCase(NameOf(line).View());
}

const Line* IniFile::Find(std::string_view key) const {
    const Slot& slot = slots_[SlotOf(HashInAnyCase(key), key)];
    return slot.line == kNoLine ? nullptr : &lines_[slot.line];
}

}  // namespace paramgen::tree
