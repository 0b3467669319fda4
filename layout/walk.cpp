#include "layout/walk.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace paramgen::layout {
namespace {

/// Index of an array element: as it stands in a name, and the letter for it in the name's pattern.
struct Number {
    std::string real;
    std::string letter;
};

/// A name, and its pattern.
struct Named {
    std::string real;
    std::string pattern;
};

/// The record or value that the walk has come to.
struct Place {
    Named module;
    std::vector<std::string> modules;
    Named prefix;
    std::vector<Number> numbers;
    std::uint32_t offset = 0;
    std::uint32_t end = 0;  ///< offset up to which elements may spill
    std::uint32_t countMax = UINT32_MAX;
    std::string member;
    std::vector<Condition> conditions;
    std::uint32_t wanted = 0;
    std::string context;
    std::uint32_t times = 1;
    std::uint32_t elementTimes = 1;  ///< becomes `times` in elements of nested arrays
};

/// Fills in a template: "%s" with `text`, and its "%d" and "%u" with the last of `numbers`, in
/// order: with what `part` of them says.
std::string Expand(std::string_view pattern, std::string_view text,
                   const std::vector<Number>& numbers, std::string Number::*part) {
    if (pattern.find('%') == pattern.npos) {
        return std::string(pattern);
    }
    const auto placeholders = static_cast<std::size_t>(
        std::count(pattern.begin(), pattern.end(), '%') - (pattern.find("%s") != pattern.npos));
    std::size_t next = numbers.size() - placeholders;
    std::string result;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            result += pattern[i];
            continue;
        }
        ++i;
        result += pattern[i] == 's' ? text : numbers.at(next++).*part;
    }
    return result;
}

Named Expand(std::string_view pattern, const Named& text, const std::vector<Number>& numbers) {
    return {Expand(pattern, text.real, numbers, &Number::real),
            Expand(pattern, text.pattern, numbers, &Number::letter)};
}

/// The letter for the next index: N, M, K, L. Indices of arrays with one element get none.
std::string NextLetter(const std::vector<Number>& numbers) {
    constexpr std::string_view kLetters = "NMKL";
    const auto used = std::count_if(numbers.begin(), numbers.end(), [](const Number& number) {
        return number.letter != number.real;
    });
    return std::string(1, kLetters.at(static_cast<std::size_t>(used)));
}

/// Makes the module of a row, when it has one of its own, the module of `place`.
void EnterModule(const Field& field, Place* place) {
    if (field.extra == FieldExtra::kSearchedModule) {
        const ModuleSearch& search = *field.notes.search;
        const std::string camera = std::to_string(search.camera);
        const auto expand = [&](const std::string& number) {
            return Expand(search.modules, "", {{camera, ""}, {number, ""}}, &Number::real);
        };
        const std::string any = expand("*");
        place->module = {any, any};
        place->modules.clear();
        for (std::uint32_t i = 0; i < search.count; ++i) {
            place->modules.push_back(expand(std::to_string(i)));
        }
        Condition condition;
        condition.kind = ConditionKind::kSearchedModule;
        condition.wanted = place->wanted;
        condition.search = &search;
        place->conditions.push_back(condition);
    } else if (field.extra == FieldExtra::kModule) {
        place->module = Expand(field.module, Named(), place->numbers);
        place->modules = {place->module.real};
        if (field.notes.optionalModule) {
            Condition condition;
            condition.kind = ConditionKind::kOptionalModule;
            condition.module = place->module.real;
            place->conditions.push_back(condition);
        }
    }
}

/// The node that `field` is read under: its own, or `node`.
Named NodeOf(const Field& field, const Named& node, const std::vector<Number>& numbers) {
    if (field.node == nullptr) {
        return node;
    }
    return field.ownNode ? Named{field.node, field.node} : Expand(field.node, node, numbers);
}

/// The largest count of a row's elements that is not an error.
std::uint32_t LargestCount(const Field& field, const Place& record) {
    switch (field.notes.beyond) {
        case CountBeyond::kRefused:
            return field.count;
        case CountBeyond::kSpilling:
            return std::min(record.countMax,
                            (record.end - record.offset - field.offset) / field.size);
        default:
            return UINT32_MAX;
    }
}

/// The keys that must exist for element `number` to be read: those of the elements before it.
std::vector<KeyName> LeadingKeys(const Field& field, const Named& node, const Place& record,
                                 std::uint32_t number) {
    std::vector<KeyName> keys;
    for (std::uint32_t i = 0; i < number; ++i) {
        std::vector<Number> numbers = record.numbers;
        numbers.push_back({std::to_string(i), ""});
        keys.push_back({record.module.real, Expand(field.table->node, node, numbers).real,
                        field.notes.whileKey});
    }
    return keys;
}

/// Adds the condition under which element `number` of a row of the record is read, if there is one.
void AddElementCondition(const Field& field, const Named& node, std::uint32_t number,
                         Place* record) {
    const FieldNotes& notes = field.notes;
    Condition condition;
    condition.number = number;
    condition.places = field.count;
    condition.count = record->offset + notes.countOffset;
    if (notes.whileKey != nullptr) {
        condition.kind = ConditionKind::kLeading;
        condition.keys = LeadingKeys(field, node, *record, number);
    } else if (notes.beyond != CountBeyond::kNotCounted) {
        condition.largest = LargestCount(field, *record);
        condition.beyond = condition.largest == field.count ? CountBeyond::kRefused : notes.beyond;
    } else {
        return;
    }
    record->conditions.push_back(std::move(condition));
}

/// The lists that a walk adds values to.
struct Found {
    std::vector<Value>* values;
    std::vector<Value>* spilled;
};

/// Makes the value of a row at `place`. Its record is at `recordOffset`.
Value MakeValue(const Field& field, const Named& node, std::uint32_t recordOffset,
                const Place& place) {
    Value value = {};
    value.field = &field;
    value.offset = place.offset;
    value.size = field.size;
    value.member = place.member;
    value.conditions = place.conditions;
    value.context = place.context;
    value.origin = field.source == FieldSource::kCopy
                       ? recordOffset + static_cast<std::uint32_t>(field.Number())
                       : place.offset;
    value.times = field.kind == FieldKind::kText ? 1 : place.times;
    if (field.key == nullptr) {
        return value;
    }
    const Named item = Expand(field.key, Named(), place.numbers);
    value.module = place.module.real;
    value.modules = place.modules;
    value.section = node.real;
    value.key = item.real;
    value.pattern = {place.module.pattern, node.pattern, item.pattern};
    const bool full = field.fullLabel || field.source == FieldSource::kQuery;
    value.label = full ? value.section + ":" + value.key : value.key;
    if (field.extra == FieldExtra::kLabel) {
        value.label = field.label;
    }
    return value;
}

/// Goes on from the place of a record to that of element `number` of a row.
void EnterElement(const Field& field, const Named& node, std::uint32_t number, Place* place) {
    AddElementCondition(field, node, number, place);
    place->offset += field.offset + number * field.size;
    place->member += place->member.empty() ? "" : ".";
    place->member += field.notes.member;
    if (field.isArray) {
        std::string real = std::to_string(number);
        place->member += "[" + real + "]";
        std::string letter = field.count > 1 ? NextLetter(place->numbers) : real;
        place->numbers.push_back({std::move(real), std::move(letter)});
        place->times = place->elementTimes;
    }
    if (field.source == FieldSource::kTable && field.notes.about != nullptr) {
        place->context = field.notes.about;
    }
    if (field.notes.times != 0) {
        place->elementTimes = field.notes.times;
    }
    if (field.notes.countMax != 0) {
        place->countMax = field.notes.countMax;
    }
    EnterModule(field, place);
}

/// Whether an element is a value of the module that its record is read from. Most are.
bool IsPlainValue(const Field& field) {
    return field.source != FieldSource::kTable && field.extra != FieldExtra::kSearchedModule &&
           field.extra != FieldExtra::kModule;
}

/// While this lives, the place of a record is that of one of its plain values. It takes half of a
/// walk to copy places.
class PlainValue {
public:
    PlainValue(const Field& field, const Named& node, std::uint32_t number, Place* place)
        : place_(*place),
          isArray_(field.isArray),
          memberSize_(place->member.size()),
          conditionCount_(place->conditions.size()),
          offset_(place->offset),
          countMax_(place->countMax),
          times_(place->times),
          elementTimes_(place->elementTimes) {
        EnterElement(field, node, number, place);
    }
    ~PlainValue() {
        place_.member.resize(memberSize_);
        place_.conditions.resize(conditionCount_);
        place_.numbers.resize(place_.numbers.size() - (isArray_ ? 1 : 0));
        place_.offset = offset_;
        place_.countMax = countMax_;
        place_.times = times_;
        place_.elementTimes = elementTimes_;
    }
    PlainValue(const PlainValue&) = delete;
    PlainValue& operator=(const PlainValue&) = delete;

private:
    Place& place_;
    bool isArray_;
    std::size_t memberSize_;
    std::size_t conditionCount_;
    std::uint32_t offset_;
    std::uint32_t countMax_;
    std::uint32_t times_;
    std::uint32_t elementTimes_;
};

void WalkTable(const RecordTable& table, const Place& outer, bool sections, const Found& found);

/// Walks element `number` of a row. `record` is the place of its record, and is so again behind it.
void WalkElement(const Field& field, const Named& node, Place* record, std::uint32_t number,
                 bool section, const Found& found) {
    const std::uint32_t recordOffset = record->offset;
    if (IsPlainValue(field)) {
        const PlainValue value(field, node, number, record);
        found.values->push_back(
            MakeValue(field, NodeOf(field, node, record->numbers), recordOffset, *record));
        return;
    }
    Place element = *record;
    EnterElement(field, node, number, &element);
    const Named under = NodeOf(field, node, element.numbers);
    if (field.source != FieldSource::kTable) {
        found.values->push_back(MakeValue(field, under, recordOffset, element));
        return;
    }
    element.prefix = under;
    if (section) {
        element.end = element.offset + field.size;
    }
    WalkTable(*field.table, element, false, found);
}

/// Walks the rows of a record. `sections`: its members are sections.
void WalkTable(const RecordTable& table, const Place& outer, bool sections, const Found& found) {
    Place record = outer;
    if (table.ownModule != nullptr) {
        record.module = {table.ownModule, table.ownModule};
        record.modules = {table.ownModule};
    }
    const Named node =
        table.node == nullptr ? outer.prefix : Expand(table.node, outer.prefix, outer.numbers);
    for (const Field& field : table.fields) {
        if (field.notes.wanted != nullptr) {
            record.wanted = record.offset + field.offset;
        }
    }
    for (const Field& field : table.fields) {
        for (std::uint32_t i = 0; i < field.count; ++i) {
            WalkElement(field, node, &record, i, sections, found);
        }
        if (field.notes.beyond == CountBeyond::kSpilling) {
            const std::uint32_t count = LargestCount(field, record);
            for (std::uint32_t i = field.count; i < count; ++i) {
                WalkElement(field, node, &record, i, sections, {found.spilled, found.spilled});
            }
        }
    }
}

/// Room for the values of the image: moving them costs more than the memory.
constexpr std::size_t kValuesMax = 6144;

Walked WalkFrom(const RecordTable& table, const Place& place, bool sections) {
    Walked walked;
    walked.values.reserve(kValuesMax);
    WalkTable(table, place, sections, {&walked.values, &walked.spilled});
    return walked;
}

}  // namespace

Walked Walk(const RecordTable& table, const WalkStart& start) {
    Place place;
    place.module = {start.module, start.module};
    place.modules = {start.module};
    place.prefix = {start.prefix, start.prefix};
    for (const std::uint32_t number : start.numbers) {
        place.numbers.push_back({std::to_string(number), std::to_string(number)});
    }
    place.end = table.size;
    return WalkFrom(table, place, false);
}

Walked WalkSections(const RecordTable& table) {
    return WalkFrom(table, Place(), true);
}

}  // namespace paramgen::layout
