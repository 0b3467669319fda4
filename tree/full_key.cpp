#include "tree/full_key.h"

#include <algorithm>

namespace paramgen::tree {

FullKey::FullKey(std::string_view section, std::string_view key) {
    const std::size_t size = section.size() + 1 + key.size();
    char* to = short_.data();
    if (size > short_.size()) {
        long_.resize(size);
        to = long_.data();
    }
    view_ = {to, size};
    to = std::copy(section.begin(), section.end(), to);
    *to++ = ':';
    std::copy(key.begin(), key.end(), to);
}

}  // namespace paramgen::tree
