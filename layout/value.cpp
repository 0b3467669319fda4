#include "layout/value.h"

namespace paramgen::layout {
namespace {

std::string OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

std::string NameAt(const NameTable& names, std::size_t index) {
    return std::string(names.Prefix()) + names.Rest(index);
}

}  // namespace

std::string Text(const KeyName& name) {
    return name.module + "/" + name.section + ":" + name.key;
}

std::string Value::Member() const {
    std::string path(record);
    if (!path.empty()) {
        path += '.';
    }
    path += field->notes.member;
    if (field->isArray) {
        path += '[' + std::to_string(number) + ']';
    }
    return path;
}

bool Value::HasDefault() const {
    return Source() == FieldSource::kConstant ||
           (HasKey() && Kind() != FieldKind::kText && Kind() != FieldKind::kName);
}

std::string Value::Label() const {
    if (field->extra == FieldExtra::kLabel && HasKey()) {
        return field->label;
    }
    const bool isFull = field->fullLabel || field->source == FieldSource::kQuery;
    return isFull && HasKey() ? section + ":" + key : std::string(key);
}

std::string Value::About() const {
    return OrEmpty(field->notes.about);
}

std::string Value::Unit() const {
    return OrEmpty(field->notes.unit);
}

std::string Value::Numbers() const {
    return OrEmpty(field->notes.numbers);
}

const NameTable* NamesOf(const Value& value) {
    return value.field->notes.names;
}

std::string NameOf(const NameTable& names, std::int32_t number) {
    std::size_t index = 0;
    return names.FindName(number, &index) ? NameAt(names, index) : std::string();
}

std::optional<std::int32_t> NumberOf(const NameTable& names, const std::string& name) {
    for (std::size_t i = 0; i < names.Count(); ++i) {
        if (NameAt(names, i) == name) {
            return names.Number(i);
        }
    }
    return std::nullopt;
}

std::vector<std::string> AllNames(const NameTable& names) {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < names.Count(); ++i) {
        all.push_back(NameAt(names, i));
    }
    return all;
}

const char* KindName(FieldKind kind) {
    switch (kind) {
        case FieldKind::kBool:
            return "bool";
        case FieldKind::kInt32:
            return "i32";
        case FieldKind::kUint32:
            return "u32";
        case FieldKind::kUint8:
            return "u8";
        case FieldKind::kInt16:
            return "i16";
        case FieldKind::kUint64:
            return "u64";
        case FieldKind::kFloat:
            return "f32";
        case FieldKind::kText:
            return "text";
        case FieldKind::kName:
            return "name";
        case FieldKind::kRecord:
            return "record";
        case FieldKind::kBytes:
            return "bytes";
    }
    return "?";
}

const char* SourceName(FieldSource source) {
    switch (source) {
        case FieldSource::kReader:
            return "reader";
        case FieldSource::kQuery:
            return "query";
        case FieldSource::kLoader:
            return "loader";
        case FieldSource::kConstant:
            return "constant";
        case FieldSource::kCopy:
            return "copy";
        case FieldSource::kTable:
            return "table";
        case FieldSource::kNobody:
            return "nobody";
    }
    return "?";
}

}  // namespace paramgen::layout
