/// Values that name each other, as a tree has them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/inspection.h"
#include "check/reference_rules.h"

namespace paramgen::check {

/// A key of the tree that is read, and what is written behind it.
struct Given {
    std::string module;
    std::string section;  ///< as loaders spell it
    std::string key;
    std::string text;

    std::string FullKey() const { return section + ":" + key; }
};

/// Something that has a handle.
struct Target {
    Given given;
    const TargetRow* row;
    std::int64_t handle;
    bool isEnabled;
};

/// All that is read in a tree, to be looked up by patterns.
class References {
public:
    explicit References(const Inspection& inspection);

    /// The keys that are there and match, in the order in which loaders ask for them.
    std::vector<const Given*> Find(const char* module, const char* section, const char* key) const;

    /// The key of the same section; null when it is not there.
    const Given* Beside(const Given& given, const std::string& key) const;

    /// Whether a rule's key counts: it is enabled, and bound to the module that is meant.
    bool Counts(const HandleRule& rule, const Given& given) const;

    /// The number behind a key; none when it is no number.
    static std::optional<std::int64_t> NumberOf(const Given& given);

    /// The targets of a kind in the modules that match.
    std::vector<Target> Targets(TargetKind kind, const char* module) const;

    /// Those of them that a key may name: of the right parent, where it names one.
    std::vector<Target> TargetsOf(const HandleRule& rule, const Given& given) const;

private:
    std::optional<std::int64_t> ParentHandle(const HandleRule& rule, const Given& given) const;

    std::vector<Given> given_;
};

/// The section two levels up: "vpss.0" of "vpss.0.vport.1".
std::string ParentSection(const std::string& section);

}  // namespace paramgen::check
