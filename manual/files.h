/// The files of the manual's page, which the build embeds from manual/page/.
#pragma once

#include <string_view>

namespace paramgen::manual {

extern const std::string_view kReferenceHtml;
extern const std::string_view kReferenceStyle;
extern const std::string_view kReferenceScript;

}  // namespace paramgen::manual
