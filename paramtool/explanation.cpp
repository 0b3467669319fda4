#include "paramtool/explanation.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "diagnostics/places.h"
#include "image/entry.h"
#include "output/shown_text.h"
#include "output/table.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

using layout::Value;
using output::Json;
using output::JsonText;
using output::Shown;

bool IsSameKey(const Value& a, const Value& b) {
    return a.HasKey() && a.module == b.module && a.section == b.section && a.key == b.key;
}

std::string Stored(const Value& value) {
    char offset[32];
    std::snprintf(offset, sizeof offset, "%u (0x%x)", value.offset, value.offset);
    return std::string(layout::KindName(value.Kind())) + ", " + std::to_string(value.size) +
           (value.size == 1 ? " byte at " : " bytes at ") + offset + ", " + value.Member();
}

std::string DefaultOf(const Value& value) {
    return value.HasDefault() ? std::to_string(value.Default()) : "";
}

std::vector<std::string> ConditionsOf(const Value& value) {
    std::vector<std::string> words;
    for (const layout::Condition& condition : value.conditions) {
        words.push_back(layout::Words(condition));
    }
    return words;
}

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) {
        joined += (joined.empty() ? "" : ", and ") + text;
    }
    return joined;
}

/// Rows of a name and a text; those without a text are left out.
class Rows {
public:
    void Add(const std::string& name, const std::string& text) {
        if (!text.empty()) {
            table_.Add({"  " + (name == last_ ? "" : name), text});
            last_ = name;
        }
    }

    std::string Text() const { return table_.Text(); }

private:
    output::Table table_;
    std::string last_;
};

std::string PlaceText(const diagnostics::Place& place) {
    return place.file + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

void AddRelations(const Explanation& explanation, Rows* rows) {
    for (const bool isOutward : {true, false}) {
        for (const check::Relation& relation : explanation.relations) {
            if (relation.isOutward == isOutward) {
                rows->Add(isOutward ? "refers to" : "referred to by",
                          relation.module + "/" + relation.section + ":" + relation.key + ": " +
                              relation.reason);
            }
        }
    }
}

/// The same for one product: which keys these are, and where they stand.
void AddRelated(const Explanation& explanation, Rows* rows) {
    for (const bool isOutward : {true, false}) {
        for (const RelatedKey& related : explanation.related) {
            if (related.isOutward != isOutward) {
                continue;
            }
            const std::string place =
                related.place.has_value() ? " (" + Shown(PlaceText(*related.place)) + ")" : "";
            rows->Add(isOutward ? "refers to" : "referred to by",
                      layout::Text(related.other) + place + ": " + related.reason);
        }
    }
}

/// What an image has of a key.
void AddStored(const Explanation& explanation, const image::Input& input, Rows* rows) {
    for (const Value* value : explanation.values) {
        const image::Entry entry = image::EntryOf(input.image, *value);
        std::string text =
            value->Kind() == FieldKind::kText ? "'" + Shown(entry.text) + "'" : Shown(entry.text);
        if (!entry.name.empty()) {
            text += ", " + entry.name;
        }
        rows->Add("stored", text + (text.empty() ? "" : ", ") + "bytes " + entry.raw);
    }
    if (!image::IsRead(input.image, *explanation.values.front())) {
        rows->Add("", "its key is not read here");
    }
}

}  // namespace

std::vector<Explanation> Explain(const std::vector<const Value*>& values) {
    std::vector<Explanation> explanations;
    for (const Value* value : values) {
        const auto known = std::find_if(explanations.begin(), explanations.end(),
                                        [&](const Explanation& explanation) {
                                            return IsSameKey(*explanation.values.front(), *value);
                                        });
        if (known != explanations.end()) {
            continue;
        }
        const layout::Key* key =
            value->HasKey() ? layout::FindKey(value->modules.front(), value->section, value->key)
                            : nullptr;
        Explanation explanation;
        explanation.values = {value};
        explanation.chosen = value;
        if (key != nullptr && !key->values.empty()) {
            explanation.values.assign(key->values.begin(), key->values.end());
        }
        if (value->HasKey()) {
            explanation.relations =
                check::RelationsOf(value->modules.front(), value->section, value->key);
        }
        explanations.push_back(std::move(explanation));
    }
    return explanations;
}

namespace {

/// Where a tree sets a key of one of these modules.
struct Setting {
    diagnostics::Place place;
    std::string text;
};

std::optional<Setting> SettingOf(const tree::Product& product,
                                 std::span<const layout::Name> modules, const std::string& section,
                                 const std::string& key) {
    const std::string full = section + ":" + key;
    for (const layout::Name name : modules) {
        const tree::Module* module = product.FindModule(name);
        const tree::Line* line = module == nullptr ? nullptr : module->file->ini->Find(full);
        if (line != nullptr && line->kind == tree::LineKind::kValue) {
            const tree::Span part = line->value.Size() == 0 ? line->name : line->value;
            return Setting{.place = diagnostics::PlaceOf(*module->file, *line, part),
                           .text = std::string(module->file->ini->TextOf(line->value))};
        }
    }
    return std::nullopt;
}

/// The modules of a value that the user means: those that are named, or the one that gives what
/// lies at an offset.
std::vector<layout::Name> ModulesMeant(const Value& value, const layout::KeyPattern& asked,
                                       const compile::Compilation& run) {
    const auto isMeant = [&](const layout::Name& module) {
        if (!asked.Offset()) {
            return asked.Matches(module, value.section, value.key);
        }
        const std::uint32_t start = layout::ValueAt(*asked.Offset())->offset;
        const auto gives = [&](const compile::Answer& answer) {
            return answer.place && answer.place->offset == start &&
                   answer.module == std::string_view(module) &&
                   answer.key == value.section + ":" + value.key;
        };
        return std::any_of(run.answers.begin(), run.answers.end(), gives);
    };
    std::vector<layout::Name> modules;
    std::copy_if(value.modules.begin(), value.modules.end(), std::back_inserter(modules), isMeant);
    return modules;
}

/// The first value of a key that one of `modules` gives in a run; null when none does.
const Value* GivenBy(const std::vector<layout::Name>& modules, const Explanation& explanation,
                     const compile::Compilation& run) {
    const auto isGiven = [&](const Value* value) {
        const auto gives = [&](const compile::Answer& answer) {
            return answer.place && answer.place->offset == value->offset &&
                   answer.key == value->section + ":" + value->key &&
                   std::find(modules.begin(), modules.end(), answer.module) != modules.end();
        };
        return std::any_of(run.answers.begin(), run.answers.end(), gives);
    };
    const auto found = std::find_if(explanation.values.begin(), explanation.values.end(), isGiven);
    return found == explanation.values.end() ? nullptr : *found;
}

/// Whether a name is that of a key, in the spelling of loaders.
bool IsKeyOf(const layout::KeyName& name, const Value& value) {
    return name.key == value.key && name.section == value.section &&
           (name.module == value.module || std::find(value.modules.begin(), value.modules.end(),
                                                     name.module) != value.modules.end());
}

}  // namespace

void AddPlaces(const tree::Product& product, const layout::KeyPattern& asked,
               const compile::Compilation& run, std::vector<Explanation>* explanations) {
    for (Explanation& explanation : *explanations) {
        const Value& value = *explanation.values.front();
        const std::vector<layout::Name> modules = ModulesMeant(value, asked, run);
        const bool isSearched = value.modules.size() > 1 && !asked.Offset();
        const Value* given = isSearched ? GivenBy(modules, explanation, run) : nullptr;
        explanation.chosen = given == nullptr ? explanation.chosen : given;
        const std::optional<Setting> setting =
            SettingOf(product, modules, value.section, value.key);
        if (setting.has_value()) {
            explanation.place = setting->place;
            explanation.text = setting->text;
        }
    }
}

void AddRelated(const compile::Compilation& run, const tree::Product* product,
                std::vector<Explanation>* explanations) {
    const auto add = [&](bool isOutward, const check::Reference& reference,
                         Explanation* explanation) {
        const layout::KeyName& other = isOutward ? reference.to : reference.from;
        RelatedKey related = {.isOutward = isOutward,
                              .other = other,
                              .reason = reference.reason,
                              .place = std::nullopt};
        if (product != nullptr) {
            const layout::Name module = std::string_view(other.module);
            const auto setting = SettingOf(*product, {&module, 1}, other.section, other.key);
            related.place = setting.has_value() ? std::optional(setting->place) : std::nullopt;
        }
        explanation->related.push_back(std::move(related));
    };
    for (const check::Reference& reference : check::ReferencesOf(run)) {
        for (Explanation& explanation : *explanations) {
            const Value& value = *explanation.values.front();
            if (IsKeyOf(reference.from, value)) {
                add(true, reference, &explanation);
            } else if (IsKeyOf(reference.to, value)) {
                add(false, reference, &explanation);
            }
        }
    }
}

std::string ExplanationText(const Explanation& explanation, const image::Input* input) {
    const Value& value = *explanation.values.front();
    Rows rows;
    rows.Add("what", value.About());
    rows.Add("of", value.context);
    rows.Add("unit", value.Unit());
    rows.Add("numbers", value.Numbers());
    for (const Value* each : explanation.values) {
        rows.Add("type", Stored(*each));
    }
    rows.Add("default", DefaultOf(value));
    if (value.HasKey()) {
        const std::string conditions = Joined(ConditionsOf(value));
        rows.Add("read", conditions.empty() ? "always" : conditions);
    }
    if (input == nullptr) {
        AddRelations(explanation, &rows);
    } else {
        AddRelated(explanation, &rows);
    }
    if (input != nullptr && input->isTree && value.HasKey()) {
        rows.Add("set", explanation.place.has_value() ? Shown(PlaceText(*explanation.place)) +
                                                            " to '" + Shown(explanation.text) + "'"
                                                      : "nowhere");
    }
    if (input != nullptr) {
        AddStored(explanation, *input, &rows);
    }
    return NameOf(value) + "\n" + rows.Text();
}

namespace {

Json PlacesJson(const Explanation& explanation) {
    Json places = Json::array();
    for (const Value* value : explanation.values) {
        places.push_back(
            {{"offset", value->offset}, {"size", value->size}, {"member", value->Member()}});
    }
    return places;
}

Json RelationsJson(const Explanation& explanation, bool isOutward) {
    Json relations = Json::array();
    for (const check::Relation& relation : explanation.relations) {
        if (relation.isOutward == isOutward) {
            relations.push_back({{"module", relation.module},
                                 {"section", relation.section},
                                 {"key", relation.key},
                                 {"reason", relation.reason}});
        }
    }
    return relations;
}

/// The same for one product.
Json RelatedJson(const Explanation& explanation, bool isOutward) {
    Json keys = Json::array();
    for (const RelatedKey& related : explanation.related) {
        if (related.isOutward != isOutward) {
            continue;
        }
        Json json = {{"module", related.other.module},
                     {"section", related.other.section},
                     {"key", related.other.key},
                     {"reason", related.reason}};
        if (related.place.has_value()) {
            json["file"] = JsonText(related.place->file);
            json["line"] = related.place->line;
            json["column"] = related.place->column;
        }
        keys.push_back(json);
    }
    return keys;
}

void AddText(const char* name, const std::string& text, Json* json) {
    if (!text.empty()) {
        (*json)[name] = JsonText(text);
    }
}

void AddTreeJson(const Explanation& explanation, Json* json) {
    (*json)["isSet"] = explanation.place.has_value();
    if (explanation.place.has_value()) {
        (*json)["file"] = JsonText(explanation.place->file);
        (*json)["line"] = explanation.place->line;
        (*json)["column"] = explanation.place->column;
        (*json)["text"] = JsonText(explanation.text);
    }
}

}  // namespace

Json ExplanationJson(const Explanation& explanation, const image::Input* input) {
    const Value& value = *explanation.values.front();
    Json json;
    AddText("module", value.module, &json);
    AddText("section", value.section, &json);
    AddText("key", value.key, &json);
    json["type"] = layout::KindName(value.Kind());
    json["places"] = PlacesJson(explanation);
    AddText("description", value.About(), &json);
    AddText("unit", value.Unit(), &json);
    AddText("numbers", value.Numbers(), &json);
    if (value.HasDefault()) {
        json["default"] = value.Default();
    }
    json["conditions"] = ConditionsOf(value);
    const auto& relationsJson = input == nullptr ? RelationsJson : RelatedJson;
    json["refersTo"] = relationsJson(explanation, true);
    json["referredToBy"] = relationsJson(explanation, false);
    if (input != nullptr && input->isTree) {
        AddTreeJson(explanation, &json);
    }
    if (input != nullptr) {
        json["isRead"] = image::IsRead(input->image, *explanation.chosen);
        json["value"] = image::ValueJson(input->image, *explanation.chosen);
        json["raw"] = image::EntryOf(input->image, *explanation.chosen).raw;
    }
    return json;
}

}  // namespace paramgen::paramtool
