#include "check/value_text.h"

namespace paramgen::check {
namespace {

using diagnostics::RuleId;
using tree::Line;
using tree::Span;

bool IsQuote(char c) {
    return c == '"' || c == '\'';
}

/// The places around a value, in the file's bytes.
struct Surroundings {
    bool isQuoted = false;  ///< it stands between quotes, of which the second may be missing
    bool isClosed = false;
    std::uint32_t end = 0;  ///< where it ends, the quotes included
    char cut = '\0';        ///< the ';' or '#' that ends it, if one does
};

Surroundings Look(const tree::IniFile& ini, const Line& line) {
    const std::string& bytes = ini.bytes();
    Surroundings around;
    const char before = bytes[line.value.begin - 1];
    around.end = line.value.end;
    around.isQuoted = IsQuote(before) && line.value.Size() != 0;
    if (around.isQuoted && line.value.end < line.text.end && bytes[line.value.end] == before) {
        around.isClosed = true;
        ++around.end;
    }
    if (line.comment < line.text.end) {
        around.cut = bytes[line.comment];
    }
    return around;
}

std::string Behind(const tree::IniFile& ini, const Line& line, std::uint32_t from) {
    const std::string_view text = ini.TextOf({from, line.comment});
    const std::size_t begin = text.find_first_not_of(" \t\r\v\f");
    const std::size_t end = text.find_last_not_of(" \t\r\v\f");
    return begin == std::string_view::npos ? "" : std::string(text.substr(begin, end - begin + 1));
}

}  // namespace

void CheckText(Inspection* inspection, const tree::FoundFile& file, const Line& line) {
    const tree::IniFile& ini = *file.ini;
    const Surroundings around = Look(ini, line);
    const Span part = line.value.Size() == 0 ? line.name : line.value;
    const std::string value(ini.TextOf(line.value));
    if (around.isQuoted && !around.isClosed) {
        const bool isCut = around.cut == ';';
        inspection->Warn(
            isCut ? RuleId::kValueCut : RuleId::kQuote, file, line, part,
            isCut ? "the ';' ends the value, quotes or not: " + Quoted(value) + " is left"
                  : "the quote before " + Quoted(value) + " is never closed");
        return;
    }
    if (around.isClosed) {
        const std::string behind = Behind(ini, line, around.end);
        if (!behind.empty()) {
            inspection->Warn(RuleId::kQuote, file, line, part,
                             Quoted(behind) + " behind the quotes is dropped");
        }
        return;
    }
    if (value.size() == 1 && IsQuote(value[0])) {
        inspection->Warn(RuleId::kQuote, file, line, part, "a quote alone is taken as the value");
        return;
    }
    if (value.size() > 2 && IsQuote(value[0]) && value[1] == value[0]) {
        inspection->Warn(RuleId::kQuote, file, line, part,
                         "there is text behind a pair of quotes; all of it is the value");
        return;
    }
    if (around.cut != '\0' && !value.empty() && line.comment == line.value.end) {
        inspection->Warn(
            RuleId::kValueCut, file, line, part,
            "the '" + std::string(1, around.cut) +
                "' directly behind it ends the value; put white space before a comment");
    }
}

}  // namespace paramgen::check
