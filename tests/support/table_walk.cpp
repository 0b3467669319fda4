#include "support/table_walk.h"

#include "layout/walk.h"

namespace paramgen::testing {

std::vector<WalkedField> WalkTable(const RecordTable& table, const std::string& module,
                                   const std::string& prefix, const std::vector<unsigned>& numbers,
                                   std::size_t offset) {
    std::vector<WalkedField> found;
    for (const layout::Value& value : layout::Walk(table, {module, prefix, numbers})) {
        const std::string key = value.HasKey() ? value.section + ":" + value.key : "";
        const std::string from = value.HasKey() ? value.modules.front() : module;
        found.push_back(
            {value.field, from, key, value.Label(), offset + value.offset, value.Member()});
    }
    return found;
}

std::string Describe(const WalkedField& walked) {
    const Field& field = *walked.field;
    std::string text = std::to_string(walked.offset) + " " + std::to_string(field.size) + " " +
                       layout::KindName(field.kind) + " " + layout::SourceName(field.source);
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
