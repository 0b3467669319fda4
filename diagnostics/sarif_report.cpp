#include <algorithm>
#include <cstdio>
#include <map>

#include "diagnostics/report.h"
#include "output/shown_text.h"

namespace paramgen::diagnostics {
namespace {

using output::Json;
using output::JsonText;

/// A path as a relative reference or, when it is absolute, as a file URI.
std::string UriOf(const std::string& path) {
    std::string uri = path.starts_with('/') ? "file://" : "";
    for (const char c : path) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' ||
                             c == '~' || c == '/';
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "%%%02X",
                      static_cast<unsigned>(static_cast<unsigned char>(c)));
        uri += isPlain ? std::string(1, c) : escaped;
    }
    return uri;
}

/// Texts in which no part is taken for a link.
std::string WithoutLinks(std::string_view text) {
    std::string plain;
    for (const char c : output::ValidUtf8(text)) {
        plain += c == '(' && plain.ends_with(']') ? " (" : std::string(1, c);
    }
    return plain;
}

Json TextJson(std::string_view text) {
    return {{"text", JsonText(text)}};
}

Json LocationJson(const Place& place) {
    const Columns columns = InCharacters(place);
    const std::uint32_t line = std::max<std::uint32_t>(place.line, 1);
    Json location;
    location["artifactLocation"]["uri"] = UriOf(place.file);
    location["region"] = {{"startLine", line},
                          {"startColumn", columns.begin},
                          {"endLine", line},
                          {"endColumn", columns.end}};
    return {{"physicalLocation", location}};
}

Json RuleJson(const Rule& rule) {
    Json json;
    json["id"] = rule.name;
    json["shortDescription"] = TextJson(rule.summary);
    json["fullDescription"] = TextJson(rule.help);
    json["help"] = TextJson(rule.help);
    json["defaultConfiguration"] = {{"level", "warning"}};
    json["properties"]["tags"] = Json::array({rule.group});
    return json;
}

/// Fingerprints of findings: of what they say, and how often the same has come before.
class Fingerprints {
public:
    std::string Of(const Finding& finding) {
        const std::string hash = HashOf(finding.place.path + '\0' + Identity(finding));
        return hash + ":" + std::to_string(++seen_[hash]);
    }

private:
    std::map<std::string, int> seen_;
};

Json ResultJson(const Finding& finding, Fingerprints* fingerprints) {
    std::string message = WithoutLinks(FullMessage(finding));
    Json related = Json::array();
    for (const Note& note : finding.notes) {
        const std::size_t id = related.size() + 1;
        message += "; [see here](" + std::to_string(id) + "): " + WithoutLinks(note.message);
        Json location = {{"id", id}};
        location.update(LocationJson(note.place));
        location["message"] = TextJson(note.message);
        related.push_back(location);
    }
    Json json;
    json["ruleId"] = RuleOf(finding.id).name;
    json["ruleIndex"] = static_cast<int>(finding.id);
    json["level"] = NameOf(finding.severity);
    json["message"] = TextJson(message);
    json["locations"] = Json::array({LocationJson(finding.place)});
    if (!related.empty()) {
        json["relatedLocations"] = related;
    }
    json["partialFingerprints"]["primaryLocationLineHash"] = fingerprints->Of(finding);
    return json;
}

}  // namespace

Columns InCharacters(const Place& place) {
    if (place.line == 0) {
        return {.begin = 1, .end = 1};
    }
    const std::string_view source = place.source;
    const auto count = [&](std::uint32_t column) {
        return output::CountCharacters(source.substr(0, column - 1)) + 1;
    };
    return {.begin = count(place.column), .end = count(place.endColumn)};
}

Json SarifReport(const std::vector<Finding>& findings, std::string_view version,
                 std::string_view homepage) {
    Json driver;
    driver["name"] = "paramtool";
    driver["version"] = version;
    if (!homepage.empty()) {
        driver["informationUri"] = homepage;
    }
    driver["rules"] = Json::array();
    for (const Rule& rule : Rules()) {
        driver["rules"].push_back(RuleJson(rule));
    }
    Json run;
    run["tool"]["driver"] = driver;
    run["columnKind"] = "unicodeCodePoints";
    run["results"] = Json::array();
    Fingerprints fingerprints;
    for (const Finding& finding : findings) {
        run["results"].push_back(ResultJson(finding, &fingerprints));
    }
    Json json;
    json["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
    json["version"] = "2.1.0";
    json["runs"] = Json::array({run});
    return json;
}

}  // namespace paramgen::diagnostics
