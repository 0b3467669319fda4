// Counts, and what is counted.

#include <map>

#include "check/inspection.h"
#include "check/unread_reason.h"
#include "diagnostics/places.h"

namespace paramgen::check {
namespace {

using diagnostics::RuleId;
using layout::Condition;
using layout::ConditionKind;

/// Elements that one count counts.
struct Counter {
    std::uint32_t places = 0;
    CountBeyond beyond = CountBeyond::kNotCounted;
    std::map<std::uint32_t, bool> isFilled;  ///< by the element's number: some key of it is there
};

/// All counts of the image, by offset.
using Counters = std::map<std::uint32_t, Counter>;

/// The counts, none of whose elements is filled.
const Counters& EmptyCounters() {
    static const Counters all = [] {
        Counters counters;
        for (const layout::Value& value : layout::Values()) {
            for (const Condition& condition : value.conditions) {
                if (condition.kind == ConditionKind::kCounted && value.HasKey()) {
                    Counter& counter = counters[condition.count];
                    counter.places = condition.places;
                    counter.beyond = condition.beyond;
                    counter.isFilled[condition.number] = false;
                }
            }
        }
        return counters;
    }();
    return all;
}

/// The elements that the values of a key lie in are filled.
void Fill(const layout::Key& key, Counters* counters) {
    for (const layout::Value* value : key.values) {
        for (const Condition& condition : value->conditions) {
            if (condition.kind != ConditionKind::kCounted) {
                continue;
            }
            std::map<std::uint32_t, bool>& isFilled = (*counters)[condition.count].isFilled;
            const auto element = isFilled.find(condition.number);
            if (element != isFilled.end()) {
                element->second = true;
            }
        }
    }
}

/// The counts of a tree.
Counters FilledCounters(const Inspection& inspection) {
    Counters counters = EmptyCounters();
    for (const auto& [name, asked] : inspection.asked()) {
        if (asked.key != nullptr && asked.answer->text.has_value()) {
            Fill(*asked.key, &counters);
        }
    }
    for (const layout::Key* key : inspection.refused()) {
        Fill(*key, &counters);
    }
    return counters;
}

/// The line of the key that gives the value at `offset`.
struct CountLine {
    const tree::FoundFile* file = nullptr;
    const tree::Line* line = nullptr;
};

CountLine LineOf(const Inspection& inspection, std::uint32_t offset) {
    const layout::Value* value = layout::ValueAt(offset);
    if (value == nullptr || !value->HasKey()) {
        return {};
    }
    const std::string key = value->section + ":" + value->key;
    for (const layout::Name name : value->modules) {
        const tree::Module* module = inspection.product().FindModule(name);
        const Asked* asked = inspection.FindAsked(name, key);
        if (module != nullptr && asked != nullptr && asked->answer->text.has_value()) {
            return {.file = module->file, .line = module->file->ini->Find(key)};
        }
    }
    return {};
}

void CheckCounter(Inspection* inspection, std::uint32_t offset, const Counter& counter) {
    const CountLine place = LineOf(*inspection, offset);
    if (place.line == nullptr || inspection->IsBad(*place.line)) {
        return;
    }
    const std::uint32_t count = WordAt(*inspection, offset);
    const std::string text = std::to_string(count);
    const std::string places = std::to_string(counter.places);
    if (count > counter.places && counter.beyond == CountBeyond::kSpilling) {
        inspection->Warn(RuleId::kCountBeyondArray, *place.file, *place.line, place.line->value,
                         text + " are counted, and there are places for " + places +
                             "; the others are stored over what follows");
        return;
    }
    if (count > counter.places && counter.beyond == CountBeyond::kClamped) {
        inspection->Warn(RuleId::kCountClamped, *place.file, *place.line, place.line->value,
                         text + " are counted, and only the first " + places + " are read");
        return;
    }
    for (const auto& [number, isFilled] : counter.isFilled) {
        if (number < count && !isFilled) {
            inspection->Warn(RuleId::kCountUnfilled, *place.file, *place.line, place.line->value,
                             text + " are counted, but number " + std::to_string(number) +
                                 ", counted from 0, has no keys");
            return;
        }
    }
}

}  // namespace

void CheckCounts(Inspection* inspection) {
    if (!inspection->IsComplete()) {
        return;
    }
    for (const auto& [offset, counter] : FilledCounters(*inspection)) {
        CheckCounter(inspection, offset, counter);
    }
}

}  // namespace paramgen::check
