#include "manual/kaitai.h"

#include "layout/layout.h"
#include "manual/name_lists.h"
#include "manual/records.h"
#include "manual/words.h"

namespace paramgen::manual {
namespace {

/// A text of one line in double quotes.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += (c == '"' || c == '\\') ? std::string{'\\', c} : std::string{c};
    }
    return quoted + "\"";
}

std::string TypeOf(const Member& member) {
    if (member.record != nullptr) {
        return SnakeCase(member.record->name);
    }
    switch (member.field->kind) {
        case FieldKind::kBool:
        case FieldKind::kUint32:
            return "u4";
        case FieldKind::kUint8:
            return "u1";
        case FieldKind::kInt16:
            return "s2";
        case FieldKind::kUint64:
            return "u8";
        case FieldKind::kFloat:
            return "f4";
        default:
            return "s4";
    }
}

/// A text ends at its first zero byte, or with its field.
std::string Shape(const Member& member) {
    const std::string size = "        size: " + std::to_string(member.size) + "\n";
    if (member.record == nullptr && member.field->kind == FieldKind::kBytes) {
        return size;
    }
    if (member.record == nullptr && member.field->kind == FieldKind::kText) {
        return size + "        type: str\n        terminator: 0\n        encoding: UTF-8\n";
    }
    return "        type: " + TypeOf(member) + "\n";
}

std::string Attribute(const Member& member) {
    std::string text = "      - id: " + SnakeCase(member.name) + "\n" + Shape(member);
    if (member.isArray) {
        text += "        repeat: expr\n        repeat-expr: " + std::to_string(member.count) + "\n";
    }
    const FieldNotes& notes = member.field->notes;
    if (notes.names != nullptr) {
        text += "        enum: " + ListName(*notes.names) + "\n";
    }
    std::string doc = notes.about == nullptr ? "" : notes.about;
    doc += notes.unit == nullptr ? "" : std::string(", in ") + notes.unit;
    doc += notes.numbers == nullptr ? "" : std::string("; ") + notes.numbers;
    return doc.empty() ? text : text + "        doc: " + Quoted(doc) + "\n";
}

std::string Type(const Record& record) {
    std::string text = "  " + SnakeCase(record.name) + ":\n    seq:\n";
    for (const Member& member : record.members) {
        text += Attribute(member);
    }
    return text;
}

std::string Enums() {
    std::string text = "enums:\n";
    for (const NameTable* names : NameLists()) {
        text += "  " + ListName(*names) + ":\n";
        for (const std::string& name : layout::AllNames(*names)) {
            text += "    " + std::to_string(*layout::NumberOf(*names, name)) + ": " +
                    SnakeCase(name) + "\n";
        }
    }
    return text;
}

}  // namespace

std::string KaitaiStruct(const std::string& version) {
    std::string text = "# Written by paramtool " + version +
                       "; do not edit.\n"
                       "meta:\n"
                       "  id: paramgen_image\n"
                       "  title: Parameter image\n"
                       "  file-extension: bin\n"
                       "  endian: le\n"
                       "seq:\n"
                       "  - id: image\n"
                       "    type: " +
                       SnakeCase(ImageRecord().name) + "\n" + "types:\n";
    for (const Record* record : Records()) {
        text += Type(*record);
    }
    return text + Enums();
}

}  // namespace paramgen::manual
