/// Values that name each other, as a tree has them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/reference_rules.h"
#include "compile/compilation.h"

namespace paramgen::check {

/// A key of the tree that is read, and what is written behind it. The texts are those of a run.
struct Given {
    std::string_view module;
    std::string_view section;  ///< as loaders spell it
    std::string_view key;
    std::string_view fullKey;  ///< "section:key"
    std::string_view text;
};

/// Something that has a handle.
struct Target {
    const Given* given;
    const TargetRow* row;
    std::int64_t handle;
    bool hasParentHandle;                      ///< the section two levels up has a handle, too
    std::optional<std::int64_t> parentHandle;  ///< that handle; nothing when it is not a number
    bool isEnabled;
};

/// All keys that are read in a tree, with look-ups by patterns.
class References {
public:
    /// Collects the keys that a run has queried and found. `run` has to live as long.
    explicit References(const compile::Compilation& run);
    References(const References&) = delete;
    References& operator=(const References&) = delete;

    /// The existing keys that match, in the order in which loaders query them.
    std::vector<const Given*> Find(const char* module, const char* section, const char* key) const;

    /// The key of the same section; null when it is not there.
    const Given* Beside(const Given& given, std::string_view key) const;

    /// The key of the same section that names the parent of what a key names; null when the rule
    /// has none, and when it is not there.
    const Given* ParentOf(const HandleRule& rule, const Given& given) const;

    /// Whether a rule applies to its key: the part is enabled, and bound to the right module.
    bool Counts(const HandleRule& rule, const Given& given) const;

    /// The number behind a key; none when it is no number.
    static std::optional<std::int64_t> NumberOf(const Given& given);

    /// The targets of a kind in the modules that match. They live as long as this.
    const std::vector<Target>& Targets(TargetKind kind, const char* module) const;

    /// Those of them that a key may name: of the right parent, where it names one.
    std::vector<const Target*> TargetsOf(const HandleRule& rule, const Given& given) const;

private:
    /// The keys of one section of a module, by their numbers in `given_`.
    struct Section {
        std::string_view module;
        std::string_view name;
        std::vector<std::size_t> keys;
    };

    void Add(const compile::Answer& answer);
    Section& SectionFor(const compile::Answer& answer);
    const Section* FindSection(std::string_view module, std::string_view name) const;
    const Given* KeyOf(const Section* section, std::string_view key) const;
    Target MakeTarget(const TargetRow& row, const Given& given, std::int64_t handle) const;

    std::vector<Given> given_;
    std::vector<Section> sections_;
    std::size_t last_ = 0;  ///< number of the section that was asked for last
    std::map<std::pair<std::string_view, std::string_view>, std::size_t>
        sectionNumbers_;  ///< by module and name
    mutable std::map<std::pair<TargetKind, std::string>, std::vector<Target>> targets_;
};

/// Whether two values are the same: as numbers, or where the first is none, as texts.
bool IsSame(const Given& a, const Given& b);

/// The section two levels up: "vpss.0" of "vpss.0.vport.1".
std::string_view ParentSection(std::string_view section);

}  // namespace paramgen::check
