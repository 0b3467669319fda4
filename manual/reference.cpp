#include "manual/reference.h"

#include "layout/layout.h"
#include "manual/name_lists.h"
#include "manual/offsets.h"

namespace paramgen::manual {
namespace {

using layout::Condition;
using layout::ConditionKind;
using layout::Pattern;
using layout::Value;

std::string TypeOf(const Value& value) {
    switch (value.Kind()) {
        case FieldKind::kBool:
            return "boolean";
        case FieldKind::kInt32:
            return "number";
        case FieldKind::kUint32:
            return "number, stored unsigned";
        case FieldKind::kUint8:
            return "number, 8 bits stored";
        case FieldKind::kInt16:
            return "number, 16 bits";
        case FieldKind::kUint64:
            return "number, 64 bits stored";
        case FieldKind::kFloat:
            return "floating point";
        case FieldKind::kText:
            return "text, at most " + std::to_string(value.size - 1) + " bytes";
        case FieldKind::kName:
            return "name of " + ListName(*layout::NamesOf(value));
        default:
            return layout::KindName(value.Kind());
    }
}

/// When keys of a row are read, in words that fit all of them.
std::string ConditionOf(const Condition& condition) {
    switch (condition.kind) {
        case ConditionKind::kCounted: {
            const layout::KeyName& count = layout::PatternOf(*layout::ValueAt(condition.count));
            return count.key.empty() ? std::string("as many as are counted")
                                     : "as many as " + count.section + ":" + count.key + " says";
        }
        case ConditionKind::kLeading:
            return condition.keys.empty() ? ""
                                          : "while each before it has " + condition.keys.back().key;
        case ConditionKind::kOptionalModule:
            return "if the product has the module";
        case ConditionKind::kSearchedModule:
            return "from the module that names the media mode";
    }
    return "";
}

/// The conditions of the last value: one that is always read may stand before it.
std::string ConditionsOf(const Pattern& pattern) {
    std::string text;
    for (const Condition& condition : pattern.values.back()->conditions) {
        const std::string words = ConditionOf(condition);
        if (!words.empty()) {
            text += (text.empty() ? "" : ", ") + words;
        }
    }
    return text;
}

ReferenceKey KeyOf(const Pattern& pattern) {
    ReferenceKey key;
    key.key = pattern.name.key;
    if (pattern.role == layout::KeyRole::kSearch) {
        key.about = "the media mode that the module is for";
    }
    if (pattern.values.empty()) {
        key.type = pattern.role == layout::KeyRole::kSearch ? "name" : "text";
        return key;
    }
    const Value& value = *pattern.values.front();
    key.type = TypeOf(value);
    key.initial = value.HasDefault() ? std::to_string(value.Default()) : "";
    key.unit = value.Unit();
    key.about = value.About();
    key.numbers = value.Numbers();
    key.offset = OffsetsOf(pattern);
    key.condition = ConditionsOf(pattern);
    return key;
}

/// The element of `list` that is called `name`, made when there is none.
template <typename Element>
Element& Named(std::vector<Element>* list, const std::string& name) {
    for (Element& element : *list) {
        if (element.name == name) {
            return element;
        }
    }
    list->push_back({name, {}});
    return list->back();
}

}  // namespace

Reference MakeReference() {
    Reference reference;
    for (const Pattern& pattern : layout::Patterns()) {
        ReferenceModule& module = Named(&reference.modules, pattern.name.module);
        Named(&module.sections, pattern.name.section).keys.push_back(KeyOf(pattern));
    }
    for (const NameTable* names : NameLists()) {
        reference.names.push_back({ListName(*names), layout::AllNames(*names)});
    }
    return reference;
}

output::Json ReferenceJson(const Reference& reference) {
    output::Json json = {{"schema", 1}, {"keys", output::Json::array()}};
    for (const ReferenceModule& module : reference.modules) {
        for (const ReferenceSection& section : module.sections) {
            for (const ReferenceKey& key : section.keys) {
                output::Json row = {
                    {"module", module.name}, {"section", section.name}, {"key", key.key}};
                const auto add = [&row](const char* member, const std::string& text) {
                    if (!text.empty()) {
                        row[member] = text;
                    }
                };
                add("type", key.type);
                add("default", key.initial);
                add("unit", key.unit);
                add("about", key.about);
                add("numbers", key.numbers);
                add("offset", key.offset);
                add("condition", key.condition);
                json["keys"].push_back(row);
            }
        }
    }
    for (const ReferenceNames& list : reference.names) {
        json["names"][list.name] = list.names;
    }
    return json;
}

}  // namespace paramgen::manual
