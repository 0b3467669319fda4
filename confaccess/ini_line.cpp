#include "confaccess/ini_line.h"

#include <cctype>
#include <cstring>

namespace paramgen {
namespace {

char g_empty[] = "";

bool IsSpace(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

char* SkipSpace(char* text) {
    while (IsSpace(*text)) {
        ++text;
    }
    return text;
}

void StripEnd(char* text) {
    std::size_t length = std::strlen(text);
    while (length != 0 && IsSpace(text[length - 1])) {
        --length;
    }
    text[length] = '\0';
}

void CutAt(char* text, char c) {
    char* at = std::strchr(text, c);
    if (at != nullptr) {
        *at = '\0';
    }
}

/// A name between brackets. What stands after the first ']' is ignored.
IniLine ParseSection(char* text) {
    ++text;
    if (*text == ']') {
        return {.kind = IniLineKind::kSection, .name = nullptr, .value = nullptr};
    }
    CutAt(text, ']');
    text = SkipSpace(text);
    StripEnd(text);
    FoldToLower(text);
    return {.kind = IniLineKind::kSection, .name = text, .value = nullptr};
}

/// A value in quotes goes up to the next quote or the line's end; it has at least one character.
bool IsQuoted(const char* value) {
    return (value[0] == '\'' || value[0] == '"') && value[1] != '\0' && value[1] != value[0];
}

/// What stands after the '=', blanks skipped. Nothing before a '#' leaves an empty value, and so
/// does a pair of quotes alone.
char* ParseValue(char* value) {
    if (IsQuoted(value)) {
        const char quote = *value++;
        CutAt(value, quote);
        return value;
    }
    CutAt(value, '#');
    StripEnd(value);
    if (std::strcmp(value, "\"\"") == 0 || std::strcmp(value, "''") == 0) {
        return g_empty;
    }
    return value;
}

}  // namespace

void FoldToLower(char* text) {
    for (; *text != '\0'; ++text) {
        if (*text >= 'A' && *text <= 'Z') {
            *text = static_cast<char>(*text - 'A' + 'a');
        }
    }
}

IniLine ParseIniLine(char* text) {
    text = SkipSpace(text);
    CutAt(text, ';');
    StripEnd(text);
    if (*text == '\0' || *text == '#') {
        return {.kind = IniLineKind::kNothing, .name = nullptr, .value = nullptr};
    }
    if (*text == '[' && text[std::strlen(text) - 1] == ']') {
        return ParseSection(text);
    }
    char* equals = std::strchr(text, '=');
    if (equals == nullptr || equals == text) {
        return {.kind = IniLineKind::kSyntaxError, .name = nullptr, .value = nullptr};
    }
    *equals = '\0';
    StripEnd(text);
    FoldToLower(text);
    return {.kind = IniLineKind::kValue, .name = text, .value = ParseValue(SkipSpace(equals + 1))};
}

}  // namespace paramgen
