// Handles, media modes and menus: values that name each other.

#include <algorithm>
#include <map>
#include <set>
#include <span>

#include "check/inspection.h"
#include "check/number_text.h"
#include "check/references.h"
#include "diagnostics/places.h"
#include "layout/key_pattern.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;

class ReferenceChecker {
public:
    explicit ReferenceChecker(Inspection* inspection)
        : inspection_(*inspection), references_(inspection->run()) {}

    void Run() {
        for (const HandleRule& rule : HandleRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                CheckHandle(rule, *given);
            }
        }
        CheckRepeatedHandles();
        CheckModes();
        CheckMenus();
        CheckBurstMenu();
        CheckLimits();
    }

private:
    /// Where a key that is read stands; `line` is null when it cannot be found.
    struct Found {
        const tree::FoundFile* file = nullptr;
        const tree::Line* line = nullptr;
    };

    Found Locate(const Given& given) const {
        const tree::Module* module = inspection_.product().FindModule(given.module);
        const tree::Line* line =
            module == nullptr ? nullptr : module->file->ini->Find(given.fullKey);
        return {.file = module == nullptr ? nullptr : module->file, .line = line};
    }

    Finding* Warn(RuleId id, const Given& given, std::string message) {
        const Found found = Locate(given);
        if (found.line == nullptr || found.line->kind != tree::LineKind::kValue ||
            inspection_.IsBad(*found.line)) {
            return nullptr;
        }
        const tree::Span part =
            found.line->value.Size() == 0 ? found.line->name : found.line->value;
        Finding* finding = inspection_.Warn(id, *found.file, *found.line, part, std::move(message));
        if (finding != nullptr) {
            finding->module = std::string(given.module);
        }
        return finding;
    }

    void AddNote(Finding* finding, const Given& given, std::string message) {
        const Found found = Locate(given);
        if (finding != nullptr && found.line != nullptr) {
            finding->notes.push_back(
                {.place = diagnostics::PlaceOf(*found.file, *found.line, found.line->value),
                 .message = std::move(message)});
        }
    }

    static std::string HandlesOf(const std::vector<const Target*>& targets) {
        std::set<std::int64_t> handles;
        for (const Target* target : targets) {
            if (target->isEnabled && target->handle != -1) {
                handles.insert(target->handle);
            }
        }
        std::string text;
        for (const std::int64_t handle : handles) {
            text += (text.empty() ? "" : ", ") + std::to_string(handle);
        }
        return text;
    }

    void CheckHandle(const HandleRule& rule, const Given& given) {
        const std::optional<std::int64_t> handle = References::NumberOf(given);
        if (!handle.has_value() || *handle == -1 || !references_.Counts(rule, given)) {
            return;
        }
        const std::vector<Target>& all = references_.Targets(rule.target, rule.targetModule);
        if (all.empty() && !IsThere(rule.targetModule)) {
            return;  // a lost module is told elsewhere
        }
        const Given* parent = references_.ParentOf(rule, given);
        if (parent != nullptr && unknown_.contains(parent)) {
            return;  // the parent has been told
        }
        const std::vector<const Target*> targets = references_.TargetsOf(rule, given);
        const auto has = [&](const Target* target) { return target->handle == *handle; };
        if (std::any_of(targets.begin(), targets.end(),
                        [&](const Target* target) { return has(target) && target->isEnabled; })) {
            return;
        }
        unknown_.insert(&given);
        if (IsOnUnreadLine(rule, *handle)) {
            return;  // that line is told
        }
        const std::string handles = HandlesOf(targets);
        Finding* finding =
            Warn(RuleId::kHandleUnknown, given,
                 std::string("no enabled ") + TargetRowOf(rule.target).name + " of " +
                     rule.targetModule + " has the handle " + std::to_string(*handle) +
                     (handles.empty() ? "" : "; there is " + handles));
        const auto disabled = std::find_if(targets.begin(), targets.end(), has);
        if (disabled != targets.end()) {
            AddNote(finding, *(*disabled)->given, "this one has it, and is not enabled");
        }
    }

    /// Whether a handle is that of a target which is written down, in a line that is not read.
    bool IsOnUnreadLine(const HandleRule& rule, std::int64_t handle) {
        const auto& modules = inspection_.product().modules();
        return std::any_of(modules.begin(), modules.end(), [&](const tree::Module& module) {
            return module.fate == tree::ModuleFate::kRead &&
                   layout::MatchesWildcards(rule.targetModule, module.name) &&
                   HandlesOnUnreadLines(rule.target, module).contains(handle);
        });
    }

    const std::set<std::int64_t>& HandlesOnUnreadLines(TargetKind kind,
                                                       const tree::Module& module) {
        const auto [place, isNew] = unread_.try_emplace({kind, module.name});
        if (isNew) {
            for (const tree::Line& line : module.file->ini->lines()) {
                const tree::IniFile& ini = *module.file->ini;
                const bool isUnread =
                    line.kind == tree::LineKind::kValue &&
                    IsHandleOf(kind, ini.SectionOf(line), ini.TextOf(line.name)) &&
                    IsToldAsUnread(module, line);
                const NumberText number =
                    isUnread ? ReadNumber(ini.TextOf(line.value)) : NumberText();
                if (number.isNumber) {
                    place->second.insert(number.value);
                }
            }
        }
        return place->second;
    }

    /// Whether a line does not count for a module, because it comes again or is not asked for, and
    /// whether such lines are told.
    bool IsToldAsUnread(const tree::Module& module, const tree::Line& line) const {
        const std::string key = module.file->ini->KeyOf(line);
        const bool isUnread = inspection_.FindAsked(module.name, key) == nullptr;
        return (line.isReplaced && inspection_.IsOn(RuleId::kDuplicateKey)) ||
               (isUnread && inspection_.IsOn(RuleId::kUnreadKey));
    }

    static bool IsHandleOf(TargetKind kind, std::string_view section, std::string_view key) {
        const std::span<const TargetRow> rows = TargetRows();
        return std::any_of(rows.begin(), rows.end(), [&](const TargetRow& row) {
            return row.kind == kind && layout::MatchesWildcards(row.key, key) &&
                   layout::MatchesWildcards(row.section, section);
        });
    }

    bool IsThere(const char* modules) const {
        const auto& listed = inspection_.product().modules();
        return std::any_of(listed.begin(), listed.end(), [&](const tree::Module& module) {
            return module.fate == tree::ModuleFate::kRead &&
                   layout::MatchesWildcards(modules, module.name);
        });
    }

    /// Whether one of these modules is listed, and not there.
    bool IsLost(const char* modules) const {
        const auto& listed = inspection_.product().modules();
        return std::any_of(listed.begin(), listed.end(), [&](const tree::Module& module) {
            return module.fate != tree::ModuleFate::kRead &&
                   layout::MatchesWildcards(modules, module.name);
        });
    }

    void CheckRepeatedHandles() {
        for (const TargetRow& row : TargetRows()) {
            const bool isFirstOfKind = &TargetRowOf(row.kind) == &row;
            if (isFirstOfKind) {
                CheckRepeated(references_.Targets(row.kind, "*"));
            }
        }
    }

    void CheckRepeated(const std::vector<Target>& targets) {
        std::map<std::string, const Target*> known;
        for (const Target& target : targets) {
            if (!target.isEnabled || target.handle == -1) {
                continue;
            }
            const std::string scope =
                std::string(target.given->module) + "/" +
                std::string(target.row->hasParent ? ParentSection(target.given->section) : "") +
                "/" + std::to_string(target.handle);
            const auto [place, isNew] = known.try_emplace(scope, &target);
            if (!isNew) {
                Finding* finding = Warn(RuleId::kHandleRepeated, *target.given,
                                        std::string("another ") + target.row->name +
                                            " has the handle " + std::to_string(target.handle));
                AddNote(finding, *place->second->given, "this one");
            }
        }
    }

    /// Whether a module that serves a mode does not say which, or says a wrong one: it may be meant
    /// to be any of those that are asked for.
    bool HasBadMode() const {
        const auto& listed = inspection_.product().modules();
        return std::any_of(listed.begin(), listed.end(), [&](const tree::Module& module) {
            const bool serves = module.fate == tree::ModuleFate::kRead &&
                                layout::MatchesWildcards(kModeModules, module.name);
            const tree::Line* line = serves ? module.file->ini->Find(kServedMode) : nullptr;
            return serves && (line == nullptr || inspection_.IsBad(*line));
        });
    }

    void TellNotServed(const Given& given, const std::map<std::string_view, const Given*>& served) {
        std::string modes;
        for (const auto& [mode, module] : served) {
            modes += (modes.empty() ? "; served are " : ", ") + std::string(mode);
        }
        notServed_.insert(&given);
        Warn(RuleId::kModeNotServed, given,
             "no cam0_mediamode module serves " + std::string(given.text) + modes);
    }

    void CheckModes() {
        std::map<std::string_view, const Given*> served;
        for (const Given* given : references_.Find(kModeModules, "common", "mediamode")) {
            const auto [place, isNew] = served.try_emplace(given->text, given);
            if (!isNew) {
                Finding* finding = Warn(RuleId::kModeRepeated, *given,
                                        std::string(place->second->module) + " serves " +
                                            std::string(given->text) + " as well");
                AddNote(finding, *place->second, "here");
            }
        }
        if (IsLost(kModeModules) || HasBadMode()) {
            return;  // it may be the one that serves a mode
        }
        for (const ModeRule& rule : ModeRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                if (!served.contains(given->text)) {
                    TellNotServed(*given, served);
                }
            }
        }
        for (const Given* given : references_.Find(kLensModules, "common", "mediamode")) {
            if (!served.contains(given->text)) {
                Warn(RuleId::kLdcUnused, *given,
                     "the calibration is not used: no cam0_mediamode module serves " +
                         std::string(given->text));
            }
        }
    }

    /// The values of a menu, in its order.
    std::vector<const Given*> ValuesOf(const char* menu) const {
        return references_.Find(kMenuModule, menu, "value*");
    }

    void CheckMenus() {
        for (const MenuRule& rule : MenuRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                CheckOffered(*given, rule.menu);
            }
        }
    }

    /// Whether a value of a menu is known to be wrong: it may be any.
    bool HasBadValue(const std::string& menu) const {
        const tree::Module* module = inspection_.product().FindModule(kMenuModule);
        if (module == nullptr) {
            return false;
        }
        const tree::IniFile& ini = *module->file->ini;
        return std::any_of(ini.lines().begin(), ini.lines().end(), [&](const tree::Line& line) {
            return line.kind == tree::LineKind::kValue && inspection_.IsBad(line) &&
                   tree::LowerCase(ini.SectionOf(line)) == tree::LowerCase(menu);
        });
    }

    /// Whether a menu has a value on a line that is not read.
    bool IsOnUnreadLine(const Given& given, const std::string& menu) const {
        const tree::Module* module = inspection_.product().FindModule(kMenuModule);
        if (module == nullptr) {
            return false;
        }
        const tree::IniFile& ini = *module->file->ini;
        return std::any_of(ini.lines().begin(), ini.lines().end(), [&](const tree::Line& line) {
            return line.kind == tree::LineKind::kValue && ini.TextOf(line.value) == given.text &&
                   layout::MatchesWildcards("value*", ini.TextOf(line.name)) &&
                   tree::LowerCase(ini.SectionOf(line)) == tree::LowerCase(menu) &&
                   IsToldAsUnread(*module, line);
        });
    }

    void CheckOffered(const Given& given, const std::string& menu) {
        if (notServed_.contains(&given)) {
            return;  // told already
        }
        const std::vector<const Given*> values = ValuesOf(menu.c_str());
        const NumberText number = ReadNumber(given.text);
        const bool isMixed = std::any_of(values.begin(), values.end(), [&](const Given* value) {
            return References::NumberOf(*value).has_value() != number.isNumber;
        });
        const bool isCut = number.isNumber && number.end != given.text.size();
        if (isMixed || (isCut && inspection_.IsOn(RuleId::kTrailingText))) {
            return;  // that is told
        }
        const bool isOffered = std::any_of(values.begin(), values.end(), [&](const Given* value) {
            return IsSame(given, *value);
        });
        if (values.empty() || isOffered || HasBadValue(menu) || IsOnUnreadLine(given, menu)) {
            return;
        }
        std::string texts;
        for (const Given* value : values) {
            texts += (texts.empty() ? "" : ", ") + std::string(value->text);
        }
        Warn(RuleId::kNotOffered, given,
             "the menu [" + menu + "] does not offer " + Quoted(given.text) + "; it has " + texts);
    }

    /// The kinds of bursts are offered for each media mode.
    void CheckBurstMenu() {
        const std::vector<const Given*> modes = ValuesOf("cam.0.burst.mediamode");
        for (const Given* type :
             references_.Find("workmode_photo", "phototype.?.burst", "burst_type")) {
            const Given* mode = references_.Beside(*type, "mediamode");
            for (const Given* offered : modes) {
                if (mode != nullptr && offered->text == mode->text) {
                    CheckOffered(*type, "cam.0.burst.type" + std::string(offered->key.substr(5)));
                }
            }
        }
    }

    void CheckLimits() {
        for (const LimitRule& rule : LimitRules()) {
            for (const Given* low : references_.Find(rule.module, rule.section, rule.low)) {
                const Given* high = references_.Beside(*low, rule.high);
                const auto least = References::NumberOf(*low);
                const auto most =
                    high == nullptr ? std::optional<std::int64_t>() : References::NumberOf(*high);
                if (least.has_value() && most.has_value() && *least > *most) {
                    Finding* finding = Warn(RuleId::kLimitsCrossed, *low,
                                            std::string(low->key) + " is above " + rule.high +
                                                ", which is " + std::string(high->text));
                    AddNote(finding, *high, "here");
                }
            }
        }
    }

    Inspection& inspection_;
    References references_;
    std::set<const Given*> unknown_;  ///< handles that no target has
    std::map<std::pair<TargetKind, std::string>, std::set<std::int64_t>>
        unread_;                        ///< handles on lines that are not read, by module
    std::set<const Given*> notServed_;  ///< media modes that have been told not to be served
};

}  // namespace

void CheckReferences(Inspection* inspection) {
    if (inspection->IsComplete()) {
        ReferenceChecker(inspection).Run();
    }
}

}  // namespace paramgen::check
