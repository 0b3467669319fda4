#include "report/page_data.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "output/shown_text.h"

namespace paramgen::report {
namespace {

using Json = nlohmann::ordered_json;

/// Texts that occur many times, each kept once.
class Texts {
public:
    std::size_t NumberOf(const std::string& text) {
        const auto [place, isNew] = numbers_.try_emplace(output::Shown(text), texts_.size());
        if (isNew) {
            texts_.push_back(place->first);
        }
        return place->second;
    }
    const std::vector<std::string>& all() const { return texts_; }

private:
    std::map<std::string, std::size_t> numbers_;
    std::vector<std::string> texts_;
};

void Add(Json* object, const char* member, const std::string& text) {
    if (!text.empty()) {
        (*object)[member] = output::Shown(text);
    }
}

void AddShared(Json* object, const char* member, const std::string& text, Texts* texts) {
    if (!text.empty()) {
        (*object)[member] = texts->NumberOf(text);
    }
}

void AddReferences(Json* object, const char* member, const std::vector<Reference>& references) {
    for (const Reference& reference : references) {
        (*object)[member].push_back(
            {{"text", output::Shown(reference.text)}, {"offset", reference.offset}});
    }
}

Json DataOf(const Value& value, Texts* texts) {
    Json object = {{"offset", value.offset}, {"size", value.size}, {"state", NameOf(value.state)}};
    AddShared(&object, "part", value.part, texts);
    Add(&object, "member", value.member);
    AddShared(&object, "module", value.module, texts);
    AddShared(&object, "section", value.section, texts);
    Add(&object, "key", value.key);
    AddShared(&object, "type", value.type, texts);
    Add(&object, "raw", value.raw);
    Add(&object, "value", value.value);
    Add(&object, "name", value.name);
    Add(&object, "initial", value.initial);
    AddShared(&object, "about", value.about, texts);
    AddShared(&object, "unit", value.unit, texts);
    AddShared(&object, "numbers", value.numbers, texts);
    AddShared(&object, "condition", value.condition, texts);
    Add(&object, "place", value.place);
    Add(&object, "given", value.given);
    if (!value.flags.empty()) {
        object["flags"] = Json::array();
        for (const std::string& flag : value.flags) {
            object["flags"].push_back(output::Shown(flag));
        }
    }
    if (value.changed) {
        object["changed"] = true;
        object["old"] = output::Shown(value.old);
        Add(&object, "oldName", value.oldName);
        Add(&object, "oldPlace", value.oldPlace);
    }
    AddReferences(&object, "refersTo", value.refersTo);
    AddReferences(&object, "referredBy", value.referredBy);
    return object;
}

Json DataOf(const Comparison& comparison) {
    Json object = {{"title", output::Shown(comparison.title)}, {"columns", Json::array()}};
    for (const Column& column : comparison.columns) {
        object["columns"].push_back(
            {{"title", output::Shown(column.title)}, {"member", column.member}});
    }
    return object;
}

}  // namespace

const char* NameOf(State state) {
    constexpr const char* kNames[] = {"set", "default", "unread", "stored", "constant", "reserved"};
    return kNames[static_cast<std::size_t>(state)];
}

Json Data(const Page& page) {
    Texts texts;
    Json data = {{"compared", !page.against.empty()},
                 {"values", Json::array()},
                 {"findings", Json::array()},
                 {"comparisons", Json::array()}};
    for (const Value& value : page.values) {
        data["values"].push_back(DataOf(value, &texts));
    }
    for (const Finding& finding : page.findings) {
        data["findings"].push_back({{"severity", finding.severity},
                                    {"message", output::Shown(finding.message)},
                                    {"offsets", finding.offsets}});
    }
    for (const Comparison& comparison : page.comparisons) {
        data["comparisons"].push_back(DataOf(comparison));
    }
    data["texts"] = texts.all();
    return data;
}

}  // namespace paramgen::report
