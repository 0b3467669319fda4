// Writes the products that mutated field tables are tried with: "set" with every key, "none"
// without keys, and "counts" with the keys that others depend on and every second switch. Counts
// are those of full arrays. Prints the module, section, key and row ("GsensorCfg.sensitivity") of
// every key.
//
// mutation_trees DIRECTORY

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>

#include "generator/image.h"
#include "layout/layout.h"

namespace paramgen::layout {
namespace {

using Sections = std::map<std::string, std::map<std::string, std::string>>;
using Product = std::map<std::string, Sections>;

/// The size of the array of every count, by the count's offset.
std::map<std::uint32_t, std::uint32_t> CountLimits() {
    std::map<std::uint32_t, std::uint32_t> limits;
    for (const Value& value : Values()) {
        for (const Condition& condition : value.conditions) {
            if (condition.kind == ConditionKind::kCounted) {
                limits[condition.count] = condition.places;
            }
        }
    }
    return limits;
}

/// Sections and keys, of whatever module, that decide how many elements are read.
std::set<std::string> LeadingKeys() {
    std::set<std::string> keys;
    for (const Value& value : Values()) {
        for (const Condition& condition : value.conditions) {
            for (const KeyView& key : condition.keys) {
                keys.insert(key.section + ":" + key.key);
            }
        }
    }
    return keys;
}

/// A row: "GsensorCfg.sensitivity", and its number in its table.
struct Row {
    std::string name;
    std::size_t number;
};
using Rows = std::map<const Field*, Row>;

/// Adds the rows of `table` and the tables below.
void AddRows(const RecordTable& table, Rows* rows) {
    for (const Field& field : table.fields) {
        if (field.source == FieldSource::kTable) {
            AddRows(*field.table, rows);
        } else {
            const std::string type(table.type.substr(table.type.rfind(':') + 1));
            const auto number = static_cast<std::size_t>(&field - table.fields.data());
            (*rows)[&field] = {type + "." + field.notes.member, number};
        }
    }
}

std::string NameOf(const NameTable& names, std::size_t index) {
    return std::string(names.Prefix()) + names.Rest(index % names.Count());
}

/// A text for `value`, the `number`th value. It differs from the default and from the neighbours'.
std::string TextFor(const Value& value, std::uint32_t number) {
    switch (value.Kind()) {
        case FieldKind::kBool:
            return value.Default() == 0 ? "1" : "0";
        case FieldKind::kUint8:
            return std::to_string(1 + number % 200);
        case FieldKind::kText:
            return "t" + std::to_string(number);
        case FieldKind::kName:
            // Not the first name: its number is 0, as without the key.
            return NameOf(*value.field->notes.names, 1 + number % 40);
        default:
            return std::to_string(1000 + number);
    }
}

bool ServesAMode(const Key& key) {
    return key.role == KeyRole::kSearch;
}

bool IsSearched(const Key& key) {
    return key.values.empty() || key.values.front()->modules.size() > 1;
}

/// Whether the value stands in every second element of a counted array.
bool IsInOtherElement(const Value& value) {
    return std::any_of(value.conditions.begin(), value.conditions.end(), [](const Condition& one) {
        return one.kind == ConditionKind::kCounted && one.number % 2 == 1;
    });
}

/// Whether `counts` has the key: others are read only depending on it, or it is every second switch
/// of its table. Searched modules and every second element of an array keep their defaults.
bool CountsHave(const Key& key, const std::map<std::uint32_t, std::uint32_t>& limits,
                const Rows& rows) {
    static const std::set<std::string> leading = LeadingKeys();
    if (ServesAMode(key) || leading.count(key.name.section + ":" + key.name.key) != 0) {
        return true;
    }
    const Value& value = *key.values.front();
    if (IsSearched(key) || IsInOtherElement(value)) {
        return false;
    }
    return limits.count(value.offset) != 0 ||
           (value.Kind() == FieldKind::kBool && rows.at(value.field).number % 2 == 0);
}

void Write(const std::filesystem::path& directory, const Product& product) {
    std::filesystem::create_directories(directory);
    std::ofstream entry(directory / "config_cfgaccess_entry.ini");
    entry << "[module]\nmodule_num = " << product.size() << "\n";
    int number = 0;
    for (const auto& [module, sections] : product) {
        entry << "module" << ++number << " = " << module << "\n";
    }
    for (const auto& [module, sections] : product) {
        entry << "[" << module << "]\ncfg_filename = " << module << ".ini\n";
        std::ofstream file(directory / (module + ".ini"));
        for (const auto& [section, keys] : sections) {
            file << "[" << section << "]\n";
            for (const auto& [key, text] : keys) {
                file << key << " = " << text << "\n";
            }
        }
    }
}

void WriteAll(const std::filesystem::path& directory) {
    const std::map<std::uint32_t, std::uint32_t> limits = CountLimits();
    Product set;
    Product none;
    Product counts;
    Rows rows;
    AddRows(kImageTable, &rows);
    std::map<std::string, std::uint32_t> modes;  // of the media modes' modules, in their order
    std::uint32_t number = 0;
    for (const Key& key : Keys()) {
        none[key.name.module];
        counts[key.name.module];
        ++number;
        std::string text;
        if (ServesAMode(key)) {
            // The calibrations serve the first two media modes.
            const NameTable& names =
                *Find(*KeyPattern::Parse("cam0_mediamode0/common:mediamode", &text))
                     .front()
                     ->field->notes.names;
            text = NameOf(names, 1 + modes.size());
            modes[key.name.module] = 0;
        } else if (const auto limit = limits.find(key.values.front()->offset);
                   limit != limits.end()) {
            text = std::to_string(limit->second);
        } else {
            text = TextFor(*key.values.front(), number);
        }
        if (key.name.section == "common" && key.name.key == "mediamode" && !ServesAMode(key)) {
            const NameTable& names = *key.values.front()->field->notes.names;
            text = NameOf(names, 1 + static_cast<std::size_t>(key.name.module.back() - '0'));
            counts[key.name.module][key.name.section][key.name.key] = text;
        }
        set[key.name.module][key.name.section][key.name.key] = text;
        if (CountsHave(key, limits, rows)) {
            counts[key.name.module][key.name.section][key.name.key] = text;
        }
        std::cout << key.name.module << "\t" << key.name.section << "\t" << key.name.key << "\t"
                  << (key.values.empty() ? "" : rows.at(key.values.front()->field).name) << "\n";
    }
    Write(directory / "set", set);
    Write(directory / "none", none);
    Write(directory / "counts", counts);
}

}  // namespace
}  // namespace paramgen::layout

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "mutation_trees DIRECTORY\n";
        return 2;
    }
    paramgen::layout::WriteAll(argv[1]);
    return 0;
}
