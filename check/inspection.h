/// A tree that is being checked: its files, the result of a run, and the findings so far.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "check/check.h"
#include "compile/session.h"
#include "diagnostics/finding.h"
#include "layout/layout.h"
#include "tree/product.h"

namespace paramgen::check {

/// Name of a key that was queried: module and "section:key". Keys are case-insensitive, names of
/// modules are not.
struct AskedName {
    std::string_view module;
    std::string_view key;
};

struct AskedHash {
    std::size_t operator()(const AskedName& name) const;
};

struct AskedSame {
    bool operator()(const AskedName& a, const AskedName& b) const;
};

/// A key that was queried.
struct Asked {
    const compile::Answer* answer = nullptr;  ///< the first one
    const layout::Key* key = nullptr;         ///< null when no table knows it
};

class Inspection {
public:
    Inspection(const std::string& directory, const Choice& choice)
        : product_(directory), choice_(choice) {}

    const tree::Product& product() const { return product_; }
    const tree::FoundFile& entry() const { return product_.entry(); }
    bool IsOn(diagnostics::RuleId id) const { return choice_.IsOn(diagnostics::RuleOf(id)); }

    /// Sets the result of the last run, in which the keys that stop the program are absent and such
    /// modules are empty.
    void SetRun(compile::Compilation run);
    const compile::Compilation& run() const { return run_; }

    /// Whether that run reached the end: keys that it did not query are then never read.
    bool IsComplete() const { return run_.status == kOk; }

    /// A key ("section:key", case-insensitive) that loaders queried; null when they did not.
    const Asked* FindAsked(std::string_view module, std::string_view key) const;

    /// All keys that loaders queried, in no particular order.
    using AskedMap = std::unordered_map<AskedName, Asked, AskedHash, AskedSame>;
    const AskedMap& asked() const { return asked_; }

    /// Whether loaders asked for a module of this name.
    bool IsModuleAsked(std::string_view module) const { return modules_.contains(module); }

    /// The modules that are there and have this file.
    std::vector<const tree::Module*> ModulesOf(const tree::FoundFile& file) const;

    /// The line of the entry file that names module `number`; null when there is none.
    const tree::Line* LineOfModule(std::int32_t number) const;

    /// Adds a finding in `file`, unless its kind is off or the same is there already. Errors are
    /// never off. Returns it, or null.
    diagnostics::Finding* Add(diagnostics::Finding finding, const tree::FoundFile& file);

    /// The same for a warning at a part of a line.
    diagnostics::Finding* Warn(diagnostics::RuleId id, const tree::FoundFile& file,
                               const tree::Line& line, tree::Span part, std::string message);

    std::vector<diagnostics::Finding>& findings() { return findings_; }

    /// Marks a line that has a finding as a whole: nothing else is reported about it.
    void MarkBad(const tree::Line& line) { bad_.insert(&line); }
    bool IsBad(const tree::Line& line) const { return bad_.contains(&line); }

    /// Keys that are there, and absent in the last run, as they stop the program.
    void AddRefused(const layout::Key& key) { refused_.push_back(&key); }
    const std::vector<const layout::Key*>& refused() const { return refused_; }

private:
    tree::Product product_;
    const Choice& choice_;
    compile::Compilation run_ = {};
    AskedMap asked_;  ///< names are in `run_`
    std::set<std::string, std::less<>> modules_;
    std::vector<diagnostics::Finding> findings_;
    std::set<
        std::tuple<diagnostics::RuleId, std::string, std::uint32_t, std::uint32_t, std::string>>
        known_;
    std::set<const tree::Line*> bad_;
    std::vector<const layout::Key*> refused_;
};

/// A text of the input as messages quote it, cut when it is long.
std::string Quoted(std::string_view text);

/// "1 key", "2 keys".
std::string Counted(std::size_t count, const std::string& noun);

/// The section and the key of "section:key": the key's name begins behind the last colon that
/// leaves a section that some table knows, as keys do not have colons.
std::string_view SectionPart(std::string_view fullKey);
std::string_view KeyPart(std::string_view fullKey);

// The checks, each of one group.

/// Runs the loaders until nothing stops them, and adds a finding for everything that does.
void FindErrors(compile::Session* session, Inspection* inspection);

void CheckEntry(Inspection* inspection);
void CheckLines(Inspection* inspection);
void CheckValues(Inspection* inspection);
void CheckStructure(Inspection* inspection);
void CheckCounts(Inspection* inspection);
void CheckReferences(Inspection* inspection);
void CheckMissing(Inspection* inspection);

}  // namespace paramgen::check
