#include "paramtool/known_findings.h"

#include <filesystem>

#include "output/json.h"
#include "output/result.h"
#include "tree/product.h"

namespace paramgen::paramtool {
namespace {

using diagnostics::Finding;

/// A finding as JSON holds it.
Finding Parse(const output::Json& json) {
    const auto text = [&](const char* name) { return json.value(name, std::string()); };
    Finding finding;
    const diagnostics::Rule* rule = diagnostics::FindRule(text("id"));
    if (rule == nullptr) {
        throw output::UserError("unknown finding");
    }
    finding.id = rule->id;
    finding.place.file = text("file");
    finding.message = text("message");
    finding.module = text("module");
    finding.section = text("section");
    finding.key = text("key");
    return finding;
}

/// What a finding says, as JSON holds it.
std::string ValidIdentity(const Finding& finding) {
    return output::ValidUtf8(Identity(finding));
}

bool EndsWithPath(const std::string& file, const std::string& path) {
    return file == path || file.ends_with("/" + path);
}

}  // namespace

KnownFindings KnownFindings::Load(const std::string& treeOrFile, const check::Choice& choice) {
    KnownFindings known;
    std::error_code error;
    if (std::filesystem::is_directory(treeOrFile, error)) {
        for (const Finding& finding : check::Check(treeOrFile, choice).findings) {
            known.files_.emplace(ValidIdentity(finding), finding.place.path);
        }
        return known;
    }
    std::string bytes;
    if (!tree::ReadFile(treeOrFile, &bytes)) {
        throw output::UserError("cannot read " + output::Shown(treeOrFile));
    }
    try {
        const output::Json json = output::Json::parse(bytes);
        for (const output::Json& each : json.at("findings")) {
            const Finding finding = Parse(each);
            known.files_.emplace(ValidIdentity(finding), finding.place.file);
        }
    } catch (const std::exception&) {
        throw output::UserError(
            output::Shown(treeOrFile) +
            " is neither a tree nor what 'paramtool check --format=json' writes");
    }
    return known;
}

std::size_t KnownFindings::Remove(std::vector<Finding>* findings) {
    std::size_t errors = 0;
    std::erase_if(*findings, [&](const Finding& finding) {
        const auto [first, last] = files_.equal_range(ValidIdentity(finding));
        for (auto it = first; it != last; ++it) {
            if (EndsWithPath(it->second, finding.place.path)) {
                files_.erase(it);
                errors += finding.severity == diagnostics::Severity::kError ? 1 : 0;
                return true;
            }
        }
        return false;
    });
    return errors;
}

}  // namespace paramgen::paramtool
