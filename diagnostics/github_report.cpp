#include "diagnostics/report.h"
#include "output/shown_text.h"

namespace paramgen::diagnostics {
namespace {

/// A text as a command's data takes it.
std::string Data(std::string_view text) {
    std::string escaped;
    for (const char c : output::ValidUtf8(text)) {
        switch (c) {
            case '%':
                escaped += "%25";
                break;
            case '\r':
                escaped += "%0D";
                break;
            case '\n':
                escaped += "%0A";
                break;
            default:
                escaped += c;
                break;
        }
    }
    return escaped;
}

/// A text as a command's property takes it.
std::string Property(std::string_view text) {
    std::string escaped;
    for (const char c : Data(text)) {
        escaped += c == ':' ? "%3A" : (c == ',' ? "%2C" : std::string(1, c));
    }
    return escaped;
}

std::string Annotation(const Finding& finding) {
    std::string text = "::" + std::string(NameOf(finding.severity)) +
                       " file=" + Property(output::Shown(finding.place.file));
    if (finding.place.line != 0) {
        const Columns columns = InCharacters(finding.place);
        text += ",line=" + std::to_string(finding.place.line) +
                ",col=" + std::to_string(columns.begin) +
                ",endColumn=" + std::to_string(columns.end);
    }
    std::string message = output::Shown(FullMessage(finding));
    for (const Note& note : finding.notes) {
        message += "\n" + output::Shown(note.place.file + ":" + std::to_string(note.place.line) +
                                        ": " + note.message);
    }
    return text + ",title=" + std::string(RuleOf(finding.id).name) + "::" + Data(message) + "\n";
}

/// The text report, in which no line of the input is taken for a command.
std::string Guarded(const std::string& text) {
    const std::string token = "paramtool-" + HashOf(text);
    return "::stop-commands::" + token + "\n" + text + "::" + token + "::\n";
}

}  // namespace

std::string GithubReport(const std::vector<Finding>& findings) {
    if (findings.empty()) {
        return "";
    }
    std::string text = Guarded(TextReport(findings, false));
    for (const Severity severity : {Severity::kError, Severity::kWarning}) {
        for (const Finding& finding : findings) {
            text += finding.severity == severity ? Annotation(finding) : "";
        }
    }
    return text;
}

}  // namespace paramgen::diagnostics
