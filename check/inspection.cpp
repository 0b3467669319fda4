#include "check/inspection.h"

#include <algorithm>

#include "confaccess/any_case.h"
#include "diagnostics/places.h"

namespace paramgen::check {

using diagnostics::Finding;
using diagnostics::RuleId;
using diagnostics::Severity;

std::size_t AskedHash::operator()(const AskedName& name) const {
    return std::size_t{HashInAnyCase(name.key)} * 31 + HashOf(name.module);
}

bool AskedSame::operator()(const AskedName& a, const AskedName& b) const {
    return a.key.size() == b.key.size() && a.module == b.module &&
           SameInAnyCase(a.key.data(), b.key.data(), a.key.size());
}

std::string_view SectionPart(std::string_view fullKey) {
    return fullKey.substr(0, fullKey.rfind(':'));
}

std::string_view KeyPart(std::string_view fullKey) {
    return fullKey.substr(fullKey.rfind(':') + 1);
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t kMost = 60;
    const bool isLong = text.size() > kMost;
    return "'" + std::string(text.substr(0, kMost)) + (isLong ? "...'" : "'");
}

std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void Inspection::SetRun(compile::Compilation run) {
    asked_.clear();
    run_ = std::move(run);
    asked_.reserve(run_.answers.size());
    for (const compile::Answer& answer : run_.answers) {
        const auto [place, isNew] = asked_.try_emplace(AskedName{answer.module, answer.key});
        if (isNew) {
            place->second.answer = &answer;
            place->second.key =
                layout::FindKey(answer.module, SectionPart(answer.key), KeyPart(answer.key));
        }
    }
    modules_ = {run_.modules.begin(), run_.modules.end()};
}

const Asked* Inspection::FindAsked(std::string_view module, std::string_view key) const {
    const auto found = asked_.find(AskedName{module, key});
    return found == asked_.end() ? nullptr : &found->second;
}

std::vector<const tree::Module*> Inspection::ModulesOf(const tree::FoundFile& file) const {
    std::vector<const tree::Module*> modules;
    for (const tree::Module& module : product_.modules()) {
        if (module.file == &file && module.fate == tree::ModuleFate::kRead) {
            modules.push_back(&module);
        }
    }
    return modules;
}

const tree::Line* Inspection::LineOfModule(std::int32_t number) const {
    return entry().ini == nullptr ? nullptr
                                  : entry().ini->Find("module:module" + std::to_string(number));
}

Finding* Inspection::Add(Finding finding, const tree::FoundFile& file) {
    if (finding.severity != Severity::kError && !IsOn(finding.id)) {
        return nullptr;
    }
    const bool isNew =
        known_
            .emplace(finding.id, finding.place.file, finding.place.line, finding.place.column,
                     finding.place.line == 0 || finding.id == RuleId::kModuleMissing
                         ? finding.module + finding.section
                         : "")
            .second;
    if (!isNew) {
        return nullptr;
    }
    finding.fileOrder = diagnostics::OrderOf(product_, file);
    findings_.push_back(std::move(finding));
    return &findings_.back();
}

Finding* Inspection::Warn(RuleId id, const tree::FoundFile& file, const tree::Line& line,
                          tree::Span part, std::string message) {
    Finding finding;
    finding.id = id;
    finding.place = diagnostics::PlaceOf(file, line, part);
    finding.message = std::move(message);
    if (line.kind == tree::LineKind::kValue) {
        finding.section = file.ini->SectionOf(line);
        finding.key = file.ini->TextOf(line.name);
    } else if (line.kind == tree::LineKind::kSection) {
        finding.section = file.ini->TextOf(line.name);
    }
    const std::vector<const tree::Module*> modules = ModulesOf(file);
    if (modules.size() == 1) {
        finding.module = modules.front()->name;
    }
    return Add(std::move(finding), file);
}

}  // namespace paramgen::check
