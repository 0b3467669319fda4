#include "tree/lines.h"

#include <algorithm>

#include "tree/spelling.h"

namespace paramgen::tree {
namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The written value behind a line's '=', with its quotes.
Span WrittenValue(const IniFile& file, const Line& line) {
    const std::string& bytes = file.bytes();
    std::uint32_t begin = static_cast<std::uint32_t>(bytes.find('=', line.name.end)) + 1;
    while (begin < line.comment && IsBlank(bytes[begin])) {
        ++begin;
    }
    if (begin >= line.comment) {
        return {.begin = line.comment, .end = line.comment};
    }
    const bool isQuote = bytes[begin] == '"' || bytes[begin] == '\'';
    std::uint32_t end = std::max(line.value.end, begin);
    if (isQuote && begin + 1 < line.comment) {
        const std::size_t close = bytes.find(bytes[begin], begin + 1);
        end = close < line.comment ? std::max(end, static_cast<std::uint32_t>(close) + 1) : end;
    }
    return {.begin = begin, .end = end};
}

/// Whether the line, with `text` in place of `part`, gives its key this value.
bool Says(const IniFile& file, const Line& line, Span part, const std::string& text,
          std::string_view value) {
    const std::string& bytes = file.bytes();
    std::string changed = bytes.substr(line.text.begin, part.begin - line.text.begin) + text +
                          bytes.substr(part.end, line.text.end - part.end);
    changed += line.text.end < bytes.size() ? "\n" : "";
    const IniFile alone(std::move(changed));
    const Line* found = alone.Find(":" + std::string(file.TextOf(line.name)));
    return found != nullptr && found->kind == LineKind::kValue &&
           alone.TextOf(found->value) == value;
}

}  // namespace

std::vector<std::string> Spellings(std::string_view value) {
    std::vector<std::string> all;
    if (const std::optional<std::string> plain = Spelled(value)) {
        all = {*plain, "\"" + std::string(value) + "\"", "'" + std::string(value) + "'"};
    }
    return all;
}

std::optional<ChangedPart> ChangedValue(const IniFile& file, const Line& line,
                                        std::string_view value) {
    const Span written = WrittenValue(file, line);
    const std::string& bytes = file.bytes();
    const bool needsBlank = written.Size() == 0 && written.begin > 0 &&
                            bytes[written.begin - 1] == '=' && written.begin >= 2 &&
                            IsBlank(bytes[written.begin - 2]);
    // Text behind a closing quote is ignored. It goes when it would become part of the value.
    std::uint32_t end = line.comment;
    while (end > written.end && IsBlank(bytes[end - 1])) {
        --end;
    }
    for (const Span part : {written, Span{written.begin, end}}) {
        for (const std::string& spelling : Spellings(value)) {
            std::string text = (needsBlank ? " " : "") + spelling;
            if (Says(file, line, part, text, value)) {
                return ChangedPart{part, std::move(text)};
            }
        }
    }
    return std::nullopt;
}

std::string LineEnd(const std::string& bytes, Span text) {
    const std::size_t next = bytes.find('\n', text.end);
    const std::size_t newline = next == std::string::npos ? bytes.rfind('\n') : next;
    const bool isWindows =
        newline != std::string::npos && newline > 0 && bytes[newline - 1] == '\r';
    return isWindows ? "\r\n" : "\n";
}

std::uint32_t NextLine(const std::string& bytes, Span text) {
    const std::size_t newline = bytes.find('\n', text.end);
    return static_cast<std::uint32_t>(newline == std::string::npos ? bytes.size() : newline + 1);
}

std::string NewLine(const IniFile& file, const Line& before, std::string_view item,
                    const std::string& spelling) {
    const std::string& bytes = file.bytes();
    std::string indent;
    bool isTight = false;
    if (before.kind == LineKind::kValue) {
        indent = bytes.substr(before.text.begin, before.name.begin - before.text.begin);
        isTight = bytes[before.name.end] == '=';
    }
    return indent + std::string(item) + (isTight ? "=" : " = ") + spelling +
           LineEnd(bytes, before.text);
}

}  // namespace paramgen::tree
