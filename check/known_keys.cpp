#include "check/known_keys.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <unordered_set>

#include "diagnostics/suggestion.h"
#include "layout/layout.h"
#include "tree/ini_file.h"

namespace paramgen::check {
namespace {

using diagnostics::kUnlike;
using diagnostics::Unlikeness;
using tree::LowerCase;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A name with '#' in place of each number that has no leading 0.
std::string WithoutNumbers(std::string_view name) {
    std::string plain;
    for (std::size_t at = 0; at < name.size();) {
        std::size_t end = at;
        while (end < name.size() && IsDigit(name[end])) {
            ++end;
        }
        const bool isPlain = end == at + 1 || (end > at && name[at] != '0');
        if (end > at && isPlain) {
            plain += '#';
            at = end;
        } else {
            plain += name.substr(at, std::max<std::size_t>(end - at, 1));
            at = std::max(end, at + 1);
        }
    }
    return plain;
}

/// A section of a module, as the tables spell it, and its keys.
struct Section {
    std::string name;
    std::vector<std::string> keys;
};

/// The keys of one module.
struct ModuleKeys {
    std::vector<Section> sections;                   ///< in the order of their first keys
    std::map<std::string, std::size_t> byName;       ///< in lower case
    std::unordered_set<std::string> withoutNumbers;  ///< "section:key"
};

/// All modules' keys, made once.
const std::map<std::string, ModuleKeys, std::less<>>& Known() {
    static const auto known = [] {
        std::map<std::string, ModuleKeys, std::less<>> modules;
        const auto add = [&modules](const layout::Key& key) {
            ModuleKeys& module = modules[key.name.module];
            const auto [place, isNew] =
                module.byName.try_emplace(LowerCase(key.name.section), module.sections.size());
            if (isNew) {
                module.sections.push_back({key.name.section, {}});
            }
            module.sections[place->second].keys.push_back(key.name.key);
            module.withoutNumbers.insert(
                WithoutNumbers(LowerCase(key.name.section + ":" + key.name.key)));
        };
        std::for_each(layout::Keys().begin(), layout::Keys().end(), add);
        std::for_each(layout::SpilledKeys().begin(), layout::SpilledKeys().end(), add);
        return modules;
    }();
    return known;
}

const Section* FindSection(std::string_view module, std::string_view section) {
    const auto keys = Known().find(module);
    if (keys == Known().end()) {
        return nullptr;
    }
    const auto found = keys->second.byName.find(LowerCase(section));
    return found == keys->second.byName.end() ? nullptr : &keys->second.sections[found->second];
}

bool HasKey(const Section& section, std::string_view key) {
    const std::string lower = LowerCase(key);
    return std::any_of(section.keys.begin(), section.keys.end(),
                       [&](const std::string& each) { return LowerCase(each) == lower; });
}

/// The nearest of several candidates: the least unlike, then one that is not there yet.
class NearestName {
public:
    void Offer(const std::string& candidate, std::size_t unlikeness, bool isThere,
               std::size_t further = 0) {
        const auto rank = std::make_tuple(unlikeness, isThere, further);
        if (unlikeness != kUnlike && (best_.empty() || rank < rank_)) {
            best_ = candidate;
            rank_ = rank;
        }
    }

    const std::string& best() const { return best_; }

private:
    std::string best_;
    std::tuple<std::size_t, bool, std::size_t> rank_;
};

/// The section that has a key of this name and is most like `section`.
std::string SectionWithKey(const ModuleKeys& module, std::string_view section,
                           std::string_view key) {
    std::string best;
    std::size_t least = SIZE_MAX;
    for (const Section& each : module.sections) {
        const std::size_t distance = diagnostics::EditDistance(section, each.name, 64);
        if (distance < least && HasKey(each, key)) {
            least = distance;
            best = each.name;
        }
    }
    return best;
}

}  // namespace

bool KnowsSection(std::string_view module, std::string_view section) {
    return FindSection(module, section) != nullptr;
}

bool KnowsButForNumbers(std::string_view module, std::string_view section, std::string_view key) {
    const auto keys = Known().find(module);
    const std::string name = LowerCase(std::string(section) + ":" + std::string(key));
    return keys != Known().end() && keys->second.withoutNumbers.contains(WithoutNumbers(name));
}

bool IsWithoutEffect(std::string_view module, std::string_view section) {
    // Windows are read, and then replaced by the playback window.
    return module == "media_common" &&
           WithoutNumbers(LowerCase(section)).starts_with("disp.#.window.#");
}

std::string LikelyKey(const std::vector<std::string>& modules, std::string_view section,
                      std::string_view key, const IsThere& isThere) {
    NearestName nearest;
    for (const std::string& module : modules) {
        const Section* known = FindSection(module, section);
        for (std::size_t i = 0; known != nullptr && i < known->keys.size(); ++i) {
            const std::string& candidate = known->keys[i];
            nearest.Offer(candidate, Unlikeness(key, candidate),
                          isThere(LowerCase(std::string(section) + ":" + candidate)));
        }
    }
    if (!nearest.best().empty()) {
        return nearest.best();
    }
    for (const std::string& module : modules) {
        const auto keys = Known().find(module);
        const std::string other =
            keys == Known().end() ? "" : SectionWithKey(keys->second, section, key);
        if (!other.empty()) {
            return other + ":" + std::string(key);
        }
    }
    for (const auto& [module, keys] : Known()) {
        const Section* known = FindSection(module, section);
        if (known != nullptr && HasKey(*known, key)) {
            return module + "/" + known->name + ":" + std::string(key);
        }
    }
    return "";
}

std::string LikelySection(const std::vector<std::string>& modules, std::string_view section,
                          const std::vector<std::string>& keys, const IsThere& isThere) {
    const auto countUnknown = [&](const Section& candidate) {
        return static_cast<std::size_t>(
            std::count_if(keys.begin(), keys.end(),
                          [&](const std::string& key) { return !HasKey(candidate, key); }));
    };
    NearestName nearest;
    for (const std::string& module : modules) {
        const auto known = Known().find(module);
        if (known == Known().end()) {
            continue;
        }
        for (const Section& candidate : known->second.sections) {
            const std::size_t unlikeness = Unlikeness(section, candidate.name);
            if (unlikeness != kUnlike) {
                nearest.Offer(candidate.name, unlikeness, isThere(LowerCase(candidate.name)),
                              countUnknown(candidate));
            }
        }
    }
    if (!nearest.best().empty()) {
        return nearest.best();
    }
    for (const auto& [module, known] : Known()) {
        const Section* found = FindSection(module, section);
        if (found != nullptr) {
            return module + "/" + found->name;
        }
    }
    return "";
}

std::string NextSection(const std::vector<std::string>& modules, std::string_view section,
                        const IsThere& isThere) {
    std::size_t end = section.size();
    while (end > 0 && !IsDigit(section[end - 1])) {
        --end;
    }
    std::size_t begin = end;
    while (begin > 0 && IsDigit(section[begin - 1])) {
        --begin;
    }
    if (begin == end || end - begin > 4) {
        return "";
    }
    const int number = std::stoi(std::string(section.substr(begin, end - begin)));
    for (int next = number + 1; next < number + 32; ++next) {
        std::string name(section.substr(0, begin));
        name += std::to_string(next);
        name += section.substr(end);
        const bool isKnown = std::any_of(modules.begin(), modules.end(), [&](const auto& module) {
            return KnowsSection(module, name);
        });
        if (!isKnown || !isThere(LowerCase(name))) {
            return isKnown ? name : "";
        }
    }
    return "";
}

std::string LikelyModule(const std::vector<std::string>& fullKeys, std::string_view own) {
    const auto countKnown = [&](std::string_view module) {
        return static_cast<std::size_t>(
            std::count_if(fullKeys.begin(), fullKeys.end(), [&](const std::string& key) {
                const std::size_t colon = key.rfind(':');
                const Section* section = FindSection(module, key.substr(0, colon));
                return section != nullptr && HasKey(*section, key.substr(colon + 1));
            }));
    };
    std::string likely;
    std::size_t most = std::max(fullKeys.size() / 2, countKnown(own));
    for (const std::string& module : layout::Modules()) {
        const std::size_t count = countKnown(module);
        if (count > most) {
            most = count;
            likely = module;
        }
    }
    return likely;
}

}  // namespace paramgen::check
