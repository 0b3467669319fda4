#include <map>
#include <string>
#include <vector>

#include "report/markup.h"
#include "report/sections.h"
#include "report/value_html.h"

namespace paramgen::report {
namespace {

/// The places of one key whose values changed; of a value without a key, itself.
using Places = std::vector<const Value*>;

std::vector<Places> ChangedKeys(const Page& page) {
    std::vector<Places> keys;
    std::map<std::string, std::size_t> known;
    for (const Value& value : page.values) {
        if (!value.changed) {
            continue;
        }
        const auto [place, isNew] = known.try_emplace(TitleOf(value), keys.size());
        if (isNew) {
            keys.emplace_back();
        }
        keys[place->second].push_back(&value);
    }
    return keys;
}

std::string RowOf(const Places& places) {
    const Value& value = *places.front();
    const std::string more =
        places.size() == 1
            ? ""
            : " <span class=\"places\">(" + std::to_string(places.size()) + " places)</span>";
    return "<tr><th scope=\"row\"><a href=\"#@" + std::to_string(value.offset) + "\">" +
           EscapeHtml(TitleOf(value)) + "</a>" + more + AboutHtml(value) +
           "</th><td class=\"old\">" + ValueHtml(value.old, value.oldName, value.unit) +
           "</td><td class=\"new\">" + ValueHtml(value.value, value.name, value.unit) +
           "</td><td>" + EscapeHtml(value.initial) + "</td><td class=\"origin\">" +
           OriginHtml(value) + "</td></tr>\n";
}

}  // namespace

std::string Changes(const Page& page) {
    if (page.against.empty()) {
        return "";
    }
    const std::vector<Places> keys = ChangedKeys(page);
    std::string html =
        "<section id=\"changes\" aria-labelledby=\"changes-title\" tabindex=\"-1\">\n"
        "<h2 id=\"changes-title\">Changes <span class=\"count\">" +
        std::to_string(keys.size()) + "</span></h2>\n";
    if (keys.empty()) {
        return html + "<p class=\"fine\">The images are equal.</p>\n</section>\n";
    }
    html +=
        "<table class=\"changes\"><thead><tr><th scope=\"col\">Key</th><th "
        "scope=\"col\">Before</th>"
        "<th scope=\"col\">Now</th><th scope=\"col\">Default</th><th scope=\"col\">From</th></tr>"
        "</thead><tbody>\n";
    for (const Places& places : keys) {
        html += RowOf(places);
    }
    return html + "</tbody></table>\n</section>\n";
}

}  // namespace paramgen::report
