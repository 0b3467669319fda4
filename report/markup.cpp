#include "report/markup.h"

#include "output/shown_text.h"

namespace paramgen::report {

std::string EscapeHtml(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : output::Shown(text)) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string EscapeLines(std::string_view text) {
    std::string escaped;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        escaped += EscapeHtml(text.substr(0, end)) + "\n";
        text.remove_prefix(end + 1);
    }
    return escaped + EscapeHtml(text);
}

std::string EscapeScript(const nlohmann::ordered_json& value) {
    using Json = nlohmann::ordered_json;
    const std::string json = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string escaped;
    escaped.reserve(json.size());
    for (std::size_t i = 0; i < json.size(); ++i) {
        const std::string_view rest = std::string_view(json).substr(i, 3);
        if (rest == "\xe2\x80\xa8" || rest == "\xe2\x80\xa9") {
            escaped += rest[2] == '\xa8' ? "\\u2028" : "\\u2029";
            i += 2;
            continue;
        }
        switch (json[i]) {
            case '<':
                escaped += "\\u003c";
                break;
            case '>':
                escaped += "\\u003e";
                break;
            case '&':
                escaped += "\\u0026";
                break;
            default:
                escaped += json[i];
        }
    }
    return escaped;
}

std::string EscapeFragment(std::string_view text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "-._~!$'()*+,;=:@/?";
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isWord =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (isWord || kPlain.find(c) != std::string_view::npos) {
            escaped += c;
        } else {
            escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return escaped;
}

}  // namespace paramgen::report
