/// The keys of a product that is not written down yet.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "compile/imagined.h"
#include "layout/layout.h"

namespace paramgen::decompile {

/// A key that a run may ask for.
using KeyId = const layout::Key*;

/// The key of a module that is called "section:key"; null when the layout knows none. It is found
/// quickly when it follows the key that was looked up before as it did the last time.
KeyId IdOf(std::string_view module, std::string_view key);

/// The key of an answer, as above.
inline KeyId IdOf(const compile::Answer& answer) {
    return IdOf(answer.module, answer.key);
}

/// The values of keys.
using KeyTexts = std::unordered_map<KeyId, std::string>;

/// Modules, and the keys that they have.
struct Keys {
    std::set<std::string, std::less<>> modules;
    KeyTexts texts;
};

/// The keys that a run has asked for, in its order. Each answer has an id.
struct Asked {
    std::vector<compile::Answer> answers;
    std::vector<KeyId> ids;
};

/// A product that is asked by ids, and notes them.
class Product : public compile::Imagined {
public:
    bool HasModule(std::string_view name) final { return modules_.count(name) != 0; }

    std::optional<std::string> Text(std::string_view module, std::string_view key,
                                    const std::optional<compile::Place>& place) final {
        ids_.push_back(IdOf(module, key));
        return TextOf(ids_.back(), module, place);
    }

    /// Those that were asked for since it was made.
    std::vector<KeyId> TakeIds() { return std::move(ids_); }

protected:
    /// A product with these modules, which have to live as long.
    explicit Product(const std::set<std::string, std::less<>>& modules) : modules_(modules) {}

    virtual std::optional<std::string> TextOf(KeyId id, std::string_view module,
                                              const std::optional<compile::Place>& place) = 0;

private:
    const std::set<std::string, std::less<>>& modules_;
    std::vector<KeyId> ids_;
};

}  // namespace paramgen::decompile
