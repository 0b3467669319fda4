#include "check/references.h"

#include <algorithm>
#include <iterator>

#include "check/inspection.h"
#include "check/number_text.h"
#include "layout/key_pattern.h"

namespace paramgen::check {
namespace {

/// A pattern that is compared with many texts.
class Wildcards {
public:
    explicit Wildcards(std::string_view pattern)
        : pattern_(pattern), hasAnyLength_(pattern.find('*') != std::string_view::npos) {}

    bool Match(std::string_view text) const {
        // Most texts have another length.
        const bool canMatch = hasAnyLength_ || text.size() == pattern_.size();
        return canMatch && layout::MatchesWildcards(pattern_, text);
    }

private:
    std::string_view pattern_;
    bool hasAnyLength_;
};

bool IsTrue(const Given* given) {
    return given != nullptr && !given->text.empty() &&
           std::string_view("1yYtT").find(given->text[0]) != std::string_view::npos;
}

/// Whether a rule is about targets with the same parent as its own section.
bool IsSibling(const HandleRule& rule) {
    return rule.parent != nullptr && std::string_view(rule.parent) == ".";
}

/// A key's name with the last character of another in place of a '?' at its end.
std::string Numbered(const char* key, std::string_view like) {
    std::string name(key);
    if (name.ends_with('?')) {
        name.back() = like.back();
    }
    return name;
}

}  // namespace

std::string_view ParentSection(std::string_view section) {
    const std::size_t last = section.rfind('.');
    const bool isShort = last == std::string_view::npos || last == 0;
    const std::size_t before = isShort ? std::string_view::npos : section.rfind('.', last - 1);
    return before == std::string_view::npos ? section : section.substr(0, before);
}

References::References(const compile::Compilation& run) {
    given_.reserve(run.answers.size());
    for (const compile::Answer& answer : run.answers) {
        if (answer.text.has_value()) {
            Add(answer);
        }
    }
}

void References::Add(const compile::Answer& answer) {
    Section& section = SectionFor(answer);
    const std::string_view key = KeyPart(answer.key);
    if (KeyOf(&section, key) != nullptr) {
        return;  // loaders have queried it before
    }
    section.keys.push_back(given_.size());
    given_.push_back({.module = answer.module,
                      .section = section.name,
                      .key = key,
                      .fullKey = answer.key,
                      .text = *answer.text});
}

References::Section& References::SectionFor(const compile::Answer& answer) {
    const std::string_view name = SectionPart(answer.key);
    if (last_ < sections_.size() && sections_[last_].name == name &&
        sections_[last_].module == answer.module) {
        return sections_[last_];  // loaders mostly query the keys of a section in a row
    }
    const auto [place, isNew] =
        sectionNumbers_.try_emplace({answer.module, name}, sections_.size());
    if (isNew) {
        sections_.push_back({.module = answer.module, .name = name, .keys = {}});
    }
    last_ = place->second;
    return sections_[last_];
}

std::vector<const Given*> References::Find(const char* module, const char* section,
                                           const char* key) const {
    const Wildcards modules(module);
    const Wildcards sections(section);
    const Wildcards keys(key);
    std::vector<std::size_t> numbers;
    for (const Section& each : sections_) {
        if (!sections.Match(each.name) || !modules.Match(each.module)) {
            continue;
        }
        std::copy_if(each.keys.begin(), each.keys.end(), std::back_inserter(numbers),
                     [&](std::size_t number) { return keys.Match(given_[number].key); });
    }
    std::sort(numbers.begin(), numbers.end());
    std::vector<const Given*> found;
    found.reserve(numbers.size());
    for (const std::size_t number : numbers) {
        found.push_back(&given_[number]);
    }
    return found;
}

const References::Section* References::FindSection(std::string_view module,
                                                   std::string_view name) const {
    const auto place = sectionNumbers_.find({module, name});
    return place == sectionNumbers_.end() ? nullptr : &sections_[place->second];
}

const Given* References::KeyOf(const Section* section, std::string_view key) const {
    if (section == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(section->keys.begin(), section->keys.end(),
                                    [&](std::size_t number) { return given_[number].key == key; });
    return found == section->keys.end() ? nullptr : &given_[*found];
}

const Given* References::Beside(const Given& given, std::string_view key) const {
    return KeyOf(FindSection(given.module, given.section), key);
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

Target References::MakeTarget(const TargetRow& row, const Given& given, std::int64_t handle) const {
    Target target = {.given = &given,
                     .row = &row,
                     .handle = handle,
                     .hasParentHandle = false,
                     .parentHandle = std::nullopt,
                     .isEnabled = row.enable == nullptr || IsTrue(Beside(given, row.enable))};
    const Section* parent = FindSection(given.module, ParentSection(given.section));
    for (const char* key : {"vpsshdl", "vcappipehdl", "handle"}) {
        const Given* number = KeyOf(parent, key);
        if (number != nullptr) {
            target.hasParentHandle = true;
            target.parentHandle = NumberOf(*number);
            break;
        }
    }
    return target;
}

const std::vector<Target>& References::Targets(TargetKind kind, const char* module) const {
    const auto [place, isNew] = targets_.try_emplace({kind, module});
    std::vector<Target>& targets = place->second;
    for (const TargetRow& row : TargetRows()) {
        if (!isNew || row.kind != kind) {
            continue;
        }
        for (const Given* given : Find(module, row.section, row.key)) {
            const std::optional<std::int64_t> handle = NumberOf(*given);
            if (handle.has_value()) {
                targets.push_back(MakeTarget(row, *given, *handle));
            }
        }
    }
    return targets;
}

const Given* References::ParentOf(const HandleRule& rule, const Given& given) const {
    return rule.parent == nullptr || IsSibling(rule)
               ? nullptr
               : Beside(given, Numbered(rule.parent, given.key));
}

std::vector<const Target*> References::TargetsOf(const HandleRule& rule, const Given& given) const {
    const bool isSibling = IsSibling(rule);
    const Given* parent = ParentOf(rule, given);
    const std::optional<std::int64_t> wanted = parent == nullptr ? std::nullopt : NumberOf(*parent);
    std::vector<const Target*> targets;
    for (const Target& target : Targets(rule.target, rule.targetModule)) {
        const std::string_view section = target.given->section;
        const bool isRight =
            isSibling
                ? ParentSection(section) == ParentSection(given.section) && section != given.section
                : !wanted.has_value() || !target.hasParentHandle || target.parentHandle == wanted;
        if (isRight) {
            targets.push_back(&target);
        }
    }
    return targets;
}

bool IsSame(const Given& a, const Given& b) {
    const std::optional<std::int64_t> number = References::NumberOf(a);
    return number.has_value() ? number == References::NumberOf(b) : a.text == b.text;
}

}  // namespace paramgen::check
