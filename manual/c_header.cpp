#include "manual/c_header.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "generator/image.h"
#include "layout/layout.h"
#include "manual/name_lists.h"
#include "manual/records.h"
#include "manual/words.h"

namespace paramgen::manual {
namespace {

/// What is no name in one of the languages, or a macro of a compiler.
constexpr std::array kTaken = std::to_array<std::string_view>(
    {"alignas",  "alignof",   "and",     "asm",      "auto",     "bool",     "break",    "case",
     "catch",    "char",      "class",   "const",    "continue", "default",  "delete",   "do",
     "double",   "else",      "enum",    "explicit", "export",   "extern",   "false",    "float",
     "for",      "friend",    "goto",    "if",       "inline",   "int",      "linux",    "long",
     "mutable",  "namespace", "new",     "noexcept", "not",      "nullptr",  "operator", "or",
     "private",  "protected", "public",  "register", "requires", "restrict", "return",   "short",
     "signed",   "sizeof",    "static",  "struct",   "switch",   "template", "this",     "throw",
     "true",     "try",       "typedef", "typeid",   "typename", "typeof",   "union",    "unix",
     "unsigned", "using",     "virtual", "void",     "volatile", "while",    "xor"});

std::string Safe(const std::string& name) {
    return std::find(kTaken.begin(), kTaken.end(), name) == kTaken.end() ? name : name + "_";
}

std::string StructName(const Record& record) {
    return "struct paramgen_" +
           (&record == &ImageRecord() ? std::string("image") : SnakeCase(record.name));
}

std::string TypeName(const Member& member) {
    if (member.record != nullptr) {
        return StructName(*member.record);
    }
    switch (member.field->kind) {
        case FieldKind::kBool:
        case FieldKind::kUint32:
            return "uint32_t";
        case FieldKind::kUint8:
        case FieldKind::kBytes:
            return "uint8_t";
        case FieldKind::kInt16:
            return "int16_t";
        case FieldKind::kUint64:
            return "uint64_t";
        case FieldKind::kFloat:
            return "float";
        case FieldKind::kText:
            return "char";
        default:
            return "int32_t";
    }
}

std::string Brackets(std::uint32_t number) {
    return "[" + std::to_string(number) + "]";
}

/// "int32_t handles[4]".
std::string Declaration(const Member& member) {
    const FieldKind kind = member.field->kind;
    std::string text = TypeName(member) + " " + Safe(member.name);
    if (member.isArray) {
        text += Brackets(member.count);
    }
    if (member.record == nullptr && (kind == FieldKind::kText || kind == FieldKind::kBytes)) {
        text += Brackets(member.size);
    }
    return text;
}

/// What stands behind a member: description, unit, meaning of its numbers.
std::string Comment(const Member& member) {
    const FieldNotes& notes = member.field->notes;
    std::string text = notes.about == nullptr ? "" : notes.about;
    const auto add = [&text](const std::string& more) {
        text += (text.empty() ? "" : "; ") + more;
    };
    if (notes.unit != nullptr) {
        add(std::string("in ") + notes.unit);
    }
    if (notes.numbers != nullptr) {
        add(notes.numbers);
    }
    if (const NameTable* names = member.field->notes.names; names != nullptr) {
        add("enum paramgen_" + ListName(*names));
    }
    if (member.record == nullptr && member.field->kind == FieldKind::kText) {
        add("text, may lack its terminator");
    }
    return text.empty() ? "" : " /* " + text + " */";
}

std::string Assert(const std::string& name, const std::string& condition) {
    return "PARAMGEN_ASSERT(" + name + ", " + condition + ");\n";
}

std::string Struct(const Record& record) {
    const std::string name = StructName(record);
    std::string text = name + " {\n";
    std::string asserts;
    const std::string tag = name.substr(7);
    for (const Member& member : record.members) {
        text += "    " + Declaration(member) + ";" + Comment(member) + "\n";
        asserts += Assert(tag + "_" + member.name, "offsetof(" + name + ", " + Safe(member.name) +
                                                       ") == " + std::to_string(member.offset));
    }
    return text + "};\n" +
           Assert(tag + "_size", "sizeof(" + name + ") == " + std::to_string(record.size)) +
           asserts + "\n";
}

std::string Enum(const NameTable& names) {
    std::string text = "enum paramgen_" + ListName(names) + " {\n";
    const std::vector<std::string> all = layout::AllNames(names);
    for (const std::string& name : all) {
        text += "    PARAMGEN_" + name + " = " + std::to_string(*layout::NumberOf(names, name)) +
                (name == all.back() ? "\n" : ",\n");
    }
    return text + "};\n\n";
}

constexpr char kBegin[] = R"(#ifndef PARAMGEN_IMAGE_H
#define PARAMGEN_IMAGE_H

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#if defined(__BYTE_ORDER__) && defined(__ORDER_LITTLE_ENDIAN__)
#if __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "the image is little-endian, and its structs are those of a little-endian machine"
#endif
#endif

#if defined(__cplusplus)
#define PARAMGEN_ASSERT(name, condition) static_assert(condition, #name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define PARAMGEN_ASSERT(name, condition) _Static_assert(condition, #name)
#else
#define PARAMGEN_ASSERT(name, condition) typedef char name##_is_right[(condition) ? 1 : -1]
#endif

)";

constexpr char kEnd[] =
    R"(/* Copies the image out of `bytes`, of which there are `size` and which may lie at any address: 0; or
   -1 when they are too few, or are no image. What *image holds then is not specified. Bytes behind
   the image are ignored. */
static inline int paramgen_image_read(struct paramgen_image *image, const void *bytes, size_t size)
{
    if (!image || !bytes || size < PARAMGEN_IMAGE_SIZE) {
        return -1;
    }
    memcpy(image, bytes, PARAMGEN_IMAGE_SIZE);
    if (image->header.magic != PARAMGEN_IMAGE_MAGIC ||
        image->header.totalSize != PARAMGEN_IMAGE_SIZE ||
        image->tail.mark != PARAMGEN_IMAGE_TAIL) {
        return -1;
    }
    return 0;
}

#undef PARAMGEN_ASSERT
#endif
)";

std::string Define(const std::string& name, const std::string& value) {
    return "#define PARAMGEN_IMAGE_" + name + " " + value + "\n";
}

}  // namespace

std::string CHeader(const std::string& version) {
    std::string text = "/* The parameter image. Written by paramtool " + version +
                       "; do not edit. Padding is spelled out, no struct is packed. */\n" + kBegin;
    text += Define("SIZE", std::to_string(sizeof(ParamImage)) + "u");
    text += Define("MAGIC", std::to_string(kImageMagic) + "u");
    text += Define("TAIL", std::to_string(kTailMark) + "u") + "\n";
    for (const NameTable* names : NameLists()) {
        text += Enum(*names);
    }
    text += Assert("paramgen_float_size", "sizeof(float) == 4") + "\n";
    for (const Record* record : Records()) {
        text += Struct(*record);
    }
    return text + kEnd;
}

}  // namespace paramgen::manual
