// Keys that are missing, so that their values are defaults. This check is off by default.

#include <map>

#include "check/inspection.h"
#include "diagnostics/places.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;

/// Tells of the missing keys of one section: at its header, or at the file when it is not there.
void Tell(Inspection* inspection, const tree::Module& module, const std::string& section,
          const std::vector<std::string>& keys) {
    std::string names;
    for (const std::string& key : keys) {
        names += (names.empty() ? "" : ", ") + key;
    }
    Finding finding;
    finding.id = RuleId::kMissingKey;
    finding.module = module.name;
    finding.section = section;
    finding.key = keys.size() == 1 ? keys.front() : "";
    finding.message = "[" + section + "] leaves " + names + " to " +
                      (keys.size() == 1 ? "its default" : "their defaults");
    const tree::Line* header = module.file->ini->Find(section);
    const bool isHeader = header != nullptr && header->kind == tree::LineKind::kSection;
    finding.place = isHeader ? diagnostics::PlaceOf(*module.file, *header, header->name)
                             : diagnostics::PlaceOf(*module.file);
    inspection->Add(std::move(finding), *module.file);
}

}  // namespace

void CheckMissing(Inspection* inspection) {
    if (!inspection->IsOn(RuleId::kMissingKey)) {
        return;
    }
    for (const tree::Module& module : inspection->product().modules()) {
        if (module.fate != tree::ModuleFate::kRead) {
            continue;
        }
        std::map<std::string, std::vector<std::string>> missing;
        std::set<std::string> known;
        for (const compile::Answer& answer : inspection->run().answers) {
            const Asked* asked = inspection->FindAsked(answer.module, answer.key);
            const bool isMissing = answer.module == module.name && asked->key != nullptr &&
                                   !asked->answer->text.has_value() &&
                                   module.file->ini->Find(answer.key) == nullptr;
            if (isMissing && known.insert(tree::LowerCase(answer.key)).second) {
                missing[std::string(SectionPart(answer.key))].emplace_back(KeyPart(answer.key));
            }
        }
        for (const auto& [section, keys] : missing) {
            Tell(inspection, module, section, keys);
        }
    }
}

}  // namespace paramgen::check
