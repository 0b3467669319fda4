#include "manual/name_lists.h"

#include <algorithm>

#include "layout/layout.h"
#include "manual/words.h"

namespace paramgen::manual {

std::vector<const NameTable*> NameLists() {
    std::vector<const NameTable*> lists;
    for (const layout::Value& value : layout::Values()) {
        const NameTable* names = layout::NamesOf(value);
        if (names != nullptr && std::find(lists.begin(), lists.end(), names) == lists.end()) {
            lists.push_back(names);
        }
    }
    return lists;
}

std::string ListName(const NameTable& names) {
    return SnakeCase(names.Prefix());
}

}  // namespace paramgen::manual
