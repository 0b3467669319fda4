#include "check/unread_reason.h"

#include <algorithm>
#include <cstring>

#include "check/number_text.h"

namespace paramgen::check {
namespace {

using layout::Condition;
using layout::ConditionKind;

bool Holds(const Inspection& inspection, const std::string& module, const Condition& condition) {
    switch (condition.kind) {
        case ConditionKind::kCounted:
            return WordAt(inspection, condition.count) > condition.number;
        case ConditionKind::kLeading:
            return WordAt(inspection, condition.count) >= condition.number;
        case ConditionKind::kOptionalModule:
            return inspection.product().FindModule(module) != nullptr;
        case ConditionKind::kSearchedModule:
            return false;
    }
    return true;
}

/// The first condition of a known key that is not met; null when there is none.
const Condition* FirstUnmet(const Inspection& inspection, const std::vector<std::string>& modules,
                            std::string_view section, std::string_view key) {
    for (const std::string& module : modules) {
        const layout::Key* known = layout::FindKey(module, section, key);
        if (known == nullptr || known->values.empty()) {
            continue;
        }
        for (const Condition& condition : known->values.front()->conditions) {
            if (!Holds(inspection, module, condition)) {
                return &condition;
            }
        }
    }
    return nullptr;
}

}  // namespace

std::uint32_t WordAt(const Inspection& inspection, std::uint32_t offset) {
    std::uint32_t word = 0;
    const compile::Image& image = inspection.run().image;
    const std::size_t size =
        std::min(sizeof word, image.size() - std::min<std::size_t>(offset, image.size()));
    std::memcpy(&word, image.data() + offset, size);
    return word;
}

std::string UnreadReason(const Inspection& inspection, const std::vector<std::string>& modules,
                         std::string_view section, std::string_view key) {
    const Condition* condition = FirstUnmet(inspection, modules, section, key);
    if (condition == nullptr) {
        return "nothing in this tree asks for it";
    }
    const bool isCounted = condition->kind == ConditionKind::kCounted;
    return "only " + layout::Words(*condition) +
           (isCounted ? "; it is " + std::to_string(WordAt(inspection, condition->count)) : "");
}

bool HasWrongCount(const Inspection& inspection, const std::vector<std::string>& modules,
                   std::string_view section, std::string_view key) {
    const Condition* condition = FirstUnmet(inspection, modules, section, key);
    const layout::Value* count = condition == nullptr || condition->kind != ConditionKind::kCounted
                                     ? nullptr
                                     : layout::ValueAt(condition->count);
    if (count == nullptr || !count->HasKey()) {
        return false;
    }
    return std::any_of(count->modules.begin(), count->modules.end(), [&](layout::Name name) {
        const tree::Module* module = inspection.product().FindModule(name);
        const tree::Line* line = module == nullptr
                                     ? nullptr
                                     : module->file->ini->Find(count->section + ":" + count->key);
        return line != nullptr && line->kind == tree::LineKind::kValue &&
               (inspection.IsBad(*line) ||
                (inspection.IsOn(diagnostics::RuleId::kNotANumber) &&
                 !ReadNumber(module->file->ini->TextOf(line->value)).isNumber));
    });
}

}  // namespace paramgen::check
