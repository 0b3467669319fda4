/// JSON results: members in the order in which they are given, texts always valid.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "output/shown_text.h"

namespace paramgen::output {

using Json = nlohmann::ordered_json;

/// A text of the input as a JSON string; what is no UTF-8 in it becomes U+FFFD.
inline Json JsonText(std::string_view text) {
    return ValidUtf8(text);
}

/// A result as it is written: indented by two, with a newline at its end.
inline std::string Dumped(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace paramgen::output
