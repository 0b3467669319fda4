#include "layout/format_table.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "layout/layout.h"

namespace paramgen::layout {
namespace {

/// A line of the table: the values that it stands for, and their modules.
struct Line {
    std::vector<const Value*> values;
    std::vector<std::string> modules;
};

bool IsIn(std::string_view part, const std::string& member) {
    return member.starts_with(part) && (member.size() == part.size() ||
                                        member[part.size()] == '.' || member[part.size()] == '[');
}

/// Values share a line when they have the same row, and the same section and key apart from
/// indices.
using LineKey = std::tuple<const Field*, std::string, std::string>;

std::vector<Line> LinesOf(std::string_view part) {
    std::vector<Line> lines;
    std::map<LineKey, std::size_t> numbers;
    for (const Value& value : Values()) {
        if (!IsIn(part, value.Member())) {
            continue;
        }
        const auto [number, isNew] = numbers.try_emplace(
            {value.field, PatternOf(value).section, PatternOf(value).key}, lines.size());
        if (isNew) {
            lines.emplace_back();
        }
        Line& line = lines[number->second];
        line.values.push_back(&value);
        const std::string& module = PatternOf(value).module;
        if (value.HasKey() &&
            std::find(line.modules.begin(), line.modules.end(), module) == line.modules.end()) {
            line.modules.push_back(module);
        }
    }
    return lines;
}

std::string Code(const std::string& text) {
    return "`" + text + "`";
}

std::string Content(const Value& value) {
    std::string text = value.About();
    if (!value.context.empty() && value.context != text) {
        text = value.context + ": " + text;
    }
    if (!value.Numbers().empty()) {
        text += ": " + value.Numbers();
    }
    if (!value.Unit().empty()) {
        text += " [" + value.Unit() + "]";
    }
    return text;
}

/// The condition under which elements of the innermost array are read, in words; empty when they
/// are always read.
std::string When(const Value& value) {
    for (auto condition = value.conditions.rbegin(); condition != value.conditions.rend();
         ++condition) {
        const Value* count = condition->places == 0 ? nullptr : ValueAt(condition->count);
        if (condition->kind == ConditionKind::kCounted) {
            return "; as many as " + Code(PatternOf(*count).section + ":" + PatternOf(*count).key);
        }
        if (condition->kind == ConditionKind::kLeading) {
            return "; while those before have their key";
        }
    }
    return "";
}

std::string Default(const Value& value) {
    return value.HasDefault() ? std::to_string(value.Default()) : "";
}

std::string Modules(const Line& line) {
    std::string text;
    for (const std::string& module : line.modules) {
        text += (text.empty() ? "" : ", ") + Code(module);
    }
    return text;
}

std::string Row(const Line& line) {
    const Value& value = *line.values.front();
    const std::string count =
        line.values.size() == 1 ? "" : std::to_string(line.values.size()) + " × ";
    const std::string key =
        value.HasKey() ? Code(PatternOf(value).section + ":" + PatternOf(value).key) : "";
    return "| " + std::to_string(value.offset) + " | " + count + std::to_string(value.size) +
           " | " + KindName(value.Kind()) + " | " + key + " | " + Modules(line) + " | " +
           Default(value) + " | " + Content(value) + When(value) + " |\n";
}

}  // namespace

std::string FormatTable(std::string_view part) {
    std::string table =
        "| offset | size | type | key | module | default | content |\n"
        "|---|---|---|---|---|---|---|\n";
    for (const Line& line : LinesOf(part)) {
        table += Row(line);
    }
    return table;
}

}  // namespace paramgen::layout
