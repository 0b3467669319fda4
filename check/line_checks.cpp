// Lines of accepted files that are ignored, or have another meaning than it seems.

#include "check/inspection.h"
#include "check/lost_module.h"
#include "diagnostics/places.h"

namespace paramgen::check {
namespace {

using diagnostics::RuleId;
using tree::Line;
using tree::LineKind;

/// The bytes of a mark at the beginning of a file, or its first ones.
tree::Span BeginningOf(const Line& line) {
    return {line.text.begin, std::min(line.text.begin + 3, line.text.end)};
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\v\f") == std::string_view::npos;
}

void CheckLine(const tree::FoundFile& file, const Line& line, Inspection* inspection) {
    const std::string_view text = file.ini->TextOf(line.text);
    if (line.kind == LineKind::kIgnored && !IsBlank(text)) {
        inspection->Warn(
            RuleId::kLineIgnored, file, line, line.text,
            text.size() == 1
                ? "the last line is one character and has no newline: it is passed over"
                : "the last line ends in '\\' and has no newline: it is passed over");
    } else if (line.hasNul) {
        const auto nul = line.text.begin + static_cast<std::uint32_t>(text.find('\0'));
        inspection->Warn(RuleId::kNulByte, file, line, {nul, nul + 1},
                         line.kind == LineKind::kCutAtNul
                             ? "the line is passed over: it has a NUL byte at its beginning"
                             : "the line ends at a NUL byte");
    } else if (line.kind == LineKind::kValue && text.substr(0, text.size()).starts_with('[') &&
               file.ini->TextOf(line.name).find(']') != std::string_view::npos) {
        inspection->Warn(
            RuleId::kSectionComment, file, line, line.name,
            "behind a [section] only a ';' comment is allowed; this line is a key, and "
            "those below stay in the section before");
        inspection->MarkBad(line);
    }
}

void CheckFile(const tree::FoundFile& file, Inspection* inspection) {
    if (file.ini == nullptr || !file.ini->IsAccepted()) {
        return;
    }
    const std::string encoding = EncodingOf(file.ini->bytes());
    if (!encoding.empty() && !file.ini->lines().empty()) {
        const Line& first = file.ini->lines().front();
        inspection->Warn(RuleId::kEncoding, file, first, BeginningOf(first), encoding);
        inspection->MarkBad(first);
    }
    if (IsUtf16(file.ini->bytes())) {
        return;  // its lines are none
    }
    bool isMisplaced = false;  // behind a section that is none
    for (const Line& line : file.ini->lines()) {
        isMisplaced = isMisplaced && line.kind != LineKind::kSection;
        if (isMisplaced) {
            inspection->MarkBad(line);
        }
        if (!inspection->IsBad(line)) {
            CheckLine(file, line, inspection);
            isMisplaced = inspection->IsBad(line);
        }
    }
}

}  // namespace

void CheckLines(Inspection* inspection) {
    CheckFile(inspection->entry(), inspection);
    for (const auto& file : inspection->product().files()) {
        CheckFile(*file, inspection);
    }
}

}  // namespace paramgen::check
