/// The page's own files, which the build embeds from report/page/.
#pragma once

#include <string_view>

namespace paramgen::report {

extern const std::string_view kBaseStyle;  ///< what all pages of paramtool look like
extern const std::string_view kPageHtml;   ///< with places for `Fill`
extern const std::string_view kPageStyle;
extern const std::string_view
    kPageScript;  ///< all scripts, in the order in which they build on each other

}  // namespace paramgen::report
