/// Loading the record work mode, for its tests.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "param/workmode/record.h"
#include "support/product_tree.h"
#include "support/row_checks.h"

namespace paramgen::testing {

/// Loads a record that is at the end of its section.
inline Status Load(void* record) {
    const std::span<std::byte> bytes(static_cast<std::byte*>(record), 4528);
    return PDT_INIPARAM_LoadRecWorkModeConf(static_cast<RecWorkModeCfg*>(record),
                                            bytes.subspan(4484));
}

inline ProductTree EmptyTree() {
    return ProductTree().AddModule("workmode_record");
}

inline ProductTree With(const std::string& key, const std::string& value) {
    return EmptyTree().Set("workmode_record", key, value);
}

inline LoadResult LoadTree(const ProductTree& tree) {
    return RunLoad(tree, 4528, Load);
}

/// A product in which every handle is counted.
inline ProductTree FullTree() {
    ProductTree tree = With("normal.0:filecnt", "2");
    tree.Set("workmode_record", "normal.0:thmcnt", "4");
    for (const std::string file : {"0", "1"}) {
        const std::string node = "normal.0.filenum." + file + ".fileattr";
        tree.Set("workmode_record", node + ":venccnt", "2")
            .Set("workmode_record", node + ":aenccnt", "1");
    }
    return tree;
}

}  // namespace paramgen::testing
