#include "confaccess/ini_line.h"

#include "safestr/short_text.h"

namespace paramgen {
namespace {

constexpr IniLine kNoContent = {.kind = IniLineKind::kNothing, .name = {}, .value = {}};
constexpr IniLine kBadLine = {.kind = IniLineKind::kSyntaxError, .name = {}, .value = {}};

std::string_view StripStart(std::string_view text) {
    const char* begin = text.data();
    const char* const end = begin + text.size();
    while (begin != end && IsSpace(*begin)) {
        ++begin;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

std::string_view StripEnd(std::string_view text) {
    const char* const begin = text.data();
    const char* end = begin + text.size();
    while (end != begin && IsSpace(end[-1])) {
        --end;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

std::string_view CutAt(std::string_view text, char c) {
    return {text.data(), FindFirst(text, c)};
}

/// Parses a name in brackets. Text after the first ']' is ignored.
IniLine ParseSection(std::string_view text) {
    text.remove_prefix(1);
    if (text.front() == ']') {
        return {.kind = IniLineKind::kSection, .name = {}, .value = {}};
    }
    return {
        .kind = IniLineKind::kSection, .name = StripEnd(StripStart(CutAt(text, ']'))), .value = {}};
}

/// Returns whether a value is quoted: it begins with a quote, and at least one character follows
/// before the closing quote or the line's end.
bool IsQuoted(std::string_view value) {
    return value.size() > 1 && (value[0] == '\'' || value[0] == '"') && value[1] != value[0];
}

/// Parses the text after the '='. It gives an empty value when there is nothing before a '#', or
/// only a pair of quotes.
std::string_view ParseValue(std::string_view text) {
    std::string_view value = StripStart(text);
    if (IsQuoted(value)) {
        const char quote = value.front();
        value.remove_prefix(1);
        return CutAt(value, quote);
    }
    value = StripEnd(CutAt(value, '#'));
    if (value == "\"\"" || value == "''") {
        value.remove_suffix(2);
    }
    return value;
}

}  // namespace

IniLine ParseIniLine(std::string_view text) {
    text = StripEnd(StripStart(text));
    if (text.empty() || text.front() == '#') {
        return kNoContent;
    }
    if (text.front() == '[' && text.back() == ']') {
        return ParseSection(text);
    }
    const std::size_t equals = FindFirst(text, '=');
    if (equals == 0 || equals == text.size()) {
        return kBadLine;
    }
    const std::string_view name(text.data(), equals);
    text.remove_prefix(equals + 1);
    return {.kind = IniLineKind::kValue, .name = StripEnd(name), .value = ParseValue(text)};
}

}  // namespace paramgen
