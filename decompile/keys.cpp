#include "decompile/keys.h"

namespace paramgen::decompile {
namespace {

bool IsCalled(const layout::Key& known, std::string_view module, std::string_view key) {
    const std::string_view section = known.name.section;
    const std::string_view name = known.name.key;
    return known.name.module == module && key.size() == section.size() + 1 + name.size() &&
           key.starts_with(section) && key[section.size()] == ':' && key.ends_with(name);
}

/// Keys in the order in which they were last looked up. Loaders ask for them in much the same order
/// in every run.
class KeyOrder {
public:
    KeyId Find(std::string_view module, std::string_view key) {
        KeyId& next = next_[last_];
        if (next == nullptr || !IsCalled(*next, module, key)) {
            const std::size_t colon = key.rfind(':');
            next = layout::FindKey(module, key.substr(0, colon), key.substr(colon + 1));
        }
        if (next != nullptr && next->role != layout::KeyRole::kSpill) {
            last_ = static_cast<std::size_t>(next - layout::Keys().data());
        }
        return next;
    }

private:
    std::vector<KeyId> next_ = std::vector<KeyId>(layout::Keys().size());  ///< by number of a key
    std::size_t last_ = 0;
};

}  // namespace

KeyId IdOf(std::string_view module, std::string_view key) {
    static KeyOrder order;
    return order.Find(module, key);
}

}  // namespace paramgen::decompile
