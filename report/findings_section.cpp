#include <algorithm>
#include <iterator>
#include <string>

#include "report/markup.h"
#include "report/sections.h"
#include "report/value_html.h"

namespace paramgen::report {
namespace {

std::string NotesOf(const Finding& finding) {
    if (finding.notes.empty()) {
        return "";
    }
    std::string html = "<ul class=\"notes\">";
    for (const std::string& note : finding.notes) {
        html += "<li>" + EscapeHtml(note) + "</li>";
    }
    return html + "</ul>";
}

/// The value that owns the byte at `offset`; null when there is none.
const Value* Owner(const Page& page, std::uint32_t offset) {
    const auto isBehind = [](std::uint32_t at, const Value& value) { return at < value.offset; };
    const auto next = std::upper_bound(page.values.begin(), page.values.end(), offset, isBehind);
    return next == page.values.begin() ? nullptr : &*std::prev(next);
}

std::string LinksOf(const Page& page, const Finding& finding) {
    std::string html;
    for (const std::uint32_t offset : finding.offsets) {
        const Value* value = Owner(page, offset);
        if (value != nullptr) {
            html += " <a href=\"#@" + std::to_string(offset) + "\">" + EscapeHtml(TitleOf(*value)) +
                    "</a>";
        }
    }
    return html.empty() ? "" : "<p class=\"to-values\">See" + html + "</p>";
}

std::string HtmlOf(const Page& page, std::size_t number) {
    const Finding& finding = page.findings[number];
    const std::string severity = EscapeHtml(finding.severity);
    std::string html = "<li class=\"finding " + severity + "\" id=\"finding-" +
                       std::to_string(number) + "\"><p class=\"message\"><strong>" + severity +
                       "</strong> " + EscapeHtml(finding.message) +
                       "</p><p class=\"origin\"><code>" + EscapeHtml(finding.place) +
                       "</code> <span class=\"id\">" + EscapeHtml(finding.id) + "</span></p>";
    if (!finding.excerpt.empty()) {
        html += "<pre tabindex=\"0\">" + EscapeLines(finding.excerpt) + "</pre>";
    }
    return html + NotesOf(finding) + LinksOf(page, finding) + "</li>\n";
}

std::string Heading(const Page& page) {
    const auto isError = [](const Finding& finding) { return finding.severity == "error"; };
    const auto errors = std::count_if(page.findings.begin(), page.findings.end(), isError);
    const auto warnings = static_cast<std::ptrdiff_t>(page.findings.size()) - errors;
    const auto count = [](std::ptrdiff_t number, const std::string& noun) {
        return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
    };
    return "<h2 id=\"findings-title\">Findings <span class=\"count\">" + count(errors, "error") +
           ", " + count(warnings, "warning") + "</span></h2>\n";
}

}  // namespace

std::string Findings(const Page& page) {
    if (!page.checked) {
        return "";
    }
    std::string html =
        "<section id=\"findings\" aria-labelledby=\"findings-title\" tabindex=\"-1\">\n" +
        Heading(page);
    if (!page.failure.empty()) {
        html += "<p class=\"failure\">" + EscapeHtml(page.failure) + "</p>\n";
    }
    if (page.findings.empty()) {
        return html + "<p class=\"fine\">Nothing is wrong or suspicious.</p>\n</section>\n";
    }
    html += "<ol class=\"findings\">\n";
    for (const bool errors : {true, false}) {
        for (std::size_t i = 0; i < page.findings.size(); ++i) {
            if ((page.findings[i].severity == "error") == errors) {
                html += HtmlOf(page, i);
            }
        }
    }
    return html + "</ol>\n</section>\n";
}

}  // namespace paramgen::report
