#include <set>
#include <string>
#include <utility>

#include "report/markup.h"
#include "report/page_data.h"
#include "report/sections.h"
#include "report/value_html.h"

namespace paramgen::report {
namespace {

/// A table ends with the first section that ends behind as many rows.
constexpr int kRowsPerTable = 40;

/// What stands above the rows of one section.
std::string HeadingOf(const Value& value) {
    if (value.key.empty()) {
        return EscapeHtml(value.part) + " <span class=\"section\">without a key</span>";
    }
    return EscapeHtml(value.module) + " <span class=\"section\">[" + EscapeHtml(value.section) +
           "]</span>";
}

std::string ClassesOf(const Value& value) {
    std::string classes = NameOf(value.state);
    classes += value.changed ? " changed" : "";
    classes += value.flags.empty() ? "" : " flagged";
    return classes;
}

/// Writes the values' tables.
class Tables {
public:
    explicit Tables(const Page& page) : page_(page) {}

    std::string Html() {
        for (const Value& value : page_.values) {
            Place(value);
            html_ += Row(value);
            ++rows_;
        }
        CloseTable();
        return std::move(html_);
    }

private:
    /// Opens the table and the section that `value` stands in, unless they are open. What has no
    /// key stays with what is before it.
    void Place(const Value& value) {
        const bool isWithin = value.key.empty() && value.part == part_;
        const std::string heading = isWithin ? heading_ : HeadingOf(value);
        part_ = value.part;
        if (heading == heading_) {
            return;
        }
        if (rows_ >= kRowsPerTable) {
            CloseTable();
        }
        if (heading_.empty()) {
            html_ += std::string("<div class=\"block") +
                     (page_.against.empty() ? "" : " compared") + "\"><table>" + Head();
        } else {
            html_ += "</tbody>";
        }
        html_ += "<tbody><tr class=\"heading\"><th colspan=\"" + std::string(Columns()) +
                 "\" scope=\"rowgroup\">" + heading + "</th></tr>\n";
        heading_ = heading;
    }

    void CloseTable() {
        if (!heading_.empty()) {
            html_ += "</tbody></table></div>\n";
        }
        heading_.clear();
        rows_ = 0;
    }

    const char* Columns() const { return page_.against.empty() ? "5" : "6"; }

    std::string Head() const {
        const std::string before = page_.against.empty() ? "" : "<th scope=\"col\">Before</th>";
        const std::string column = page_.against.empty() ? "" : "<col class=\"before\">";
        return "<colgroup><col class=\"key\"><col class=\"value\">" + column +
               "<col class=\"default\"><col class=\"from\"><col class=\"offset\"></colgroup>"
               "<thead><tr><th scope=\"col\">Key</th><th scope=\"col\">Value</th>" +
               before +
               "<th scope=\"col\">Default</th><th scope=\"col\">From</th>"
               "<th scope=\"col\">Offset</th></tr></thead>";
    }

    std::string Row(const Value& value) {
        const std::string path = PathOf(value);
        const std::string offset = std::to_string(value.offset);
        const bool isFirst = !path.empty() && known_.insert(path + value.key).second;
        const std::string id = isFirst ? path + value.key : "@" + offset;
        std::string html = "<tr id=\"" + EscapeHtml(id) + "\" class=\"" + ClassesOf(value) +
                           "\"><th scope=\"row\"><a href=\"#" + EscapeHtml(EscapeFragment(id)) +
                           "\">";
        if (path.empty()) {
            html += EscapeHtml(value.member);
        } else {
            html += "<span class=\"path\">" + EscapeHtml(path) + "</span>" + EscapeHtml(value.key);
        }
        html += "</a>" + AboutHtml(value) + "</th><td>" +
                ValueHtml(value.value, value.name, value.unit) + "</td>";
        if (!page_.against.empty()) {
            html += "<td class=\"old\">" +
                    (value.changed ? ValueHtml(value.old, value.oldName, value.unit) : "") +
                    "</td>";
        }
        return html + "<td>" + EscapeHtml(value.initial) + "</td><td>" + OriginHtml(value) +
               "</td><td" + (isFirst ? " id=\"@" + offset + "\"" : "") + ">" + offset +
               "</td></tr>\n";
    }

    const Page& page_;
    std::string html_;
    std::string heading_;          ///< of the open section; empty: no table is open
    std::string part_;             ///< of the last value
    int rows_ = 0;                 ///< in the open table
    std::set<std::string> known_;  ///< keys that have a row
};

}  // namespace

std::string Values(const Page& page) {
    return Tables(page).Html();
}

}  // namespace paramgen::report
