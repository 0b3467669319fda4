#include "check/reference_words.h"

#include "check/reference_rules.h"
#include "layout/key_pattern.h"

namespace paramgen::check {
namespace {

using layout::MatchesWildcards;

/// The key whose relations are collected.
class RelationCollector {
public:
    RelationCollector(std::string_view module, std::string_view section, std::string_view key)
        : module_(module), section_(section), key_(key) {}

    void AddHandles() {
        for (const HandleRule& rule : HandleRules()) {
            const bool isUser = Is(rule.module, rule.section, rule.key);
            for (const TargetRow& row : TargetRows()) {
                if (row.kind != rule.target) {
                    continue;
                }
                if (isUser) {
                    Add(true, rule.targetModule, row.section, row.key, rule.reason);
                }
                if (Is(rule.targetModule, row.section, row.key)) {
                    Add(false, rule.module, rule.section, rule.key, rule.reason);
                }
            }
        }
    }

    void AddModes() {
        const bool isServing = Is(kModeModules, "common", "mediamode");
        for (const ModeRule& rule : ModeRules()) {
            if (Is(rule.module, rule.section, rule.key)) {
                Add(true, kModeModules, "common", "mediamode", rule.reason);
            }
            if (isServing) {
                Add(false, rule.module, rule.section, rule.key, rule.reason);
            }
        }
        if (Is(kLensModules, "common", "mediamode")) {
            Add(true, kModeModules, "common", "mediamode", "a calibration is for one media mode");
        }
    }

    void AddMenus() {
        for (const MenuRule& rule : MenuRules()) {
            if (Is(rule.module, rule.section, rule.key)) {
                Add(true, kMenuModule, rule.menu, "value*", rule.reason);
            }
            if (Is(kMenuModule, rule.menu, "value*")) {
                Add(false, rule.module, rule.section, rule.key, rule.reason);
            }
        }
    }

    void AddLimits() {
        for (const LimitRule& rule : LimitRules()) {
            if (Is(rule.module, rule.section, rule.low)) {
                Add(true, module_, section_, rule.high, rule.reason);
            } else if (Is(rule.module, rule.section, rule.high)) {
                Add(true, module_, section_, rule.low, rule.reason);
            }
        }
    }

    const std::vector<Relation>& relations() const { return relations_; }

private:
    bool Is(const char* module, const char* section, const char* key) const {
        return MatchesWildcards(key, key_) && MatchesWildcards(section, section_) &&
               MatchesWildcards(module, module_);
    }

    void Add(bool isOutward, std::string_view module, std::string_view section,
             std::string_view key, const char* reason) {
        relations_.push_back({.isOutward = isOutward,
                              .module = std::string(module),
                              .section = std::string(section),
                              .key = std::string(key),
                              .reason = reason});
    }

    std::string_view module_;
    std::string_view section_;
    std::string_view key_;
    std::vector<Relation> relations_;
};

}  // namespace

std::vector<Relation> RelationsOf(std::string_view module, std::string_view section,
                                  std::string_view key) {
    RelationCollector collector(module, section, key);
    collector.AddHandles();
    collector.AddModes();
    collector.AddMenus();
    collector.AddLimits();
    return collector.relations();
}

}  // namespace paramgen::check
