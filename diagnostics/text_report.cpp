#include <algorithm>
#include <cstdio>

#include "diagnostics/report.h"
#include "output/shown_text.h"

namespace paramgen::diagnostics {
namespace {

/// More of a source line than this is not shown.
constexpr std::size_t kSourceMax = 400;

/// Puts colours around texts, or not.
class Painter {
public:
    explicit Painter(bool isColored) : isColored_(isColored) {}

    std::string Bold(const std::string& text) const { return Paint("1", text); }
    std::string Green(const std::string& text) const { return Paint("1;32", text); }
    std::string Named(Severity severity, const std::string& text) const {
        return Paint(severity == Severity::kError ? "1;31" : "1;35", text);
    }
    std::string Cyan(const std::string& text) const { return Paint("1;36", text); }

private:
    std::string Paint(const char* color, const std::string& text) const {
        return isColored_ ? std::string("\x1B[") + color + "m" + text + "\x1B[m" : text;
    }

    bool isColored_;
};

std::string Located(const Place& place) {
    std::string text = output::Shown(place.file);
    if (place.line != 0) {
        text += ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
    }
    return text + ":";
}

/// The source line with a caret under its part, two lines; empty for a place without a line.
std::string Excerpt(const Place& place, const Painter& painter) {
    if (place.line == 0) {
        return "";
    }
    std::string_view source = place.source;
    if (source.ends_with('\r')) {
        source.remove_suffix(1);
    }
    const bool isCut = source.size() > kSourceMax;
    source = source.substr(0, kSourceMax);
    const std::size_t from = std::min<std::size_t>(place.column - 1, source.size());
    const std::size_t to = std::min<std::size_t>(place.endColumn - 1, source.size());
    const output::ShownLine shown = output::ShowLine(source, from, to);
    char number[16];
    std::snprintf(number, sizeof number, "%5u", place.line);
    const std::size_t tail = shown.end > shown.begin ? shown.end - shown.begin - 1 : 0;
    std::string text = shown.text;
    text.erase(text.find_last_not_of(' ') + 1);
    return std::string(number) + " | " + text + (isCut ? "..." : "") + "\n      | " +
           std::string(shown.begin, ' ') + painter.Green("^" + std::string(tail, '~')) + "\n";
}

}  // namespace

std::string_view NameOf(Severity severity) {
    return severity == Severity::kError ? "error" : "warning";
}

std::string FullMessage(const Finding& finding) {
    std::string message = finding.message;
    if (!finding.suggestion.empty()) {
        message += "; did you mean '" + finding.suggestion + "'?";
    }
    return message;
}

std::string TextReport(const std::vector<Finding>& findings, bool isColored) {
    const Painter painter(isColored);
    std::string text;
    for (const Finding& finding : findings) {
        text += painter.Bold(Located(finding.place)) + " " +
                painter.Named(finding.severity, std::string(NameOf(finding.severity)) + ":") + " " +
                output::Shown(FullMessage(finding)) + " [" + std::string(RuleOf(finding.id).name) +
                "]\n" + Excerpt(finding.place, painter);
        for (const Note& note : finding.notes) {
            text += painter.Bold(Located(note.place)) + " " + painter.Cyan("note:") + " " +
                    output::Shown(note.message) + "\n" + Excerpt(note.place, painter);
        }
    }
    return text;
}

}  // namespace paramgen::diagnostics
