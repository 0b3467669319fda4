#include "check/unread_reason.h"

#include <algorithm>
#include <cstring>

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
    for (const std::string& module : modules) {
        const layout::Key* known = layout::FindKey(module, section, key);
        if (known == nullptr || known->values.empty()) {
            continue;
        }
        for (const Condition& condition : known->values.front()->conditions) {
            if (!Holds(inspection, module, condition)) {
                const std::string words = layout::Words(condition);
                const bool isCounted = condition.kind == ConditionKind::kCounted;
                return "only " + words +
                       (isCounted ? "; it is " + std::to_string(WordAt(inspection, condition.count))
                                  : "");
            }
        }
    }
    return "nothing in this tree asks for it";
}

}  // namespace paramgen::check
