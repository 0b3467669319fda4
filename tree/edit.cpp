#include "tree/edit.h"

#include <algorithm>
#include <vector>

#include "tree/lines.h"

namespace paramgen::tree {
namespace {

/// Whether `bytes` says that `key` is `value`, and is accepted.
bool Says(const std::string& bytes, std::string_view key, std::string_view value) {
    const IniFile file(bytes);
    const Line* line = file.Find(key);
    return line != nullptr && line->kind == LineKind::kValue && file.TextOf(line->value) == value;
}

/// The bytes with another text in place of a part.
std::string Replaced(const std::string& bytes, Span part, const std::string& text) {
    return bytes.substr(0, part.begin) + text + bytes.substr(part.end);
}

/// The last line that says something in a section; null when there is no such section.
const Line* LastOfSection(const IniFile& file, std::string_view section) {
    const Line* last = nullptr;
    bool isIn = false;
    for (const Line& line : file.lines()) {
        if (line.kind == LineKind::kSection && !line.isBare) {
            isIn = LowerCase(file.TextOf(line.name)) == section;
        }
        if (isIn && (line.kind == LineKind::kSection || line.kind == LineKind::kValue)) {
            last = &line;
        }
    }
    return last;
}

/// One past the empty lines that begin at `at`.
std::uint32_t EndOfEmptyLines(const std::string& bytes, std::uint32_t at) {
    while (at < bytes.size() && (bytes[at] == '\n' || bytes.compare(at, 2, "\r\n") == 0)) {
        at += bytes[at] == '\n' ? 1 : 2;
    }
    return at;
}

/// Puts lines into the file at `at`, which is where a line begins, or the file's end.
std::string Inserted(const std::string& bytes, std::uint32_t at, const std::string& lines) {
    const bool needsEnd = at > 0 && bytes[at - 1] != '\n';
    const std::string end = lines.ends_with("\r\n") ? "\r\n" : "\n";
    return bytes.substr(0, at) + (needsEnd ? end : "") + lines + bytes.substr(at);
}

/// Whether the keys of two texts are the same but for `key`.
bool SameButFor(const IniFile& before, const std::string& after, std::string_view key) {
    const IniFile file(after);
    const std::string lower = LowerCase(key);
    return file.IsAccepted() &&
           std::all_of(file.lines().begin(), file.lines().end(), [&](const Line& line) {
               if (line.kind != LineKind::kValue || file.KeyOf(line) == lower) {
                   return true;
               }
               const Line* old = before.Find(file.KeyOf(line));
               const Line* counts = file.Find(file.KeyOf(line));
               return old != nullptr && counts != nullptr && old->kind == counts->kind &&
                      before.TextOf(old->value) == file.TextOf(counts->value);
           });
}

/// Adds a key to its section, or to a new one at the end of the file.
std::optional<std::string> AddKey(const IniFile& file, std::string_view key,
                                  std::string_view value) {
    const std::size_t colon = key.rfind(':');
    const std::string section = LowerCase(key.substr(0, colon));
    const std::string_view item = key.substr(colon + 1);
    const std::string& bytes = file.bytes();
    const Line* last = LastOfSection(file, section);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    const std::size_t lastLine = bytes.rfind('\n');
    const auto beforeLast = static_cast<std::uint32_t>(lastLine == bytes.npos ? 0 : lastLine + 1);
    const std::string end =
        LineEnd(bytes, file.lines().empty() ? Span{size, size} : file.lines().back().text);
    for (const std::string& spelling : Spellings(value)) {
        std::string alone = "[";
        alone.append(key.substr(0, colon)).append("]").append(end);
        alone.append(item).append(" = ").append(spelling).append(end);
        std::vector<std::string> tries;
        if (last != nullptr) {
            tries.push_back(
                Inserted(bytes, NextLine(bytes, last->text), NewLine(file, *last, item, spelling)));
        }
        // A last line that is passed over must stay the last.
        tries.push_back(Inserted(bytes, size, (bytes.empty() ? "" : end) + alone));
        tries.push_back(Inserted(bytes, beforeLast, alone));
        for (std::string& changed : tries) {
            if (Says(changed, key, value) && SameButFor(file, changed, key)) {
                return std::move(changed);
            }
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> WithKey(const IniFile& file, std::string_view key,
                                   std::string_view value) {
    const Line* line = file.Find(key);
    if (line != nullptr && line->kind == LineKind::kValue) {
        if (file.TextOf(line->value) == value) {
            return file.bytes();
        }
        const std::optional<ChangedPart> changed = ChangedValue(file, *line, value);
        return changed ? std::optional(Replaced(file.bytes(), changed->part, changed->text))
                       : std::nullopt;
    }
    return AddKey(file, key, value);
}

std::string WithoutKey(const IniFile& file, std::string_view key) {
    const std::string lower = LowerCase(key);
    std::string bytes = file.bytes();
    for (auto line = file.lines().rbegin(); line != file.lines().rend(); ++line) {
        if (line->kind == LineKind::kValue && file.KeyOf(*line) == lower) {
            bytes.erase(line->text.begin, NextLine(file.bytes(), line->text) - line->text.begin);
        }
    }
    return bytes;
}

std::string WithRenamedKey(const IniFile& file, std::string_view key, std::string_view item) {
    const std::string lower = LowerCase(key);
    std::string bytes = file.bytes();
    for (auto line = file.lines().rbegin(); line != file.lines().rend(); ++line) {
        if (line->kind == LineKind::kValue && file.KeyOf(*line) == lower) {
            bytes.replace(line->name.begin, line->name.Size(), item);
        }
    }
    return bytes;
}

std::string WithoutSection(const IniFile& file, std::string_view section) {
    const std::string lower = LowerCase(section);
    std::vector<Span> parts;
    bool isIn = false;
    for (const Line& line : file.lines()) {
        if (line.kind == LineKind::kSection && !line.isBare) {
            isIn = file.KeyOf(line) == lower;
        }
        if (isIn && (line.kind == LineKind::kSection || line.kind == LineKind::kValue)) {
            const std::uint32_t end = NextLine(file.bytes(), line.text);
            parts.push_back({line.text.begin, EndOfEmptyLines(file.bytes(), end)});
        }
    }
    std::string bytes = file.bytes();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        bytes.erase(part->begin, part->Size());
    }
    return bytes;
}

}  // namespace paramgen::tree
