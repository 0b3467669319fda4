// Errors stop the program. A run shows one of them; in the next run the bad key is treated as
// absent, or the missing module as empty.

#include <algorithm>

#include "check/inspection.h"
#include "check/known_names.h"
#include "check/lost_module.h"
#include "check/number_text.h"
#include "diagnostics/places.h"
#include "diagnostics/suggestion.h"

namespace paramgen::check {
namespace {

using compile::Stop;
using diagnostics::Finding;
using diagnostics::RuleId;
using diagnostics::Severity;

Finding Error(RuleId id, std::string message) {
    Finding finding;
    finding.id = id;
    finding.severity = Severity::kError;
    finding.message = std::move(message);
    return finding;
}

/// The kind of value that a key gives; `kBytes` when no table knows the key.
FieldKind KindOf(const layout::Key* key) {
    if (key == nullptr) {
        return FieldKind::kBytes;
    }
    return key->values.empty() ? FieldKind::kName : key->values.front()->Kind();
}

/// The largest count that is no error; 0 when the key counts nothing that has such a limit.
std::uint32_t LargestCount(const layout::Key* key) {
    std::uint32_t largest = 0;
    if (key == nullptr || key->values.empty()) {
        return 0;
    }
    const std::uint32_t offset = key->values.front()->offset;
    for (const layout::Value& value : layout::Values()) {
        for (const layout::Condition& condition : value.conditions) {
            const bool counts =
                condition.kind == layout::ConditionKind::kCounted && condition.count == offset;
            largest = counts ? std::max(largest, condition.largest) : largest;
        }
    }
    return largest;
}

/// Tells why the program refuses the value of a key.
Finding ErrorOfValue(const layout::Key* key, std::string_view name, std::string_view text) {
    const FieldKind kind = KindOf(key);
    if (kind == FieldKind::kText) {
        const std::size_t most = key->values.front()->size - 1;
        return Error(RuleId::kTextTooLong, "the text has " + Counted(text.size(), "byte") +
                                               "; at most " + std::to_string(most) + " fit");
    }
    if (kind == FieldKind::kName) {
        Finding finding = Error(RuleId::kUnknownName, "there is no name " + Quoted(text));
        const std::vector<std::string> names = NamesOf(key);
        finding.suggestion = diagnostics::Nearest(text, names);
        if (finding.suggestion.empty()) {
            finding.suggestion = diagnostics::OnlyEnding(text, names);
        }
        return finding;
    }
    const NumberText number = ReadNumber(text);
    if (tree::LowerCase(name).starts_with("componentmask")) {
        return Error(RuleId::kMaskNegative,
                     "a component mask must not be negative, as " + Quoted(text) + " is");
    }
    const std::uint32_t largest = LargestCount(key);
    if (number.isInRange && largest != 0 && kind != FieldKind::kInt16) {
        return Error(RuleId::kCountTooLarge, Quoted(text) + " is too large a count; at most " +
                                                 std::to_string(largest) + " can be read");
    }
    const char* range = kind == FieldKind::kInt16 ? "-32768 to 32767" : "-2147483648 to 2147483647";
    return Error(RuleId::kNumberOutOfRange,
                 Quoted(text) + " does not fit; numbers go from " + range + " here");
}

/// Runs until nothing stops the run.
class ErrorFinder {
public:
    ErrorFinder(compile::Session* session, Inspection* inspection)
        : session_(session), inspection_(inspection) {}

    void Run() {
        compile::Compilation run = session_->Run();
        if (TakeStop(run)) {
            while (TakeStop(session_->Run(pretence_, {.answers = false, .log = false}))) {
            }
            run = session_->Run(pretence_);
        }
        inspection_->SetRun(std::move(run));
        ExplainLimits();
    }

private:
    /// Tells the error that stopped a run. Returns false when none did, or none can be found behind
    /// it.
    bool TakeStop(const compile::Compilation& run) {
        if (!run.stop.has_value()) {
            return false;
        }
        const Stop& stop = *run.stop;
        switch (stop.at) {
            case Stop::At::kEntry:
                return false;  // told by the checks of the entry file
            case Stop::At::kModule:
                TellModule(*inspection_, stop.module);
                return pretence_.emptyModules.insert(stop.module).second;
            case Stop::At::kKey:
                TellKey(stop.module, stop.key);
                return pretence_.absentKeys.emplace(stop.module, stop.key).second;
        }
        return false;
    }

    void TellModule(Inspection& inspection, const std::string& name) {
        TellLostModule(&inspection, name, Severity::kError);
    }

    void TellKey(const std::string& moduleName, const std::string& fullKey) {
        const tree::Module* module = inspection_->product().FindModule(moduleName);
        const tree::Line* line = module == nullptr ? nullptr : module->file->ini->Find(fullKey);
        if (line == nullptr) {
            Finding finding = Error(RuleId::kNumberOutOfRange, "the program stops at " + fullKey);
            finding.place = diagnostics::PlaceOf(inspection_->entry());
            finding.module = moduleName;
            inspection_->Add(std::move(finding), inspection_->entry());
            return;
        }
        const tree::FoundFile& file = *module->file;
        const std::string_view text = file.ini->TextOf(line->value);
        const layout::Key* key =
            layout::FindKey(moduleName, SectionPart(fullKey), KeyPart(fullKey));
        Finding finding = ErrorOfValue(key, KeyPart(fullKey), text);
        finding.place =
            diagnostics::PlaceOf(file, *line, line->value.Size() == 0 ? line->name : line->value);
        finding.module = moduleName;
        finding.section = SectionPart(fullKey);
        finding.key = KeyPart(fullKey);
        const bool isLimit = finding.id == RuleId::kNumberOutOfRange &&
                             ReadNumber(text).isInRange && KindOf(key) != FieldKind::kInt16;
        inspection_->MarkBad(*line);
        if (key != nullptr) {
            inspection_->AddRefused(*key);
        }
        if (inspection_->Add(std::move(finding), file) != nullptr && isLimit) {
            atLimit_.push_back(inspection_->findings().size() - 1);
        }
    }

    /// Explains numbers at a limit, which are refused only because an earlier number was out of
    /// range.
    void ExplainLimits() {
        const std::vector<compile::Answer>& answers = inspection_->run().answers;
        const auto after = std::find_if(answers.begin(), answers.end(),
                                        [](const auto& answer) { return answer.afterRangeError; });
        if (after == answers.begin() || after == answers.end()) {
            return;
        }
        const compile::Answer& earlier = *(after - 1);
        const tree::Module* module = inspection_->product().FindModule(earlier.module);
        const tree::Line* line = module == nullptr ? nullptr : module->file->ini->Find(earlier.key);
        for (const std::size_t at : atLimit_) {
            Finding& finding = inspection_->findings()[at];
            finding.message =
                "a number at a limit of 32 bits is refused behind one that is beyond "
                "what can be held";
            if (line != nullptr) {
                finding.notes.push_back(
                    {.place = diagnostics::PlaceOf(*module->file, *line, line->value),
                     .message = "this one"});
            }
        }
    }

    compile::Session* session_;
    Inspection* inspection_;
    compile::Pretence pretence_;
    std::vector<std::size_t> atLimit_;  ///< findings about numbers at a limit
};

}  // namespace

void FindErrors(compile::Session* session, Inspection* inspection) {
    ErrorFinder(session, inspection).Run();
}

}  // namespace paramgen::check
