#include "support/records.h"

#include <regex>

namespace paramgen::testing {
namespace {

// A record's prefix: "ESC[m[LEVEL-MODULE]:FUNCTION[LINE]:", where LEVEL may be coloured.
const std::regex& Prefix() {
    static const std::regex prefix(
        "\033\\[m\\[(?:\033\\[1;[0-9]+m)?([A-Z]*)(?:\033\\[m)?-([^\\]]*)\\]:([A-Za-z0-9_]*)\\[[0-9]"
        "+"
        "\\]:");
    return prefix;
}

// A line of the library log, long or short form.
const std::regex& LibraryLine() {
    static const std::regex line("\\[[0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3,4}\\]\\[[A-Z]*\\][^\n]*\n");
    return line;
}

}  // namespace

std::vector<LogRecord> ParseRecords(std::string_view output) {
    const std::string text = std::regex_replace(std::string(output), LibraryLine(), "");
    std::vector<LogRecord> records;
    std::size_t end = 0;
    for (std::sregex_iterator at(text.begin(), text.end(), Prefix()), none; at != none; ++at) {
        if (!records.empty()) {
            records.back().message =
                text.substr(end, static_cast<std::size_t>(at->position()) - end);
        }
        records.push_back({(*at)[1], (*at)[2], (*at)[3], ""});
        end = static_cast<std::size_t>(at->position() + at->length());
    }
    if (!records.empty()) {
        records.back().message = text.substr(end);
    }
    return records;
}

std::vector<std::string> TextsOf(std::string_view output, std::string_view level) {
    std::vector<std::string> texts;
    for (const LogRecord& record : ParseRecords(output)) {
        if (record.level == level) {
            texts.push_back(record.Text());
        }
    }
    return texts;
}

std::string MaskTimes(std::string_view output) {
    static const std::regex time("\\[[0-9]{2}:[0-9]{2}:[0-9]{2}:[0-9]{3,4}\\]");
    return std::regex_replace(std::string(output), time, "[time]");
}

std::string MaskVolatile(std::string_view output) {
    static const std::regex line("(\033\\[m\\[[^\n]*?-PARAM\\]:[A-Za-z0-9_]*)\\[[0-9]+\\]:");
    return std::regex_replace(MaskTimes(output), line, "$1[#]:");
}

}  // namespace paramgen::testing
