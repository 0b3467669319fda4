#include "fault/sweep/said.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace paramgen::testing {
namespace {

constexpr std::string_view kPrefix = "\033[m[";
constexpr std::string_view kTag = "-PARAM]:";

/// A level without its escape sequences for colour, if it has them.
std::string_view WithoutColour(std::string_view level) {
    if (!level.starts_with('\033')) {
        return level;
    }
    level.remove_prefix(level.find('m') + 1);
    return level.substr(0, level.find('\033'));
}

std::string ConsoleRecord(std::string_view line) {
    const std::size_t tag = line.find(kTag);
    const std::string_view level = WithoutColour(line.substr(kPrefix.size(), tag - kPrefix.size()));
    const std::string_view rest = line.substr(tag + kTag.size());
    const std::string_view function = rest.substr(0, rest.find('['));
    const std::string_view message = rest.substr(rest.find("]:") + 2);
    return std::string(level) + " " + std::string(function) + ": " + std::string(message);
}

/// Whether a line begins with a time of day, "[HH:MM:SS:".
bool HasTime(std::string_view line) {
    return line.size() > 10 && line[0] == '[' && std::isdigit(line[1]) != 0 && line[3] == ':' &&
           line[6] == ':' && line[9] == ':';
}

std::string OneLine(std::string_view line) {
    if (line.starts_with(kPrefix) && line.find(kTag) != std::string_view::npos) {
        return ConsoleRecord(line);
    }
    if (HasTime(line)) {
        return "[time]" + std::string(line.substr(line.find(']') + 1));
    }
    return std::string(line);
}

/// The labels of the sections.
constexpr std::array<std::string_view, 6> kSections = {"DevMng Conf",       "FileMng Conf",
                                                       "Media Common Conf", "WorkMode Conf",
                                                       "ValueSet Conf",     "VideoMode Conf"};

bool IsOneOf(std::string_view text, const auto& texts, std::string_view before,
             const std::string& behind) {
    return std::any_of(texts.begin(), texts.end(), [&](std::string_view middle) {
        return text == std::string(before) + std::string(middle) + behind;
    });
}

/// Whether the lines from `first` on are the records of a failure's callers: of loaders, of
/// PDT_INIPARAM_LoadCfg with a section's label, and of main.
bool HasLevels(const Lines& lines, std::size_t first, const std::string& code) {
    const std::string failed = "] failed[0x" + code + "]";
    if (lines.size() < 3 || lines.size() < first + 2 ||
        *(lines.end() - 1) != "ERROR main: [load config" + failed ||
        !IsOneOf(*(lines.end() - 2), kSections, "ERROR PDT_INIPARAM_LoadCfg: [", failed)) {
        return false;
    }
    return std::all_of(lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end(),
                       [&](const std::string& record) {
                           return record.starts_with("ERROR ") && record.ends_with(failed);
                       });
}

}  // namespace

Lines Said(std::string_view output) {
    Lines lines;
    while (!output.empty()) {
        const std::size_t end = output.find('\n');
        const std::string_view line = output.substr(0, end);
        if (!line.empty()) {
            lines.push_back(OneLine(line));
        }
        output.remove_prefix(end == std::string_view::npos ? output.size() : end + 1);
    }
    return lines;
}

bool IsFormattingChain(const Lines& lines) {
    // This loader logs no code.
    constexpr char kDirNames[] =
        "ERROR PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg: get dir name failed!";
    const std::size_t first = lines.size() > 1 && lines[1] == kDirNames ? 2 : 1;
    return !lines.empty() && lines.front().starts_with("ERROR ") &&
           lines.front().ends_with("printf_s] failed") && HasLevels(lines, first, "FFFFFFFF");
}

}  // namespace paramgen::testing
