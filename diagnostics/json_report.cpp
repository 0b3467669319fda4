#include "diagnostics/report.h"

namespace paramgen::diagnostics {
namespace {

using output::Json;
using output::JsonText;

void AddPlace(const Place& place, Json* json) {
    (*json)["file"] = JsonText(place.file);
    if (place.line != 0) {
        (*json)["line"] = place.line;
        (*json)["column"] = place.column;
        (*json)["endColumn"] = place.endColumn;
    }
}

void AddText(const char* name, const std::string& text, Json* json) {
    if (!text.empty()) {
        (*json)[name] = JsonText(text);
    }
}

Json NoteJson(const Note& note) {
    Json json;
    AddPlace(note.place, &json);
    json["message"] = JsonText(note.message);
    return json;
}

Json FindingJson(const Finding& finding) {
    Json json;
    json["id"] = RuleOf(finding.id).name;
    json["group"] = RuleOf(finding.id).group;
    json["severity"] = NameOf(finding.severity);
    AddPlace(finding.place, &json);
    json["message"] = JsonText(finding.message);
    AddText("suggestion", finding.suggestion, &json);
    AddText("module", finding.module, &json);
    AddText("section", finding.section, &json);
    AddText("key", finding.key, &json);
    for (const Note& note : finding.notes) {
        json["notes"].push_back(NoteJson(note));
    }
    return json;
}

}  // namespace

Json JsonReport(const std::vector<Finding>& findings) {
    Json json;
    json["schema"] = 1;
    json["findings"] = Json::array();
    for (const Finding& finding : findings) {
        json["findings"].push_back(FindingJson(finding));
    }
    const Counts counts = Count(findings);
    json["errors"] = counts.errors;
    json["warnings"] = counts.warnings;
    return json;
}

}  // namespace paramgen::diagnostics
