#include "layout/made_parts.h"

#include <sstream>

#include "layout/format_table.h"
#include "layout/fuzz_words.h"

namespace paramgen::layout {
namespace {

constexpr std::string_view kBegin = "made: ";
constexpr std::string_view kEnd = "end of what is made";

/// The content of the part that `line` begins; empty when its name is unknown.
std::string MadePart(const std::string& line) {
    std::istringstream words(line.substr(line.find(kBegin) + kBegin.size()));
    std::string what;
    std::string part;
    words >> what >> part;
    if (what == "table") {
        return "\n" + FormatTable(part) + "\n";
    }
    return what == "fuzz" && part == "words" ? FuzzWords() : "";
}

}  // namespace

std::optional<std::string> RenewMadeParts(const std::string& text, std::string* error) {
    std::istringstream lines(text);
    std::string renewed;
    std::string line;
    bool isMade = false;
    while (std::getline(lines, line)) {
        isMade = isMade && line.find(kEnd) == line.npos;
        if (isMade) {
            continue;
        }
        renewed += line + "\n";
        if (line.find(kBegin) != line.npos) {
            isMade = true;
            const std::string part = MadePart(line);
            if (part.empty()) {
                *error = "no such part: " + line;
                return std::nullopt;
            }
            renewed += part;
        }
    }
    if (isMade) {
        *error = "the last made part has no end";
        return std::nullopt;
    }
    return renewed;
}

}  // namespace paramgen::layout
