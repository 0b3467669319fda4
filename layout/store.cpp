#include "layout/store.h"

#include <cstring>

namespace paramgen::layout {

Store& Store::Get() {
    static Store* const store = new Store;
    return *store;
}

Name Store::Join(std::span<const std::string_view> texts) {
    std::size_t size = 0;
    for (const std::string_view text : texts) {
        size += text.size();
    }
    char* const joined = static_cast<char*>(memory_.allocate(size, 1));
    char* end = joined;
    for (const std::string_view text : texts) {
        end = std::copy(text.begin(), text.end(), end);
    }
    return std::string_view(joined, size);
}

}  // namespace paramgen::layout
