/// Loading the capture settings of a media mode, for their tests.
#pragma once

#include <string>

#include "param/camera/vcap_spec.h"
#include "support/product_tree.h"
#include "support/row_checks.h"

namespace paramgen::testing {

inline Status Load(void* record) {
    return PDT_INIPARAM_LoadCamVcapSpecCfg("mode", static_cast<MediaMode>(7),
                                           static_cast<VcapSpecCfg*>(record));
}

inline ProductTree EmptyTree() {
    return ProductTree().AddModule("mode");
}

inline LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 1036, Load);
}

/// A tree with one key of the media mode set.
inline ProductTree With(const std::string& key, const std::string& value) {
    return EmptyTree().Set("mode", key, value);
}

}  // namespace paramgen::testing
