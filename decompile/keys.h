/// The keys of a product that is not written down yet.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "compile/imagined.h"

namespace paramgen::decompile {

/// A key: module, and "section:key" as the loaders spell it.
using KeyId = std::pair<std::string, std::string>;

/// Modules, and the keys that they have.
class Keys : public compile::Imagined {
public:
    std::set<std::string, std::less<>> modules;
    std::map<KeyId, std::string> texts;

    bool HasModule(std::string_view name) override { return modules.count(name) != 0; }

    std::optional<std::string> Text(std::string_view module, std::string_view key,
                                    const std::optional<compile::Place>&) override {
        const auto found = texts.find(KeyId(module, key));
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }
};

}  // namespace paramgen::decompile
