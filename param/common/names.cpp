#include "param/common/names.h"

#include <cstring>

namespace paramgen {

const NamedNumber* FindName(std::span<const NamedNumber> table, const char* name) {
    for (const NamedNumber& entry : table) {
        if (std::strncmp(entry.name, name, kNameCompareMax) == 0) {
            return &entry;
        }
    }
    return nullptr;
}

}  // namespace paramgen
