#include "report/template.h"

#include <cstddef>

namespace paramgen::report {

std::string Fill(std::string_view text, const std::map<std::string, std::string>& parts) {
    std::string filled;
    while (!text.empty()) {
        const std::size_t begin = text.find('@');
        filled += text.substr(0, begin);
        if (begin == std::string_view::npos) {
            break;
        }
        text.remove_prefix(begin + 1);
        const std::size_t end = text.find('@');
        const auto part = end == std::string_view::npos
                              ? parts.end()
                              : parts.find(std::string(text.substr(0, end)));
        if (part == parts.end()) {
            filled += '@';
            continue;
        }
        filled += part->second;
        text.remove_prefix(end + 1);
    }
    return filled;
}

}  // namespace paramgen::report
