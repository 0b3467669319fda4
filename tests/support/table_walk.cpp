#include "support/table_walk.h"

#include <algorithm>
#include <cstring>

namespace paramgen::testing {
namespace {

/// Where the walk stands.
struct Place {
    std::string module;
    std::string prefix;
    std::vector<unsigned> numbers;
    std::size_t offset;
};

/// Fills in a template: "%s" is `text`; each "%d" or "%u" takes one of the last numbers, in order.
std::string Expand(const std::string& pattern, const std::string& text,
                   const std::vector<unsigned>& numbers) {
    const auto placeholders =
        std::count(pattern.begin(), pattern.end(), '%') - (pattern.find("%s") != std::string::npos);
    std::size_t next = numbers.size() - static_cast<std::size_t>(placeholders);
    std::string result;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            result += pattern[i];
            continue;
        }
        ++i;
        result += pattern[i] == 's' ? text : std::to_string(numbers.at(next++));
    }
    return result;
}

void Walk(const RecordTable& table, const Place& place, std::vector<WalkedField>* found);

void WalkElement(const Field& field, const std::string& node, const Place& place,
                 std::vector<WalkedField>* found) {
    Place inner = place;
    if (field.HasModule()) {
        // Of the modules of a search the walk takes the one numbered 0.
        const std::vector<unsigned> zeros(std::strlen(field.module));
        inner.module = Expand(field.module, "",
                              field.extra == FieldExtra::kSearchedModule ? zeros : place.numbers);
    }
    std::string under = node;
    if (field.node != nullptr) {
        under = field.ownNode ? field.node : Expand(field.node, node, place.numbers);
    }
    if (field.source == FieldSource::kTable) {
        inner.prefix = under;
        Walk(*field.table, inner, found);
        return;
    }
    std::string key;
    std::string label;
    if (field.key != nullptr) {
        const std::string item = Expand(field.key, "", place.numbers);
        key = under + ":" + item;
        const bool full = field.fullLabel || field.source == FieldSource::kQuery;
        label = field.extra == FieldExtra::kLabel ? field.label : full ? key : item;
    }
    found->push_back({&field, inner.module, key, label, place.offset});
}

void Walk(const RecordTable& table, const Place& place, std::vector<WalkedField>* found) {
    const std::string node =
        table.node == nullptr ? place.prefix : Expand(table.node, place.prefix, place.numbers);
    for (const Field& field : table.fields) {
        for (unsigned i = 0; i < field.count; ++i) {
            Place element = place;
            element.offset += field.offset + std::size_t{i} * field.size;
            if (field.isArray) {
                element.numbers.push_back(i);
            }
            WalkElement(field, node, element, found);
        }
    }
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

}  // namespace

std::vector<WalkedField> WalkTable(const RecordTable& table, const std::string& module,
                                   const std::string& prefix, const std::vector<unsigned>& numbers,
                                   std::size_t offset) {
    std::vector<WalkedField> found;
    Walk(table, {module, prefix, numbers, offset}, &found);
    return found;
}

std::string Describe(const WalkedField& walked) {
    const Field& field = *walked.field;
    std::string text = std::to_string(walked.offset) + " " + std::to_string(field.size) + " " +
                       KindName(field.kind) + " " + SourceName(field.source);
    const bool hasKey = field.key != nullptr;
    const bool hasDefault =
        field.source == FieldSource::kConstant || field.source == FieldSource::kCopy ||
        (hasKey && field.kind != FieldKind::kText && field.kind != FieldKind::kName);
    text += hasKey ? " " + walked.module + " " + walked.key : " - -";
    text += hasDefault ? " " + std::to_string(field.Number()) : " -";
    text += hasKey ? " " + walked.label : " -";
    return text;
}

std::vector<std::string> DescribeTable(const RecordTable& table, const std::string& module,
                                       const std::string& prefix,
                                       const std::vector<unsigned>& numbers) {
    std::vector<std::string> lines;
    for (const WalkedField& walked : WalkTable(table, module, prefix, numbers)) {
        lines.push_back(Describe(walked));
    }
    return lines;
}

}  // namespace paramgen::testing
