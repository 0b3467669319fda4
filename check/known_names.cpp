#include "check/known_names.h"

#include "param/common/media_mode.h"

namespace paramgen::check {

std::vector<std::string> NamesOf(const layout::Key* key) {
    if (key == nullptr) {
        return {};
    }
    const NameTable* names =
        key->values.empty() ? &kMediaModeNames : layout::NamesOf(*key->values.front());
    return names == nullptr ? std::vector<std::string>() : layout::AllNames(*names);
}

}  // namespace paramgen::check
