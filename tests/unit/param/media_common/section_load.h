/// Loading the media common section, for its tests.
#pragma once

#include <string>
#include <vector>

#include "param/media_common/media_common.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"

namespace paramgen::testing {

/// A product whose module "media_common" has one key, or none.
inline ProductTree MediaTree() {
    return ProductTree().AddModule("media_common");
}
inline ProductTree MediaTree(const std::string& key, const std::string& text) {
    return MediaTree().Set("media_common", key, text);
}

inline LoadResult LoadSection(const ProductTree& tree) {
    return RunLoad(tree, 716, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommConf(static_cast<MediaCommCfg*>(record));
    });
}

/// The chain of failures of the section when `key` holds a number beyond 32 bits.
inline std::vector<std::string> ChainOf(const std::string& key) {
    const LoadResult result = LoadSection(MediaTree(key, "99999999999"));
    return result.status == -1 ? ErrorsOf(result.output) : std::vector<std::string>{"no failure"};
}

/// The record of a failed step with the code -1, or with another code.
inline std::string Failed(const std::string& function, const std::string& label,
                          const std::string& code = "FFFFFFFF") {
    return "PDT_INIPARAM_" + function + ": [" + label + "] failed[0x" + code + "]\n";
}

/// The record about a text that is too long.
inline std::string NotFormatted(const std::string& function) {
    return "PDT_INIPARAM_" + function + ": [sprintf_s] failed\n";
}

}  // namespace paramgen::testing
