/// The keys of a product that is not written down yet.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "compile/imagined.h"
#include "layout/layout.h"

namespace paramgen::decompile {

/// A key that a run may ask for.
using KeyId = const layout::Key*;

/// The key of a module that is called "section:key"; null when the layout knows none.
inline KeyId IdOf(std::string_view module, std::string_view key) {
    const std::size_t colon = key.rfind(':');
    return layout::FindKey(module, key.substr(0, colon), key.substr(colon + 1));
}

/// The key of an answer, as above.
inline KeyId IdOf(const compile::Answer& answer) {
    return IdOf(answer.module, answer.key);
}

/// The values of keys.
using KeyTexts = std::unordered_map<KeyId, std::string>;

/// Modules, and the keys that they have.
class Keys : public compile::Imagined {
public:
    std::set<std::string, std::less<>> modules;
    KeyTexts texts;

    bool HasModule(std::string_view name) override { return modules.count(name) != 0; }

    std::optional<std::string> Text(std::string_view module, std::string_view key,
                                    const std::optional<compile::Place>&) override {
        const auto found = texts.find(IdOf(module, key));
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }
};

}  // namespace paramgen::decompile
