#include "image/dump.h"

#include "output/shown_text.h"
#include "output/table.h"

namespace paramgen::image {
namespace {

/// Bytes for people: of a long text the first ones, and how many follow.
std::string ShortRaw(const std::string& raw) {
    constexpr std::size_t kLongest = 8;
    if (raw.size() <= kLongest) {
        return raw;
    }
    return raw.substr(0, kLongest) + "+" + std::to_string((raw.size() - kLongest) / 2);
}

std::string JoinedFlags(const Entry& entry) {
    std::string text;
    for (const Flag flag : entry.flags) {
        text += (text.empty() ? "" : " ") + std::string(NameOf(flag));
    }
    return text;
}

/// A value for people: texts stand in quotes, so that blanks can be seen.
std::string ShownValue(const Entry& entry) {
    return entry.value->Kind() == FieldKind::kText ? "\"" + output::Shown(entry.text) + "\""
                                                   : output::Shown(entry.text);
}

/// A field of a CSV line.
std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string field = "\"";
    for (const char c : text) {
        field += c == '"' ? "\"\"" : std::string(1, c);
    }
    return field + "\"";
}

std::string CsvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields) {
        line += (&field == &fields.front() ? "" : ",") + CsvField(field);
    }
    return line + "\r\n";
}

output::Json JsonEntry(const Image& image, const Entry& entry) {
    const layout::Value& value = *entry.value;
    output::Json json = {{"offset", value.offset},
                         {"size", value.size},
                         {"member", value.Member()},
                         {"source", layout::SourceName(value.Source())}};
    if (value.HasKey()) {
        json["module"] = value.module;
        json["section"] = value.section;
        json["key"] = value.key;
    }
    json["type"] = layout::KindName(value.Kind());
    json["raw"] = entry.raw;
    if (value.Kind() != FieldKind::kBytes) {
        json["value"] = ValueJson(image, value);
    }
    if (!entry.name.empty()) {
        json["name"] = entry.name;
    }
    json["flags"] = output::Json::array();
    for (const Flag flag : entry.flags) {
        json["flags"].push_back(NameOf(flag));
    }
    return json;
}

}  // namespace

std::string KeyOf(const layout::Value& value) {
    return value.HasKey() ? value.module + "/" + value.section + ":" + value.key : "";
}

std::string TextDump(const std::vector<Entry>& entries) {
    // Values come before the long names, and seldom need more room: then all but the ends of the
    // longest names can be seen in 120 columns.
    constexpr std::size_t kValueColumn = 4;
    constexpr std::size_t kKeyColumn = 5;
    output::Table table;
    table.Limit(kValueColumn, 16);
    table.Limit(kKeyColumn, 42);
    table.Add({"OFFSET", "SIZE", "BYTES", "TYPE", "VALUE", "KEY", "MEMBER"});
    for (const Entry& entry : entries) {
        const layout::Value& value = *entry.value;
        const std::string flags = JoinedFlags(entry);
        std::string shown = ShownValue(entry);
        shown += entry.name.empty() ? "" : " " + entry.name;
        shown += flags.empty() ? "" : " [" + flags + "]";
        table.Add({std::to_string(value.offset), std::to_string(value.size), ShortRaw(entry.raw),
                   layout::KindName(value.Kind()), shown, value.HasKey() ? KeyOf(value) : "-",
                   value.Member()});
    }
    return table.Text();
}

std::string CsvDump(const std::vector<Entry>& entries) {
    std::string text = CsvLine({"offset", "size", "member", "source", "module", "section", "key",
                                "type", "raw", "value", "name", "flags"});
    for (const Entry& entry : entries) {
        const layout::Value& value = *entry.value;
        text += CsvLine({std::to_string(value.offset), std::to_string(value.size), value.Member(),
                         layout::SourceName(value.Source()), value.module, value.section, value.key,
                         layout::KindName(value.Kind()), entry.raw, output::ValidUtf8(entry.text),
                         entry.name, JoinedFlags(entry)});
    }
    return text;
}

output::Json JsonDump(const Image& image, const std::vector<Entry>& entries) {
    output::Json list = output::Json::array();
    for (const Entry& entry : entries) {
        list.push_back(JsonEntry(image, entry));
    }
    return {{"schema", 1}, {"size", image.size()}, {"entries", std::move(list)}};
}

}  // namespace paramgen::image
