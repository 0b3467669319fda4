#include "check/check.h"

#include <algorithm>
#include <filesystem>

#include "check/inspection.h"
#include "diagnostics/places.h"
#include "diagnostics/suppression.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using diagnostics::Severity;

bool IsOneOf(const diagnostics::Rule& rule, const std::vector<std::string>& names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& name) { return IsNamed(rule, name); });
}

/// Modules that are listed and not in the image.
std::vector<std::string> Lacking(const tree::Product& product) {
    std::vector<std::string> lacking;
    for (const tree::Module& module : product.modules()) {
        const bool isLeftOut =
            module.fate != tree::ModuleFate::kRead && !tree::EndsRun(module.fate);
        if (isLeftOut) {
            lacking.push_back(module.name);
        }
    }
    return lacking;
}

/// The verdict on a directory that is none.
Verdict NoDirectory(const Inspection& inspection) {
    Finding finding;
    finding.id = RuleId::kEntryMissing;
    finding.severity = Severity::kError;
    finding.place = diagnostics::PlaceOf(inspection.entry());
    finding.message = "there is no such directory, or it cannot be entered";
    return {.findings = {finding}, .lacking = {}};
}

/// The files that were read, for the loaders.
compile::FileTexts TextsOf(const tree::Product& product) {
    compile::FileTexts texts;
    const auto add = [&texts](const std::string& path, const tree::FoundFile& file) {
        texts[path] =
            file.isReadable ? std::optional<std::string_view>(file.ini->bytes()) : std::nullopt;
    };
    add(product.entryFile(), product.entry());
    for (const auto& [path, file] : product.opened()) {
        add(path, *file);
    }
    return texts;
}

void CheckAll(compile::Session* session, Inspection* inspection) {
    FindErrors(session, inspection);
    CheckEntry(inspection);
    if (inspection->entry().ini != nullptr) {
        CheckLines(inspection);
        CheckValues(inspection);
        CheckStructure(inspection);
        CheckCounts(inspection);
        CheckReferences(inspection);
        CheckMissing(inspection);
    }
}

}  // namespace

bool Choice::IsOn(const diagnostics::Rule& rule) const {
    return !IsOneOf(rule, disabled) && (!rule.isOff || IsOneOf(rule, enabled));
}

Verdict Check(const std::string& directory, const Choice& choice) {
    Inspection inspection(directory, choice);
    try {
        compile::Session session(directory, TextsOf(inspection.product()));
        CheckAll(&session, &inspection);
    } catch (const std::system_error&) {
        return NoDirectory(inspection);
    }
    std::vector<Finding>& findings = inspection.findings();
    diagnostics::ApplySuppressions(
        inspection.product(), [&](const diagnostics::Rule& rule) { return choice.IsOn(rule); },
        &findings);
    std::erase_if(findings, [&](const Finding& finding) {
        return finding.severity != Severity::kError &&
               !choice.IsOn(diagnostics::RuleOf(finding.id));
    });
    diagnostics::Sort(&findings);
    return {.findings = std::move(findings), .lacking = Lacking(inspection.product())};
}

}  // namespace paramgen::check
