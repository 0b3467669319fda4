#include "decompile/image_facts.h"

#include <algorithm>
#include <set>

namespace paramgen::decompile {
namespace {

void AddElements(std::span<const layout::Value> values,
                 std::map<std::uint32_t, std::vector<CountedElement>>* elements) {
    for (const layout::Value& value : values) {
        for (const layout::Condition& condition : value.conditions) {
            if (condition.kind == layout::ConditionKind::kCounted) {
                (*elements)[condition.count].push_back(
                    {.number = condition.number, .offset = value.offset, .size = value.size});
            }
        }
    }
}

KeyId IdOfName(const layout::KeyName& name) {
    return layout::FindKey(name.module, name.section, name.key);
}

/// Every element of an array whose length is that of its leading keys, the last one included.
void AddLeading(const layout::Value& value, std::unordered_map<KeyId, LeadingKey>* keys) {
    for (const layout::Condition& condition : value.conditions) {
        if (condition.kind != layout::ConditionKind::kLeading) {
            continue;
        }
        for (std::uint32_t i = 0; i < condition.keys.size(); ++i) {
            (*keys)[IdOfName(condition.keys[i])] = {.count = condition.count, .number = i};
        }
        if (!condition.keys.empty() && value.key == condition.keys.back().key) {
            (*keys)[IdOfName({value.module, value.section, value.key})] = {
                .count = condition.count, .number = condition.number};
        }
    }
}

std::set<std::string> FindOptional() {
    std::set<std::string> optional;
    for (const layout::Value& value : layout::Values()) {
        for (const layout::Condition& condition : value.conditions) {
            if (condition.kind == layout::ConditionKind::kSearchedModule ||
                condition.kind == layout::ConditionKind::kOptionalModule) {
                optional.insert(value.modules.begin(), value.modules.end());
            }
        }
    }
    return optional;
}

}  // namespace

const layout::Value* ValueOf(KeyId key, std::uint32_t offset) {
    if (key == nullptr || key->values.empty()) {
        return nullptr;
    }
    const auto found =
        std::find_if(key->values.begin(), key->values.end(),
                     [&](const layout::Value* value) { return value->offset == offset; });
    return found == key->values.end() ? key->values.front() : *found;
}

const std::map<std::uint32_t, std::vector<CountedElement>>& CountedElements() {
    static const auto kElements = [] {
        std::map<std::uint32_t, std::vector<CountedElement>> elements;
        AddElements(layout::Values(), &elements);
        AddElements(layout::SpilledValues(), &elements);
        return elements;
    }();
    return kElements;
}

bool IsCount(KeyId key, std::uint32_t offset) {
    static const auto kCounts = [] {
        std::unordered_map<std::uint32_t, KeyId> counts;
        for (const auto& [at, elements] : CountedElements()) {
            const layout::Value& owner = *layout::ValueAt(at);
            counts[at] = IdOfName({owner.module, owner.section, owner.key});
        }
        return counts;
    }();
    const auto count = kCounts.find(offset);
    return count != kCounts.end() && count->second == key;
}

const std::unordered_map<KeyId, LeadingKey>& LeadingKeys() {
    static const auto kKeys = [] {
        std::unordered_map<KeyId, LeadingKey> keys;
        for (const layout::Value& value : layout::Values()) {
            AddLeading(value, &keys);
        }
        return keys;
    }();
    return kKeys;
}

bool IsOptional(const std::string& module) {
    static const std::set<std::string> kOptional = FindOptional();
    return kOptional.count(module) != 0;
}

const std::vector<std::string>& NeededModules() {
    static const auto kNeeded = [] {
        std::vector<std::string> needed;
        for (const layout::Value& value : layout::Values()) {
            for (const layout::Name module : value.modules) {
                if (!IsOptional(module) &&
                    std::find(needed.begin(), needed.end(), module) == needed.end()) {
                    needed.push_back(module);
                }
            }
        }
        return needed;
    }();
    return kNeeded;
}

}  // namespace paramgen::decompile
