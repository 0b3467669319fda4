#include "check/references.h"

#include <algorithm>

#include "check/number_text.h"
#include "layout/key_pattern.h"

namespace paramgen::check {
namespace {

using layout::MatchesWildcards;

bool IsTrue(const Given* given) {
    return given != nullptr && !given->text.empty() &&
           std::string_view("1yYtT").find(given->text[0]) != std::string_view::npos;
}

/// A key's name with the last character of another in place of a '?' at its end.
std::string Numbered(const char* key, const std::string& like) {
    std::string name(key);
    if (name.ends_with('?')) {
        name.back() = like.back();
    }
    return name;
}

}  // namespace

std::string ParentSection(const std::string& section) {
    const std::size_t last = section.rfind('.');
    const std::size_t before =
        last == std::string::npos || last == 0 ? std::string::npos : section.rfind('.', last - 1);
    return before == std::string::npos ? section : section.substr(0, before);
}

References::References(const Inspection& inspection) {
    std::set<const compile::Answer*> known;
    for (const compile::Answer& answer : inspection.run().answers) {
        const Asked* asked = inspection.FindAsked(answer.module, answer.key);
        if (answer.text.has_value() && asked != nullptr && known.insert(asked->answer).second) {
            given_.push_back({.module = answer.module,
                              .section = std::string(SectionPart(answer.key)),
                              .key = std::string(KeyPart(answer.key)),
                              .text = *answer.text});
        }
    }
}

std::vector<const Given*> References::Find(const char* module, const char* section,
                                           const char* key) const {
    std::vector<const Given*> found;
    for (const Given& given : given_) {
        if (MatchesWildcards(key, given.key) && MatchesWildcards(section, given.section) &&
            MatchesWildcards(module, given.module)) {
            found.push_back(&given);
        }
    }
    return found;
}

const Given* References::Beside(const Given& given, const std::string& key) const {
    const auto found = std::find_if(given_.begin(), given_.end(), [&](const Given& each) {
        return each.module == given.module && each.section == given.section && each.key == key;
    });
    return found == given_.end() ? nullptr : &*found;
}

std::optional<std::int64_t> References::NumberOf(const Given& given) {
    const NumberText number = ReadNumber(given.text);
    return number.isNumber ? std::optional(number.value) : std::nullopt;
}

bool References::Counts(const HandleRule& rule, const Given& given) const {
    if (rule.enable != nullptr && !IsTrue(Beside(given, rule.enable))) {
        return false;
    }
    if (rule.bound == nullptr) {
        return true;
    }
    const Given* bound = Beside(given, rule.bound);
    return bound != nullptr && NumberOf(*bound) == rule.number;
}

std::vector<Target> References::Targets(TargetKind kind, const char* module) const {
    std::vector<Target> targets;
    for (const TargetRow& row : TargetRows()) {
        if (row.kind != kind) {
            continue;
        }
        for (const Given* given : Find(module, row.section, row.key)) {
            const std::optional<std::int64_t> handle = NumberOf(*given);
            if (handle.has_value()) {
                const bool isEnabled = row.enable == nullptr || IsTrue(Beside(*given, row.enable));
                targets.push_back(
                    {.given = *given, .row = &row, .handle = *handle, .isEnabled = isEnabled});
            }
        }
    }
    return targets;
}

std::optional<std::int64_t> References::ParentHandle(const HandleRule& rule,
                                                     const Given& given) const {
    const Given* parent = Beside(given, Numbered(rule.parent, given.key));
    return parent == nullptr ? std::nullopt : NumberOf(*parent);
}

std::vector<Target> References::TargetsOf(const HandleRule& rule, const Given& given) const {
    std::vector<Target> targets = Targets(rule.target, rule.targetModule);
    if (rule.parent == nullptr) {
        return targets;
    }
    if (std::string_view(rule.parent) == ".") {
        std::erase_if(targets, [&](const Target& target) {
            return ParentSection(target.given.section) != ParentSection(given.section) ||
                   target.given.section == given.section;
        });
        return targets;
    }
    const std::optional<std::int64_t> wanted = ParentHandle(rule, given);
    std::erase_if(targets, [&](const Target& target) {
        const std::string section = ParentSection(target.given.section);
        const auto parent = std::find_if(given_.begin(), given_.end(), [&](const Given& each) {
            return each.module == target.given.module && each.section == section &&
                   (each.key == "vpsshdl" || each.key == "vcappipehdl" || each.key == "handle");
        });
        return wanted.has_value() && parent != given_.end() && NumberOf(*parent) != wanted;
    });
    return targets;
}

}  // namespace paramgen::check
