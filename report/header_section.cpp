#include <algorithm>
#include <string>

#include "report/markup.h"
#include "report/sections.h"

namespace paramgen::report {
namespace {

std::string Term(const std::string& term, const std::string& html) {
    return "<dt>" + term + "</dt><dd>" + html + "</dd>";
}

std::string Code(const std::string& text) {
    return "<code>" + EscapeHtml(text) + "</code>";
}

template <typename Condition>
std::size_t CountOf(const Page& page, Condition condition) {
    return static_cast<std::size_t>(
        std::count_if(page.values.begin(), page.values.end(), condition));
}

std::string Figure(const std::string& link, std::size_t number, const std::string& noun,
                   const std::string& kind) {
    return "<li class=\"" + kind + (number == 0 ? " none" : "") + "\"><a href=\"#" + link +
           "\"><b>" + std::to_string(number) + "</b> " + noun + "</a></li>";
}

std::string FigureOf(const Page& page, State state, const std::string& link,
                     const std::string& noun) {
    const std::size_t number =
        CountOf(page, [&](const Value& value) { return value.state == state; });
    return number == 0 ? "" : Figure("?show=" + link, number, noun, link);
}

}  // namespace

std::string Identity(const Page& page) {
    std::string html = "<dl class=\"identity\">";
    if (!page.version.empty()) {
        html += Term("Version", EscapeHtml(page.version));
    }
    html += Term("From", Code(page.input));
    if (!page.against.empty()) {
        html += Term("Compared with", Code(page.against));
    }
    if (!page.sha256.empty()) {
        html += Term("Image, SHA-256", Code(page.sha256));
    }
    return html + "</dl>";
}

std::string Figures(const Page& page) {
    std::string html = "<ul class=\"figures\" aria-label=\"At a glance\">";
    if (page.checked) {
        const auto errors = static_cast<std::size_t>(
            std::count_if(page.findings.begin(), page.findings.end(),
                          [](const Finding& finding) { return finding.severity == "error"; }));
        html += Figure("findings", errors, errors == 1 ? "error" : "errors", "error");
        const std::size_t warnings = page.findings.size() - errors;
        html += Figure("findings", warnings, warnings == 1 ? "warning" : "warnings", "warning");
    }
    if (!page.against.empty()) {
        html += Figure("changes", CountOf(page, [](const Value& value) { return value.changed; }),
                       "changed", "changed");
    }
    html += FigureOf(page, State::kSet, "set", "set");
    html += FigureOf(page, State::kDefault, "default", "default");
    html += FigureOf(page, State::kUnread, "unread", "not read");
    const std::size_t flagged =
        CountOf(page, [](const Value& value) { return !value.flags.empty(); });
    if (flagged != 0) {
        html += Figure("?show=flagged", flagged, "flagged", "flagged");
    }
    return html + "</ul>";
}

}  // namespace paramgen::report
