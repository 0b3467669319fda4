#include "manual/layout_data.h"

#include <array>

#include "generator/image.h"
#include "layout/layout.h"
#include "manual/name_lists.h"
#include "report/sha256.h"

namespace paramgen::manual {
namespace {

using layout::Value;
using output::Json;

void Add(Json* object, const char* member, const std::string& text) {
    if (!text.empty()) {
        (*object)[member] = text;
    }
}

std::string ConditionOf(const Value& value) {
    std::string text;
    for (const layout::Condition& condition : value.conditions) {
        text += (text.empty() ? "" : ", ") + layout::Words(condition);
    }
    return text;
}

Json JsonOf(const Value& value) {
    Json object = {{"offset", value.offset},
                   {"size", value.size},
                   {"member", value.Member()},
                   {"type", layout::KindName(value.Kind())},
                   {"source", layout::SourceName(value.Source())}};
    Add(&object, "module", value.module);
    Add(&object, "section", value.section);
    Add(&object, "key", value.key);
    if (value.HasDefault()) {
        object["default"] = value.Default();
    }
    if (value.times > 1) {
        object["times"] = value.times;
    }
    if (const NameTable* names = layout::NamesOf(value); names != nullptr) {
        object["names"] = ListName(*names);
    }
    Add(&object, "about", value.About());
    Add(&object, "unit", value.Unit());
    Add(&object, "numbers", value.Numbers());
    Add(&object, "condition", ConditionOf(value));
    return object;
}

Json NamesJson() {
    Json lists = Json::object();
    for (const NameTable* names : NameLists()) {
        Json& list = lists[ListName(*names)];
        for (const std::string& name : layout::AllNames(*names)) {
            list[name] = *layout::NumberOf(*names, name);
        }
    }
    return lists;
}

}  // namespace

Json LayoutJson() {
    Json json = {{"schema", 1},
                 {"size", sizeof(ParamImage)},
                 {"magic", kImageMagic},
                 {"tail", kTailMark},
                 {"endian", "little"},
                 {"names", NamesJson()},
                 {"values", Json::array()}};
    for (const Value& value : layout::Values()) {
        json["values"].push_back(JsonOf(value));
    }
    return json;
}

std::string LayoutText() {
    Json json = LayoutJson();
    std::string values;
    for (const Json& value : json["values"]) {
        values += (values.empty() ? "" : ",\n") + value.dump();
    }
    json.erase("values");
    std::string text = json.dump();
    text.pop_back();
    return text + ",\"values\":[\n" + values + "\n]}\n";
}

std::string LayoutId() {
    return report::Hexadecimal(report::Sha256(LayoutText())).substr(0, 16);
}

std::string CsvCell(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string cell = "\"";
    for (const char c : text) {
        cell += c == '"' ? "\"\"" : std::string{c};
    }
    return cell + "\"";
}

std::string LayoutCsv() {
    std::string text = "offset,size,member,type,module,section,key,default,unit,about\n";
    for (const Value& value : layout::Values()) {
        const std::array<std::string, 10> cells = {
            std::to_string(value.offset),
            std::to_string(value.size),
            value.Member(),
            std::string(layout::KindName(value.Kind())),
            value.module,
            value.section,
            value.key,
            value.HasDefault() ? std::to_string(value.Default()) : "",
            value.Unit(),
            value.About()};
        for (std::size_t i = 0; i < cells.size(); ++i) {
            text += (i == 0 ? "" : ",") + CsvCell(cells[i]);
        }
        text += "\n";
    }
    return text;
}

}  // namespace paramgen::manual
