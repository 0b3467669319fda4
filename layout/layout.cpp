#include "layout/layout.h"

#include <algorithm>
#include <utility>

#include "generator/image.h"
#include "layout/name_index.h"
#include "layout/store.h"
#include "layout/walk.h"

namespace paramgen::layout {
namespace {

/// All values of searches: one for each.
std::vector<const Value*> Searched() {
    std::vector<const Value*> searched;
    std::vector<const ModuleSearch*> known;
    for (const Value& value : Values()) {
        for (const Condition& condition : value.conditions) {
            const bool isNew =
                condition.search != nullptr &&
                std::find(known.begin(), known.end(), condition.search) == known.end();
            if (isNew) {
                known.push_back(condition.search);
                searched.push_back(&value);
            }
        }
    }
    return searched;
}

/// The key that names the media mode of `module`, which the search of a value goes through.
KeyView SearchKey(const Value& value, Name module) {
    for (const Condition& condition : value.conditions) {
        if (condition.search != nullptr) {
            const std::string_view key = condition.search->key;
            const std::size_t colon = key.find(':');
            return {module, key.substr(0, colon), key.substr(colon + 1)};
        }
    }
    return {};
}

/// The patterns of all values, in their order.
std::vector<KeyView> ListPatternsOfValues() {
    std::vector<KeyView> patterns;
    for (const Value& value : WalkSections(kImageTable, Indices::kLetters)) {
        patterns.push_back({value.module, value.section, value.key});
    }
    return patterns;
}

std::vector<Pattern> ListPatterns() {
    std::vector<Pattern> patterns;
    NameIndex index;
    for (const Value& value : Values()) {
        if (!value.HasKey()) {
            continue;
        }
        const KeyView& name = PatternOf(value);
        const std::size_t number = index.NumberOf(name, patterns);
        if (number == patterns.size()) {
            patterns.push_back({KeyRole::kValue, name, {}});
            index.Add(patterns);
        }
        patterns[number].values.push_back(&value);
    }
    for (const Value* value : Searched()) {
        patterns.push_back({KeyRole::kSearch, SearchKey(*value, value->module), {}});
    }
    for (const KeyView& name : {KeyView{"", "module", "module_num"},
                                {"", "module", "moduleN"},
                                {"", "MODULE", "path"},
                                {"", "MODULE", "cfg_filename"}}) {
        patterns.push_back({KeyRole::kEntry, name, {}});
    }
    return patterns;
}

/// Keys, and their names.
class KeyList {
public:
    /// The keys of `values`.
    KeyList(KeyRole role, std::span<const Value> values);

    std::span<const Key> keys() const { return keys_; }

    const Key* Find(const KeyView& name) const {
        const std::size_t number = index_.NumberOf(name, keys_);
        return number == keys_.size() ? nullptr : &keys_[number];
    }

    void AddSearches();

private:
    /// A value, and the number of a key that gives it.
    using Giver = std::pair<std::size_t, const Value*>;

    std::size_t NumberOf(KeyRole role, const KeyView& name);
    void SetValues(const std::vector<Giver>& givers);

    std::vector<Key> keys_;
    NameIndex index_;
};

KeyList::KeyList(KeyRole role, std::span<const Value> values) {
    std::vector<Giver> givers;
    keys_.reserve(values.size());
    givers.reserve(values.size());
    for (const Value& value : values) {
        for (const Name module : value.modules) {
            if (value.HasKey()) {
                givers.emplace_back(NumberOf(role, {module, value.section, value.key}), &value);
            }
        }
    }
    SetValues(givers);
}

std::size_t KeyList::NumberOf(KeyRole role, const KeyView& name) {
    const std::size_t number = index_.NumberOf(name, keys_);
    if (number == keys_.size()) {
        keys_.push_back({role, name, {}});
        index_.Add(keys_);
    }
    return number;
}

/// Gives each key its values, which `givers` has in no order of keys.
void KeyList::SetValues(const std::vector<Giver>& givers) {
    std::vector<std::size_t> ends(keys_.size());
    for (const auto& [number, value] : givers) {
        ++ends[number];
    }
    const std::span<const Value*> all = Store::Get().List<const Value*>(givers.size());
    std::size_t begin = 0;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        keys_[i].values = all.subspan(begin, ends[i]);
        begin += ends[i];
        ends[i] = begin;
    }
    for (auto giver = givers.rbegin(); giver != givers.rend(); ++giver) {
        all[--ends[giver->first]] = giver->second;
    }
}

void KeyList::AddSearches() {
    for (const Value* value : Searched()) {
        for (const Name module : value->modules) {
            static_cast<void>(NumberOf(KeyRole::kSearch, SearchKey(*value, module)));
        }
    }
}

const KeyList& ValueKeys() {
    static const KeyList* const list = [] {
        auto* const keys = new KeyList(KeyRole::kValue, Values());
        keys->AddSearches();
        return keys;
    }();
    return *list;
}

const KeyList& SpillKeys() {
    static const KeyList* const list = new KeyList(KeyRole::kSpill, SpilledValues());
    return *list;
}

std::vector<std::string> ListModules() {
    std::vector<std::string> modules;
    for (const Key& key : Keys()) {
        if (std::find(modules.rbegin(), modules.rend(), key.name.module) == modules.rend()) {
            modules.push_back(key.name.module);
        }
    }
    return modules;
}

/// The key of a value: "osd:osdcnt"; its member path when it has no key.
std::string NameAt(std::uint32_t offset) {
    const Value* value = ValueAt(offset);
    if (value == nullptr || !value->HasKey()) {
        return value == nullptr ? "" : value->Member();
    }
    return value->section + ":" + value->key;
}

}  // namespace

// The lists are never destroyed, because that would take a large part of the time of a run.

std::span<const Value> Values() {
    static const auto* const values =
        new std::vector<Value>(WalkSections(kImageTable, Indices::kNumbers));
    return *values;
}

std::span<const Value> SpilledValues() {
    static const auto* const values = new std::vector<Value>(WalkSpilled(kImageTable));
    return *values;
}

const Value* ValueAt(std::uint32_t offset) {
    const std::span<const Value> values = Values();
    const auto next =
        std::upper_bound(values.begin(), values.end(), offset,
                         [](std::uint32_t at, const Value& value) { return at < value.offset; });
    if (next == values.begin()) {
        return nullptr;
    }
    const Value& value = *(next - 1);
    return offset - value.offset < value.size ? &value : nullptr;
}

const KeyView& PatternOf(const Value& value) {
    static const auto* const patterns = new std::vector<KeyView>(ListPatternsOfValues());
    return (*patterns)[static_cast<std::size_t>(ValueAt(value.offset) - Values().data())];
}

std::span<const Pattern> Patterns() {
    static const auto* const patterns = new std::vector<Pattern>(ListPatterns());
    return *patterns;
}

std::span<const Key> Keys() {
    return ValueKeys().keys();
}

std::span<const Key> SpilledKeys() {
    return SpillKeys().keys();
}

const Key* FindKey(std::string_view module, std::string_view section, std::string_view key) {
    const KeyView name = {module, section, key};
    const Key* found = ValueKeys().Find(name);
    return found == nullptr ? SpillKeys().Find(name) : found;
}

std::vector<const Value*> Find(const KeyPattern& pattern) {
    std::vector<const Value*> found;
    if (pattern.Offset()) {
        const Value* value = ValueAt(*pattern.Offset());
        if (value != nullptr) {
            found.push_back(value);
        }
        return found;
    }
    for (const Value& value : Values()) {
        if (value.HasKey() && pattern.Matches(value.module, value.section, value.key)) {
            found.push_back(&value);
        }
    }
    return found;
}

std::span<const std::string> Modules() {
    static const auto* const modules = new std::vector<std::string>(ListModules());
    return *modules;
}

std::string Words(const Condition& condition) {
    switch (condition.kind) {
        case ConditionKind::kCounted:
            return "while " + NameAt(condition.count) + " is above " +
                   std::to_string(condition.number);
        case ConditionKind::kLeading: {
            if (condition.keys.empty()) {
                return "always";
            }
            const auto name = [](const KeyView& key) { return key.section + ":" + key.key; };
            const std::string first = name(condition.keys.front());
            const std::string last = name(condition.keys.back());
            return condition.keys.size() == 1 ? "when " + first + " is there"
                                              : "when " + first + " to " + last + " are there";
        }
        case ConditionKind::kOptionalModule:
            return "when the product has " + condition.module;
        case ConditionKind::kSearchedModule:
            return "from the first of the modules whose " + std::string(condition.search->key) +
                   " is that of " + ValueAt(condition.wanted)->module;
    }
    return "";
}

}  // namespace paramgen::layout
