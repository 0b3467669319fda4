#include "report/value_html.h"

#include "report/markup.h"

namespace paramgen::report {

std::string ValueHtml(const std::string& value, const std::string& name, const std::string& unit) {
    std::string html = EscapeHtml(value);
    if (!unit.empty() && !value.empty()) {
        html += " <span class=\"unit\">" + EscapeHtml(unit) + "</span>";
    }
    if (!name.empty()) {
        html += " <span class=\"name\">" + EscapeHtml(name) + "</span>";
    }
    return html;
}

std::string OriginHtml(const Value& value) {
    switch (value.state) {
        case State::kSet:
            return value.place.empty() ? "set" : EscapeHtml(value.place);
        case State::kDefault:
            return "default";
        case State::kUnread:
            return "not read";
        case State::kStored:
            return "";
        case State::kConstant:
            return "constant";
        case State::kReserved:
            return "reserved";
    }
    return "";
}

std::string AboutHtml(const Value& value) {
    return value.about.empty() ? "" : "<small>" + EscapeHtml(value.about) + "</small>";
}

std::string PathOf(const Value& value) {
    return value.key.empty() ? "" : value.module + "/" + value.section + ":";
}

std::string TitleOf(const Value& value) {
    return value.key.empty() ? value.member : PathOf(value) + value.key;
}

}  // namespace paramgen::report
