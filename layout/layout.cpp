#include "layout/layout.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "generator/image.h"
#include "layout/walk.h"

namespace paramgen::layout {
namespace {

/// A name in lower case, as keys of maps: keys are case-insensitive.
std::string KeyText(std::string_view module, std::string_view section, std::string_view key) {
    std::string text;
    text.reserve(module.size() + section.size() + key.size() + 2);
    text += module;
    text += '/';
    text += section;
    text += ':';
    text += key;
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

std::string KeyText(const KeyName& name) {
    return KeyText(name.module, name.section, name.key);
}

/// The same values by offset. Numbers are sorted, as values are large.
std::vector<Value> ByOffset(std::vector<Value> values) {
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return values[a].offset < values[b].offset; });
    std::vector<Value> sorted;
    sorted.reserve(values.size());
    for (const std::size_t number : order) {
        sorted.push_back(std::move(values[number]));
    }
    return sorted;
}

/// All lists of this room. There is one object, made on the first call. It is never destroyed,
/// because that would take a large part of the time of a run.
class Layout {
public:
    static const Layout& Get() {
        static const Layout* const layout = new Layout;
        return *layout;
    }

    std::vector<Value> values;
    std::vector<Value> spilled;
    std::vector<Pattern> patterns;
    std::vector<Key> keys;
    std::vector<std::string> modules;
    std::unordered_map<std::string, std::size_t> keyNumbers;

private:
    Layout();

    void AddPatterns();
    void AddSearches();
    void AddEntryFile();
    void AddKeys();
    Pattern* PatternOf(const Value& value);
    Key* KeyOf(KeyRole role, const KeyName& name, const Pattern* pattern);

    std::unordered_map<std::string, std::size_t> patternNumbers_;
    std::vector<const Value*> searched_;  ///< a value of each search, in the order of `patterns`
};

Layout::Layout() {
    Walked walked = WalkSections(kImageTable);
    values = ByOffset(std::move(walked.values));
    spilled = std::move(walked.spilled);
    keys.reserve(values.size() + spilled.size());
    keyNumbers.reserve(values.size() + spilled.size());
    AddPatterns();
    AddSearches();
    AddEntryFile();
    AddKeys();
}

Pattern* Layout::PatternOf(const Value& value) {
    const auto [place, isNew] =
        patternNumbers_.try_emplace(KeyText(value.pattern), patterns.size());
    if (isNew) {
        patterns.push_back({KeyRole::kValue, value.pattern, {}, {}});
    }
    return &patterns[place->second];
}

void Layout::AddPatterns() {
    for (const Value& value : values) {
        if (value.HasKey()) {
            PatternOf(value)->values.push_back(&value);
        }
    }
    for (const Value& value : spilled) {
        PatternOf(value)->spilled.push_back(&value);
    }
}

void Layout::AddSearches() {
    std::unordered_set<std::string> known;
    for (const Value& value : values) {
        for (const Condition& condition : value.conditions) {
            if (condition.kind != ConditionKind::kSearchedModule) {
                continue;
            }
            const std::string_view key = condition.search->key;
            const std::size_t colon = key.find(':');
            const KeyName name = {value.module, std::string(key.substr(0, colon)),
                                  std::string(key.substr(colon + 1))};
            if (known.insert(Text(name)).second) {
                patterns.push_back({KeyRole::kSearch, name, {}, {}});
                searched_.push_back(&value);
            }
        }
    }
}

void Layout::AddEntryFile() {
    patterns.push_back({KeyRole::kEntry, {"", "module", "module_num"}, {}, {}});
    patterns.push_back({KeyRole::kEntry, {"", "module", "moduleN"}, {}, {}});
    patterns.push_back({KeyRole::kEntry, {"", "MODULE", "path"}, {}, {}});
    patterns.push_back({KeyRole::kEntry, {"", "MODULE", "cfg_filename"}, {}, {}});
}

Key* Layout::KeyOf(KeyRole role, const KeyName& name, const Pattern* pattern) {
    const auto [place, isNew] = keyNumbers.try_emplace(KeyText(name), keys.size());
    if (isNew) {
        keys.push_back({role, name, {}, pattern});
    }
    return &keys[place->second];
}

void Layout::AddKeys() {
    const auto add = [this](KeyRole role, const Value& value, const Pattern* pattern) {
        for (const std::string& module : value.modules) {
            KeyOf(role, {module, value.section, value.key}, pattern)->values.push_back(&value);
        }
    };
    for (const Pattern& pattern : patterns) {
        for (const Value* value : pattern.values) {
            add(KeyRole::kValue, *value, &pattern);
        }
        for (const Value* value : pattern.spilled) {
            add(KeyRole::kSpill, *value, &pattern);
        }
    }
    std::size_t search = 0;
    for (const Pattern& pattern : patterns) {
        if (pattern.role == KeyRole::kSearch) {
            for (const std::string& module : searched_[search++]->modules) {
                KeyOf(KeyRole::kSearch, {module, pattern.name.section, pattern.name.key}, &pattern);
            }
        }
    }
    std::unordered_set<std::string> known;
    for (const Key& key : keys) {
        if (known.insert(key.name.module).second) {
            modules.push_back(key.name.module);
        }
    }
}

/// The key of the value at `offset`: "osd:osdcnt"; its member path when it has no key.
std::string NameAt(std::uint32_t offset) {
    const Value* value = ValueAt(offset);
    return value->HasKey() ? value->section + ":" + value->key : value->member;
}

}  // namespace

std::span<const Value> Values() {
    return Layout::Get().values;
}

std::span<const Value> SpilledValues() {
    return Layout::Get().spilled;
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

std::span<const Pattern> Patterns() {
    return Layout::Get().patterns;
}

std::span<const Key> Keys() {
    return Layout::Get().keys;
}

const Key* FindKey(std::string_view module, std::string_view section, std::string_view key) {
    const Layout& layout = Layout::Get();
    const auto place = layout.keyNumbers.find(KeyText(module, section, key));
    return place == layout.keyNumbers.end() ? nullptr : &layout.keys[place->second];
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
    return Layout::Get().modules;
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
            const auto name = [](const KeyName& key) { return key.section + ":" + key.key; };
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
