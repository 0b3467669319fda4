#include "layout/walk.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "layout/store.h"

namespace paramgen::layout {
namespace {

/// The indices of the array elements around a value as they stand in names, the innermost last.
class Numbers {
public:
    void Add(Name number) { numbers_.at(count_++) = number; }

    /// Adds a letter in place of an index: N, M, K, L.
    void AddLetter() {
        constexpr std::string_view kLetters = "NMKL";
        Add(kLetters.substr(letters_++, 1));
    }

    const Name* end() const { return numbers_.data() + count_; }

private:
    std::array<Name, 8> numbers_;
    std::size_t count_ = 0;
    std::size_t letters_ = 0;
};

/// The record or value that the walk has come to.
struct Place {
    Name module;
    std::span<const Name> modules;
    Name prefix;
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
/// order.
Name Fill(std::string_view pattern, Name text, const Numbers& numbers) {
    const auto placeholders = static_cast<std::size_t>(
        std::count(pattern.begin(), pattern.end(), '%') - (pattern.find("%s") != pattern.npos));
    const Name* next = numbers.end() - placeholders;
    std::array<std::string_view, 12> pieces;
    std::size_t count = 0;
    while (!pattern.empty()) {
        const std::size_t length = std::min(pattern.find('%'), pattern.size());
        pieces.at(count++) = pattern.substr(0, length);
        pattern.remove_prefix(length);
        if (!pattern.empty()) {
            pieces.at(count++) = pattern[1] == 's' ? text : *next++;
            pattern.remove_prefix(2);
        }
    }
    return Store::Get().Join({pieces.data(), count});
}

Name Expand(std::string_view pattern, Name text, const Numbers& numbers) {
    return pattern.find('%') == pattern.npos ? pattern : Fill(pattern, text, numbers);
}

void AddCondition(const Condition& condition, Place* place) {
    place->conditions = Store::Get().With(place->conditions, condition);
}

/// Makes a module that a search finds the module of `place`.
void EnterSearched(const ModuleSearch& search, Place* place) {
    const auto expand = [&](Name number) {
        Numbers numbers;
        numbers.Add(Digits(search.camera));
        numbers.Add(number);
        return Fill(search.modules, "", numbers);
    };
    place->module = expand("*");
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

void EnterNamed(Name module, Place* place) {
    place->module = module;
    place->modules = Store::Get().With(std::span<const Name>(), module);
}

/// Makes the module of a row, when it has one of its own, the module of `place`.
void EnterModule(const Field& field, Place* place) {
    if (field.extra == FieldExtra::kSearchedModule) {
        EnterSearched(*field.notes.search, place);
    } else if (field.extra == FieldExtra::kModule) {
        EnterNamed(Expand(field.module, Name(), place->numbers), place);
        if (field.notes.optionalModule) {
            Condition condition;
            condition.kind = ConditionKind::kOptionalModule;
            condition.module = place->module;
            AddCondition(condition, place);
        }
    }
}

/// The node that `field` is read under: its own, or `node`.
Name NodeOf(const Field& field, Name node, const Numbers& numbers) {
    if (field.node == nullptr) {
        return node;
    }
    return field.ownNode ? Name(field.node) : Expand(field.node, node, numbers);
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
std::span<const KeyView> LeadingKeys(const Field& field, Name node, const Place& record) {
    if (field.notes.whileKey == nullptr) {
        return {};
    }
    const std::span<KeyView> keys = Store::Get().List<KeyView>(field.count);
    for (std::uint32_t i = 0; i < field.count; ++i) {
        Numbers numbers = record.numbers;
        numbers.Add(Digits(i));
        keys[i] = {record.module, Expand(field.table->node, node, numbers), field.notes.whileKey};
    }
    return keys;
}

/// A row of a record.
struct Row {
    const Field& field;
    Name node;                             ///< of the record
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

/// What a walk does: the lists that it adds values to, null when they are not asked for, and how.
struct Found {
    std::vector<Value>* values;
    std::vector<Value>* spilled;
    bool byOffset = false;
    Indices indices = Indices::kNumbers;
};

/// Makes the value of a row at `place`, which is read under `node`.
Value MakeValue(const Row& row, std::uint32_t number, Name node, const Place& place) {
    const Field& field = row.field;
    Value value = {};
    value.field = &field;
    value.offset = place.offset;
    value.size = field.size;
    value.record = row.record.member;
    value.number = number;
    value.conditions = place.conditions;
    value.context = place.context;
    value.origin = field.source == FieldSource::kCopy
                       ? row.record.offset + static_cast<std::uint32_t>(field.Number())
                       : place.offset;
    value.times = field.kind == FieldKind::kText ? 1 : place.times;
    if (field.key == nullptr) {
        return value;
    }
    value.module = place.module;
    value.modules = place.modules;
    value.section = node;
    value.key = Expand(field.KeyView(), Name(), place.numbers);
    return value;
}

/// The member path of a nested record.
Name MemberPath(const Row& row, std::uint32_t number) {
    const Name outer = row.record.member;
    const bool isArray = row.field.isArray;
    const std::array<std::string_view, 6> parts = {outer,
                                                   outer.empty() ? "" : ".",
                                                   row.field.notes.member,
                                                   isArray ? "[" : "",
                                                   isArray ? Digits(number) : Name(),
                                                   isArray ? "]" : ""};
    return Store::Get().Join(parts);
}

/// The place of element `number` of a row.
Place PlaceOf(const Row& row, std::uint32_t number, Indices indices) {
    const Field& field = row.field;
    Place place = row.record;
    AddElementCondition(row, number, &place);
    place.offset += field.offset + number * field.size;
    if (field.isArray) {
        if (field.count > 1 && indices == Indices::kLetters) {
            place.numbers.AddLetter();
        } else {
            place.numbers.Add(Digits(number));
        }
        place.times = place.elementTimes;
    }
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

/// Calls `visit` for each row of a table, `byOffset` or in reading order.
template <typename Visit>
void ForEachRow(const RecordTable& table, bool byOffset, const Visit& visit) {
    const auto before = [](const Field& a, const Field& b) { return a.offset < b.offset; };
    if (!byOffset || std::is_sorted(table.fields.begin(), table.fields.end(), before)) {
        std::for_each(table.fields.begin(), table.fields.end(), visit);
        return;
    }
    std::vector<const Field*> rows;
    for (const Field& field : table.fields) {
        rows.push_back(&field);
    }
    std::sort(rows.begin(), rows.end(),
              [&](const Field* a, const Field* b) { return before(*a, *b); });
    for (const Field* row : rows) {
        visit(*row);
    }
}

void WalkTable(const RecordTable& table, const Place& outer, bool sections, const Found& found);

// Tables are nested a few records deep.
// NOLINTBEGIN(misc-no-recursion)

/// Walks element `number` of a row.
void WalkElement(const Row& row, std::uint32_t number, bool section, const Found& found) {
    const Field& field = row.field;
    Place element = PlaceOf(row, number, found.indices);
    const Name under = NodeOf(field, row.node, element.numbers);
    if (field.source != FieldSource::kTable) {
        if (found.values != nullptr) {
            found.values->push_back(MakeValue(row, number, under, element));
        }
        return;
    }
    element.prefix = under;
    element.member = MemberPath(row, number);
    if (section) {
        element.end = element.offset + field.size;
    }
    WalkTable(*field.table, element, false, found);
}

/// Walks the rows of a record. `sections`: its members are sections.
void WalkTable(const RecordTable& table, const Place& outer, bool sections, const Found& found) {
    Place record = outer;
    if (table.ownModule != nullptr) {
        EnterNamed(table.ownModule, &record);
    }
    const Name node =
        table.node == nullptr ? outer.prefix : Expand(table.node, outer.prefix, outer.numbers);
    for (const Field& field : table.fields) {
        if (field.notes.wanted != nullptr) {
            record.wanted = record.offset + field.offset;
        }
    }
    ForEachRow(table, found.byOffset, [&](const Field& field) {
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
    });
}

// NOLINTEND(misc-no-recursion)

/// Room for the values of the image: moving them costs more than the memory.
constexpr std::size_t kValuesMax = 6144;

}  // namespace

std::vector<Value> Walk(const RecordTable& table, const WalkStart& start) {
    const auto kept = [](std::string_view text) { return Store::Get().Join({&text, 1}); };
    Place place;
    EnterNamed(kept(start.module), &place);
    place.prefix = kept(start.prefix);
    for (const std::uint32_t number : start.numbers) {
        place.numbers.Add(Digits(number));
    }
    place.end = table.size;
    std::vector<Value> values;
    WalkTable(table, place, false, {&values, nullptr});
    return values;
}

std::vector<Value> WalkSections(const RecordTable& table, Indices indices) {
    std::vector<Value> values;
    values.reserve(kValuesMax);
    WalkTable(table, Place(), true, {&values, nullptr, true, indices});
    return values;
}

std::vector<Value> WalkSpilled(const RecordTable& table) {
    std::vector<Value> spilled;
    WalkTable(table, Place(), true, {nullptr, &spilled});
    return spilled;
}

}  // namespace paramgen::layout
