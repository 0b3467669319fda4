#include "layout/walk.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "layout/store.h"

namespace paramgen::layout {
namespace {

/// Index of an array element: as it stands in a name, and the letter for it in the name's pattern.
struct Number {
    Name real;
    Name letter;
};

/// The indices of the array elements around a value, the innermost last.
class Numbers {
public:
    void Add(Number number) { numbers_.at(count_++) = number; }
    std::size_t size() const { return count_; }
    const Number* begin() const { return numbers_.data(); }
    const Number* end() const { return numbers_.data() + count_; }

private:
    std::array<Number, 8> numbers_;
    std::size_t count_ = 0;
};

/// A name, and its pattern.
struct Named {
    Name real;
    Name pattern;
};

/// The record or value that the walk has come to.
struct Place {
    Named module;
    std::span<const Name> modules;
    Named prefix;
    Numbers numbers;
    std::uint32_t offset = 0;
    std::uint32_t end = 0;  ///< offset up to which elements may spill
    std::uint32_t countMax = UINT32_MAX;
    Name member;
    std::span<const Condition> conditions;
    std::uint32_t wanted = 0;
    Name context;
    std::uint32_t times = 1;
    std::uint32_t elementTimes = 1;  ///< becomes `times` in elements of nested arrays
};

/// The digits of a number, most of which come many times.
Name Digits(std::uint32_t number) {
    static std::vector<Name> known;
    while (known.size() <= number) {
        const std::string digits = std::to_string(known.size());
        const std::string_view text = digits;
        known.push_back(Store::Get().Join({&text, 1}));
    }
    return known[number];
}

/// Fills in a template: "%s" with `text`, and its "%d" and "%u" with the last of `numbers`, in
/// order: with what `part` of them says.
Name Fill(std::string_view pattern, Name text, const Numbers& numbers, Name Number::*part) {
    const auto placeholders = static_cast<std::size_t>(
        std::count(pattern.begin(), pattern.end(), '%') - (pattern.find("%s") != pattern.npos));
    const Number* next = numbers.end() - placeholders;
    std::array<std::string_view, 12> pieces;
    std::size_t count = 0;
    while (!pattern.empty()) {
        const std::size_t length = std::min(pattern.find('%'), pattern.size());
        pieces.at(count++) = pattern.substr(0, length);
        pattern.remove_prefix(length);
        if (!pattern.empty()) {
            pieces.at(count++) = pattern[1] == 's' ? text : (next++)->*part;
            pattern.remove_prefix(2);
        }
    }
    return Store::Get().Join({pieces.data(), count});
}

Named Expand(std::string_view pattern, const Named& text, const Numbers& numbers) {
    if (pattern.find('%') == pattern.npos) {
        return {pattern, pattern};
    }
    return {Fill(pattern, text.real, numbers, &Number::real),
            Fill(pattern, text.pattern, numbers, &Number::letter)};
}

/// The letter for the next index: N, M, K, L. Indices of arrays with one element get none.
Name NextLetter(const Numbers& numbers) {
    constexpr std::string_view kLetters = "NMKL";
    const auto used = std::count_if(numbers.begin(), numbers.end(), [](const Number& number) {
        return number.letter != number.real;
    });
    return kLetters.substr(static_cast<std::size_t>(used), 1);
}

void AddCondition(const Condition& condition, Place* place) {
    place->conditions = Store::Get().With(place->conditions, condition);
}

/// Makes a module that a search finds the module of `place`.
void EnterSearched(const ModuleSearch& search, Place* place) {
    const Number camera = {Digits(search.camera), ""};
    const auto expand = [&](Name number) {
        Numbers numbers;
        numbers.Add(camera);
        numbers.Add({number, ""});
        return Fill(search.modules, "", numbers, &Number::real);
    };
    const Name any = expand("*");
    place->module = {any, any};
    const std::span<Name> modules = Store::Get().List<Name>(search.count);
    for (std::uint32_t i = 0; i < search.count; ++i) {
        modules[i] = expand(Digits(i));
    }
    place->modules = modules;
    Condition condition;
    condition.kind = ConditionKind::kSearchedModule;
    condition.wanted = place->wanted;
    condition.search = &search;
    AddCondition(condition, place);
}

void EnterNamed(const Named& module, Place* place) {
    place->module = module;
    place->modules = Store::Get().With(std::span<const Name>(), module.real);
}

/// Makes the module of a row, when it has one of its own, the module of `place`.
void EnterModule(const Field& field, Place* place) {
    if (field.extra == FieldExtra::kSearchedModule) {
        EnterSearched(*field.notes.search, place);
    } else if (field.extra == FieldExtra::kModule) {
        EnterNamed(Expand(field.module, Named(), place->numbers), place);
        if (field.notes.optionalModule) {
            Condition condition;
            condition.kind = ConditionKind::kOptionalModule;
            condition.module = place->module.real;
            AddCondition(condition, place);
        }
    }
}

/// The node that `field` is read under: its own, or `node`.
Named NodeOf(const Field& field, const Named& node, const Numbers& numbers) {
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

/// The keys that must exist for the elements of a row to be read: that of element N for those
/// behind it.
std::span<const KeyView> LeadingKeys(const Field& field, const Named& node, const Place& record) {
    if (field.notes.whileKey == nullptr) {
        return {};
    }
    const std::span<KeyView> keys = Store::Get().List<KeyView>(field.count);
    for (std::uint32_t i = 0; i < field.count; ++i) {
        Numbers numbers = record.numbers;
        numbers.Add({Digits(i), ""});
        keys[i] = {record.module.real, Expand(field.table->node, node, numbers).real,
                   field.notes.whileKey};
    }
    return keys;
}

/// A row of a record.
struct Row {
    const Field& field;
    Named node;                            ///< of the record
    const Place& record;                   ///< where it is
    std::span<const KeyView> leadingKeys;  ///< see `LeadingKeys`
};

/// Adds the condition under which element `number` of a row is read, if there is one.
void AddElementCondition(const Row& row, std::uint32_t number, Place* place) {
    const FieldNotes& notes = row.field.notes;
    Condition condition;
    condition.number = number;
    condition.places = row.field.count;
    condition.count = row.record.offset + notes.countOffset;
    if (notes.whileKey != nullptr) {
        condition.kind = ConditionKind::kLeading;
        condition.keys = row.leadingKeys.first(number);
    } else if (notes.beyond != CountBeyond::kNotCounted) {
        condition.largest = LargestCount(row.field, row.record);
        condition.beyond =
            condition.largest == row.field.count ? CountBeyond::kRefused : notes.beyond;
    } else {
        return;
    }
    AddCondition(condition, place);
}

/// The lists that a walk adds values to; null when they are not asked for.
struct Found {
    std::vector<Value>* values;
    std::vector<Value>* spilled;
};

/// Makes the value of a row at `place`, which is read under `node`.
Value MakeValue(const Row& row, const Named& node, const Place& place) {
    const Field& field = row.field;
    Value value = {};
    value.field = &field;
    value.offset = place.offset;
    value.size = field.size;
    value.member = place.member;
    value.conditions = place.conditions;
    value.context = place.context;
    value.origin = field.source == FieldSource::kCopy
                       ? row.record.offset + static_cast<std::uint32_t>(field.Number())
                       : place.offset;
    value.times = field.kind == FieldKind::kText ? 1 : place.times;
    if (field.key == nullptr) {
        return value;
    }
    const Named item = Expand(field.KeyView(), Named(), place.numbers);
    value.module = place.module.real;
    value.modules = place.modules;
    value.section = node.real;
    value.key = item.real;
    value.pattern = {place.module.pattern, node.pattern, item.pattern};
    return value;
}

/// The member path of an element; `index` is empty when the row is no array.
Name MemberPath(const Row& row, std::string_view index) {
    const Name outer = row.record.member;
    const bool isArray = row.field.isArray;
    const std::array<std::string_view, 6> parts = {
        outer, outer.empty() ? "" : ".", row.field.notes.member, isArray ? "[" : "",
        index, isArray ? "]" : ""};
    return Store::Get().Join(parts);
}

/// The place of element `number` of a row.
Place PlaceOf(const Row& row, std::uint32_t number) {
    const Field& field = row.field;
    Place place = row.record;
    AddElementCondition(row, number, &place);
    place.offset += field.offset + number * field.size;
    Name index;
    if (field.isArray) {
        index = Digits(number);
        place.numbers.Add({index, field.count > 1 ? NextLetter(place.numbers) : index});
        place.times = place.elementTimes;
    }
    place.member = MemberPath(row, index);
    if (field.source == FieldSource::kTable && field.notes.about != nullptr) {
        place.context = field.notes.about;
    }
    if (field.notes.times != 0) {
        place.elementTimes = field.notes.times;
    }
    if (field.notes.countMax != 0) {
        place.countMax = field.notes.countMax;
    }
    EnterModule(field, &place);
    return place;
}

void WalkTable(const RecordTable& table, const Place& outer, bool sections, const Found& found);

// Tables are nested a few records deep.
// NOLINTBEGIN(misc-no-recursion)

/// Walks element `number` of a row.
void WalkElement(const Row& row, std::uint32_t number, bool section, const Found& found) {
    const Field& field = row.field;
    Place element = PlaceOf(row, number);
    const Named under = NodeOf(field, row.node, element.numbers);
    if (field.source != FieldSource::kTable) {
        if (found.values != nullptr) {
            found.values->push_back(MakeValue(row, under, element));
        }
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
        EnterNamed({table.ownModule, table.ownModule}, &record);
    }
    const Named node =
        table.node == nullptr ? outer.prefix : Expand(table.node, outer.prefix, outer.numbers);
    for (const Field& field : table.fields) {
        if (field.notes.wanted != nullptr) {
            record.wanted = record.offset + field.offset;
        }
    }
    for (const Field& field : table.fields) {
        const Row row = {field, node, record, LeadingKeys(field, node, record)};
        for (std::uint32_t i = 0; i < field.count; ++i) {
            WalkElement(row, i, sections, found);
        }
        if (field.notes.beyond == CountBeyond::kSpilling && found.spilled != nullptr) {
            const std::uint32_t count = LargestCount(field, record);
            for (std::uint32_t i = field.count; i < count; ++i) {
                WalkElement(row, i, sections, {found.spilled, found.spilled});
            }
        }
    }
}

// NOLINTEND(misc-no-recursion)

/// Room for the values of the image: moving them costs more than the memory.
constexpr std::size_t kValuesMax = 6144;

}  // namespace

std::vector<Value> Walk(const RecordTable& table, const WalkStart& start) {
    const auto kept = [](std::string_view text) { return Store::Get().Join({&text, 1}); };
    Place place;
    const Name module = kept(start.module);
    EnterNamed({module, module}, &place);
    const Name prefix = kept(start.prefix);
    place.prefix = {prefix, prefix};
    for (const std::uint32_t number : start.numbers) {
        const Name digits = Digits(number);
        place.numbers.Add({digits, digits});
    }
    place.end = table.size;
    std::vector<Value> values;
    WalkTable(table, place, false, {&values, nullptr});
    return values;
}

std::vector<Value> WalkSections(const RecordTable& table) {
    std::vector<Value> values;
    values.reserve(kValuesMax);
    WalkTable(table, Place(), true, {&values, nullptr});
    return values;
}

std::vector<Value> WalkSpilled(const RecordTable& table) {
    std::vector<Value> spilled;
    WalkTable(table, Place(), true, {nullptr, &spilled});
    return spilled;
}

}  // namespace paramgen::layout
