#include "check/lost_module.h"

#include <algorithm>
#include <filesystem>

#include "diagnostics/places.h"
#include "diagnostics/suggestion.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using diagnostics::Severity;
using tree::Line;
using tree::LineKind;

constexpr std::size_t kNotesMax = 5;

/// The value of an entry file's line, for a finding about it.
diagnostics::Place PlaceInEntry(const Inspection& inspection, const Line* line) {
    if (line == nullptr) {
        return diagnostics::PlaceOf(inspection.entry());
    }
    return diagnostics::PlaceOf(inspection.entry(), *line,
                                line->value.Size() == 0 ? line->name : line->value);
}

/// The file name in a directory that differs from `name` in case only; empty when there is none.
std::string InOtherCase(const std::filesystem::path& directory, const std::string& name) {
    std::error_code error;
    std::filesystem::directory_iterator it(directory, error);
    for (; !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::string found = it->path().filename().string();
        if (tree::LowerCase(found) == tree::LowerCase(name)) {
            return found;
        }
    }
    return "";
}

/// The path of what is there in place of a file that is not, whose path differs from it in case
/// only; empty when nothing is.
std::string PathInOtherCase(const std::string& path) {
    std::filesystem::path found;
    for (const std::filesystem::path& part : std::filesystem::path(path)) {
        std::error_code error;
        if (std::filesystem::exists(found / part, error)) {
            found /= part;
            continue;
        }
        const std::string other = InOtherCase(found.empty() ? "." : found, part.string());
        if (other.empty()) {
            return "";
        }
        found /= other;
    }
    return found.string();
}

/// The words that tell what was expected instead of an invalid line.
std::string Expected(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\v\f"), text.size());
    text.remove_prefix(begin);
    for (const std::string_view marker : {"<<<<<<<", "=======", ">>>>>>>", "|||||||"}) {
        if (text.starts_with(marker)) {
            return "a merge conflict marker; resolve the conflict";
        }
    }
    if (text.starts_with('[')) {
        return text.find(']') == std::string_view::npos
                   ? "a ']' is missing"
                   : "behind a [section] only a ';' comment is allowed";
    }
    if (text.starts_with('=')) {
        return "there is no key before the '='";
    }
    if (text.starts_with("//") || text.starts_with("/*") || text.starts_with('!')) {
        return "comments begin with ';' or '#'";
    }
    return "expected [section], key = value, or a comment";
}

/// The finding about a line because of which its file is refused.
Finding FindingOfLine(const tree::FoundFile& file, const Line& line) {
    Finding finding;
    tree::Span part = line.text;
    switch (line.kind) {
        case LineKind::kTooLong:
            finding.id = RuleId::kLineTooLong;
            finding.message =
                "the line has " + Counted(line.text.Size(), "byte") + "; at most 1022 are allowed";
            break;
        case LineKind::kNul: {
            finding.id = RuleId::kNulByte;
            finding.message = "the line goes on behind a NUL byte";
            const auto nul = static_cast<std::uint32_t>(file.ini->TextOf(line.text).find('\0'));
            part = {line.text.begin + nul, line.text.begin + nul + 1};
            break;
        }
        default: {
            finding.id = RuleId::kSyntax;
            const std::string_view text = file.ini->TextOf({line.text.begin, line.comment});
            finding.message = Expected(text);
            const std::size_t begin = text.find_first_not_of(" \t\r\v\f");
            const std::size_t end = text.find_last_not_of(" \t\r\v\f");
            part = {line.text.begin + static_cast<std::uint32_t>(begin),
                    line.text.begin + static_cast<std::uint32_t>(end + 1)};
            break;
        }
    }
    finding.place = diagnostics::PlaceOf(file, line, part);
    return finding;
}

bool IsFault(const Line& line) {
    return line.kind == LineKind::kSyntaxError || line.kind == LineKind::kTooLong ||
           line.kind == LineKind::kNul;
}

}  // namespace

bool IsUtf16(std::string_view bytes) {
    const bool isMarked = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    const bool looksWide = bytes.size() >= 4 && ((bytes[0] == '\0' && bytes[2] == '\0') ||
                                                 (bytes[1] == '\0' && bytes[3] == '\0'));
    return isMarked || looksWide;
}

std::string EncodingOf(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return "the file begins with a byte order mark; save it as UTF-8 without one";
    }
    return IsUtf16(bytes) ? "the file is UTF-16; save it as UTF-8" : "";
}

void TellRefusedFile(Inspection* inspection, const tree::FoundFile& file, const std::string& module,
                     Severity severity) {
    const std::span<const Line> lines = file.ini->lines();
    const auto first = std::find_if(lines.begin(), lines.end(), IsFault);
    Finding finding = FindingOfLine(file, *first);
    const std::string encoding = EncodingOf(file.ini->bytes());
    if (!encoding.empty()) {
        finding.id = RuleId::kEncoding;
        finding.message = encoding;
        finding.place = diagnostics::PlaceOf(
            file, *first, {first->text.begin, std::min(first->text.begin + 3, first->text.end)});
        finding.place.source.resize(std::min<std::size_t>(finding.place.source.size(), 3));
    }
    finding.severity = severity;
    finding.module = module;
    for (auto next = first + 1; encoding.empty() && next != lines.end(); ++next) {
        if (IsFault(*next) && finding.notes.size() < kNotesMax) {
            const Finding further = FindingOfLine(file, *next);
            finding.notes.push_back({.place = further.place, .message = further.message});
        }
    }
    inspection->Add(std::move(finding), file);
}

namespace {

/// Notes that a file was looked for elsewhere than its path says, which has no '/'.
void AddIgnoredPath(Inspection* inspection, const tree::Module& module, Finding* finding) {
    const Line* line = inspection->entry().ini->Find(module.name + ":path");
    if (line == nullptr || line->kind != LineKind::kValue || line->value.Size() == 0) {
        return;
    }
    const std::string_view path = inspection->entry().ini->TextOf(line->value);
    if (path.find('/') == std::string_view::npos) {
        finding->notes.push_back(
            {.place = PlaceInEntry(*inspection, line),
             .message = "a path without '/' is not taken; write ./" + std::string(path)});
        inspection->MarkBad(*line);
    }
}

/// Tells of a file that is not there, or that may not be read.
void TellUnreadable(Inspection* inspection, const tree::Module& module, Severity severity) {
    Finding finding;
    finding.id = RuleId::kModuleUnreadable;
    finding.severity = severity;
    finding.module = module.name;
    finding.place =
        PlaceInEntry(*inspection, inspection->entry().ini->Find(module.name + ":cfg_filename"));
    finding.message = "the file of " + Quoted(module.name) + ", " + Quoted(module.file->shown) +
                      ", cannot be read";
    const std::string other = PathInOtherCase(module.file->shown);
    if (!other.empty() && std::filesystem::path(other) != module.file->shown) {
        finding.message += "; there is " + Quoted(other);
    }
    AddIgnoredPath(inspection, module, &finding);
    inspection->Add(std::move(finding), inspection->entry());
}

void TellTooLong(Inspection* inspection, const tree::Module& module, Severity severity) {
    const bool isName = module.fate == tree::ModuleFate::kNameTooLong;
    Finding finding;
    finding.id = RuleId::kPathTooLong;
    finding.severity = severity;
    finding.module = module.name;
    const Line* path = inspection->entry().ini->Find(module.name + ":path");
    const Line* line = isName ? inspection->LineOfModule(module.number) : path;
    line = line == nullptr ? inspection->entry().ini->Find(module.name + ":cfg_filename") : line;
    finding.place = PlaceInEntry(*inspection, line);
    finding.message =
        isName ? "the name has " + Counted(module.name.size(), "byte") +
                     "; at most 114 fit with its keys"
               : "the path of " + Quoted(module.name) + "'s file has more than 255 bytes";
    inspection->Add(std::move(finding), inspection->entry());
}

/// The line beyond module_num that lists a module; null when there is none.
const Line* LineBeyondCount(const tree::IniFile& ini, const std::string& name) {
    const std::span<const Line> lines = ini.lines();
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
        return line.kind == LineKind::kValue && ini.TextOf(line.value) == name &&
               ini.KeyOf(line).starts_with("module:module");
    });
    return found == lines.end() ? nullptr : &*found;
}

/// Tells of a module that the loaders need and that is not read. All of those that are listed
/// beyond module_num are one finding.
void TellMissing(Inspection* inspection, const std::string& name) {
    const tree::IniFile& ini = *inspection->entry().ini;
    const Line* beyond = LineBeyondCount(ini, name);
    Finding finding;
    finding.id = RuleId::kModuleMissing;
    finding.severity = Severity::kError;
    finding.module = name;
    finding.place = PlaceInEntry(*inspection, ini.Find("module:module_num"));
    finding.message = "the module " + Quoted(name) + " is needed, and not listed";
    if (beyond == nullptr) {
        inspection->Add(std::move(finding), inspection->entry());
        return;
    }
    inspection->MarkBad(*beyond);
    finding.message = "modules that are needed are not read: module_num is " +
                      std::to_string(inspection->product().moduleCount());
    diagnostics::Note note = {
        .place = diagnostics::PlaceOf(inspection->entry(), *beyond, beyond->value),
        .message = Quoted(name) + " is listed here, beyond module_num"};
    for (Finding& known : inspection->findings()) {
        if (known.id == RuleId::kModuleMissing && known.message == finding.message) {
            known.notes.push_back(std::move(note));
            return;
        }
    }
    finding.notes.push_back(std::move(note));
    inspection->Add(std::move(finding), inspection->entry());
}

}  // namespace

void TellLostModule(Inspection* inspection, const std::string& name, Severity severity) {
    const std::vector<tree::Module>& modules = inspection->product().modules();
    const auto found = std::find_if(modules.begin(), modules.end(), [&](const auto& module) {
        return module.name == name && module.fate != tree::ModuleFate::kRead;
    });
    if (found == modules.end()) {
        TellMissing(inspection, name);
        return;
    }
    switch (found->fate) {
        case tree::ModuleFate::kUnreadable:
            TellUnreadable(inspection, *found, severity);
            break;
        case tree::ModuleFate::kRefused:
            TellRefusedFile(inspection, *found->file, name, severity);
            break;
        default:
            TellTooLong(inspection, *found, severity);
            break;
    }
}

}  // namespace paramgen::check
