// The entry file, and what it lists.

#include <algorithm>
#include <filesystem>
#include <map>

#include "check/inspection.h"
#include "check/lost_module.h"
#include "check/number_text.h"
#include "check/value_text.h"
#include "diagnostics/places.h"
#include "diagnostics/suggestion.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using diagnostics::Severity;
using tree::EntryFate;
using tree::Line;
using tree::LineKind;
using tree::ModuleFate;

constexpr std::string_view kModuleSection = "module";
constexpr std::string_view kNumberedKey = "module";

/// The number in "moduleN"; 0 when the key is none.
std::int64_t NumberOfKey(std::string_view key) {
    if (!key.starts_with(kNumberedKey)) {
        return 0;
    }
    const std::string_view digits = key.substr(kNumberedKey.size());
    const NumberText number = ReadNumber(digits);
    const bool isPlain = number.isNumber && number.end == digits.size() && digits[0] != '0' &&
                         digits[0] != '+' && digits[0] != '-';
    return isPlain ? number.value : 0;
}

/// What is wrong with the entry file.
class EntryChecker {
public:
    explicit EntryChecker(Inspection* inspection)
        : inspection_(*inspection),
          product_(inspection->product()),
          file_(inspection->entry()),
          ini_(file_.ini.get()) {}

    void Run() {
        if (StopsAtEntry()) {
            TellStop();
        }
        if (ini_ == nullptr || !ini_->IsAccepted()) {
            return;
        }
        TellLostModules();
        CheckCount();
        CheckKeys();
        TellUncounted();
        CheckUnused();
        if (inspection_.IsOn(RuleId::kUnlistedFile)) {
            FindUnlistedFiles();
        }
    }

private:
    bool StopsAtEntry() const {
        const auto& stop = inspection_.run().stop;
        return stop.has_value() && stop->at == compile::Stop::At::kEntry;
    }

    /// Tells why the program stops in the entry file.
    void TellStop() {
        switch (product_.entryFate()) {
            case EntryFate::kMissing:
                TellError(RuleId::kEntryMissing, nullptr,
                          "there is no entry file, or it cannot be read");
                break;
            case EntryFate::kRefused:
                TellRefusedFile(&inspection_, file_, "", Severity::kError);
                break;
            case EntryFate::kPathTooLong:
                TellError(RuleId::kPathTooLong, nullptr,
                          "where the entry file lies has more than 255 bytes");
                break;
            case EntryFate::kNoCount: {
                const Line* line = ini_->Find("module:module_num");
                const bool isThere = line != nullptr && line->kind == LineKind::kValue;
                TellError(RuleId::kModuleCount, line,
                          isThere ? "module_num counts no modules"
                          : file_.isDirectory
                              ? "it is a directory, and so counts no modules"
                              : "there is no module_num in [module], which counts the modules");
                break;
            }
            case EntryFate::kRead:
                TellStopAtModule();
                break;
        }
    }

    void TellStopAtModule() {
        if (product_.modules().empty()) {
            TellError(RuleId::kModuleCount, nullptr, "no module can be listed");
            return;
        }
        const tree::Module& module = product_.modules().back();
        const Line* named = inspection_.LineOfModule(module.number);
        const std::string number = std::to_string(module.number);
        if (module.fate == ModuleFate::kNoName) {
            TellError(RuleId::kModuleNameMissing, ini_->Find("module:module_num"),
                      "module_num counts module" + number + ", which has no name");
        } else if (module.fate == ModuleFate::kRepeated) {
            Finding* finding =
                TellError(RuleId::kModuleRepeated, named, Quoted(module.name) + " is listed twice");
            const tree::Module* first = product_.FindModule(module.name);
            const Line* line = first == nullptr ? nullptr : inspection_.LineOfModule(first->number);
            if (finding != nullptr && line != nullptr) {
                finding->notes.push_back({.place = diagnostics::PlaceOf(file_, *line, line->value),
                                          .message = "first here"});
            }
        } else {
            const Line* line = ini_->Find(module.name + ":cfg_filename");
            const bool isThere = line != nullptr && line->kind == LineKind::kValue;
            TellError(RuleId::kModuleIncomplete, isThere ? line : named,
                      isThere ? "cfg_filename of " + Quoted(module.name) + " is empty"
                              : "[" + module.name + "] has no cfg_filename");
        }
    }

    Finding* TellError(RuleId id, const Line* line, std::string message) {
        Finding finding;
        finding.id = id;
        finding.severity = Severity::kError;
        finding.message = std::move(message);
        finding.place = line == nullptr
                            ? diagnostics::PlaceOf(file_)
                            : diagnostics::PlaceOf(
                                  file_, *line, line->value.Size() == 0 ? line->name : line->value);
        return inspection_.Add(std::move(finding), file_);
    }

    /// Modules that the image has to do without, though the program does not stop for it.
    void TellLostModules() {
        for (const tree::Module& module : product_.modules()) {
            const bool isKnown = IsKnownModule(module.name);
            const bool isDirectory = module.fate == ModuleFate::kRead && module.file->isDirectory;
            if (isKnown && isDirectory) {
                const Line* line = ini_->Find(module.name + ":cfg_filename");
                inspection_.Warn(RuleId::kModuleUnreadable, file_, *line, line->value,
                                 "the file of " + Quoted(module.name) + ", " +
                                     Quoted(module.file->shown) +
                                     ", is a directory, which reads as an empty file");
            } else if (isKnown && module.fate != ModuleFate::kRead && !tree::EndsRun(module.fate)) {
                TellLostModule(&inspection_, module.name, Severity::kWarning);
            }
        }
    }

    static bool IsKnownModule(std::string_view name) {
        const std::span<const std::string> known = layout::Modules();
        return std::find(known.begin(), known.end(), name) != known.end();
    }

    void CheckCount() {
        const Line* line = ini_->Find("module:module_num");
        if (line == nullptr || line->kind != LineKind::kValue) {
            return;
        }
        const std::string_view text = ini_->TextOf(line->value);
        CheckText(&inspection_, file_, *line);
        if (text.size() > 1 && text[0] == '0' && text[1] != 'x' && text[1] != 'X') {
            inspection_.Warn(RuleId::kOctal, file_, *line, line->value,
                             Quoted(text) + " begins with 0 and is read as octal, that is " +
                                 std::to_string(product_.moduleCount()));
            isOctal_ = true;
            return;
        }
        const NumberText number = ReadNumber(text);
        if (!number.isHexadecimal && number.isNumber && number.end != text.size()) {
            inspection_.Warn(RuleId::kTrailingText, file_, *line, line->value,
                             Quoted(text.substr(number.end)) + " behind the number is dropped");
        }
    }

    void CheckKeys() {
        std::map<std::string, std::int32_t> sections;  // of listed modules, in lower case
        for (const tree::Module& module : product_.modules()) {
            sections.emplace(tree::LowerCase(module.name), module.number);
        }
        for (const Line& line : ini_->lines()) {
            if (line.kind == LineKind::kValue && !line.isReplaced &&
                tree::LowerCase(ini_->SectionOf(line)) == kModuleSection &&
                NumberOfKey(tree::LowerCase(ini_->TextOf(line.name))) > product_.moduleCount()) {
                sections.emplace(tree::LowerCase(ini_->TextOf(line.value)), 0);
            }
        }
        std::set<std::uint32_t> told;  // headers of unknown sections
        for (const Line& line : ini_->lines()) {
            if (line.kind == LineKind::kValue && !line.isReplaced && !inspection_.IsBad(line)) {
                CheckKey(line, sections, &told);
            }
        }
    }

    void CheckKey(const Line& line, const std::map<std::string, std::int32_t>& sections,
                  std::set<std::uint32_t>* told) {
        const std::string section = tree::LowerCase(ini_->SectionOf(line));
        const std::string key = tree::LowerCase(ini_->TextOf(line.name));
        if (section == kModuleSection) {
            CheckModuleKey(line, key);
        } else if (StopsAtEntry()) {
            return;  // which modules are listed is not known to the end
        } else if (sections.contains(section)) {
            CheckPlaceKey(line, key);
        } else if (line.section == tree::kNoLine || told->insert(line.section).second) {
            TellUnknownSection(line, sections);
        }
    }

    void CheckModuleKey(const Line& line, const std::string& key) {
        const std::int64_t number = NumberOfKey(key);
        if (key == "module_num") {
            return;
        }
        if (number > product_.moduleCount()) {
            uncounted_.push_back(&line);
        } else if (number == 0) {
            Finding* finding =
                inspection_.Warn(RuleId::kUnknownKey, file_, line, line.name,
                                 "unknown key " + Quoted(ini_->TextOf(line.name)) + " in [module]");
            Suggest(finding, key, {"module_num", "module" + Digits(key)});
        } else {
            CheckText(&inspection_, file_, line);
        }
    }

    /// Modules beyond module_num are one finding. Where that is octal, it is the cause.
    void TellUncounted() {
        if (uncounted_.empty() || isOctal_ || StopsAtEntry()) {
            return;
        }
        const Line& first = *uncounted_.front();
        const std::size_t more = uncounted_.size() - 1;
        inspection_.Warn(RuleId::kModuleUncounted, file_, first, first.name,
                         Quoted(ini_->TextOf(first.value)) +
                             (more == 0 ? " is" : " and " + Counted(more, "more module") + " are") +
                             " not read: module_num is " + std::to_string(product_.moduleCount()));
    }

    static std::string Digits(std::string_view key) {
        std::string digits;
        for (const char c : key) {
            const bool isDigit = c >= '0' && c <= '9' && (c != '0' || !digits.empty());
            digits += isDigit ? std::string(1, c) : "";
        }
        return digits.empty() ? "1" : digits;
    }

    static void Suggest(Finding* finding, std::string_view name,
                        const std::vector<std::string>& candidates) {
        if (finding != nullptr) {
            finding->suggestion = diagnostics::Nearest(name, candidates);
        }
    }

    void CheckPlaceKey(const Line& line, const std::string& key) {
        if (key != "path" && key != "cfg_filename") {
            Finding* finding =
                inspection_.Warn(RuleId::kUnknownKey, file_, line, line.name,
                                 "unknown key " + Quoted(ini_->TextOf(line.name)) + " in [" +
                                     std::string(ini_->SectionOf(line)) + "]");
            Suggest(finding, key, {"path", "cfg_filename"});
            return;
        }
        CheckText(&inspection_, file_, line);
        const std::string_view text = ini_->TextOf(line.value);
        if (key == "path" && !text.empty() && text.find('/') == std::string_view::npos) {
            Finding* finding =
                inspection_.Warn(RuleId::kPathIgnored, file_, line, line.value,
                                 "a path without '/' is not taken; the entry file's directory is");
            if (finding != nullptr) {
                finding->suggestion = "./" + std::string(text);
            }
        }
    }

    void TellUnknownSection(const Line& line, const std::map<std::string, std::int32_t>& sections) {
        if (line.section == tree::kNoLine) {
            inspection_.Warn(
                RuleId::kUnknownKey, file_, line, line.name,
                "the key " + Quoted(ini_->TextOf(line.name)) + " stands before the first section");
            return;
        }
        const Line& header = ini_->lines()[line.section];
        const std::string name(ini_->TextOf(header.name));
        if (AddToMissing(name, header)) {
            return;
        }
        Finding* finding = inspection_.Warn(RuleId::kUnknownSection, file_, header, header.name,
                                            "no module " + Quoted(name) + " is listed in [module]");
        std::vector<std::string> names = {std::string(kModuleSection)};
        for (const auto& [known, number] : sections) {
            names.push_back(known);
        }
        Suggest(finding, name, names);
    }

    /// The section of a module that is missing in [module] belongs to that finding.
    bool AddToMissing(const std::string& name, const Line& header) {
        for (Finding& finding : inspection_.findings()) {
            if (finding.id == RuleId::kModuleMissing && finding.module == name) {
                finding.notes.push_back({.place = diagnostics::PlaceOf(file_, header, header.name),
                                         .message = "it has a section here"});
                return true;
            }
        }
        return false;
    }

    /// Reports listed modules that no loader reads.
    void CheckUnused() {
        if (!inspection_.IsComplete()) {
            return;
        }
        for (const tree::Module& module : product_.modules()) {
            const Line* line = inspection_.LineOfModule(module.number);
            if (line == nullptr || inspection_.IsModuleAsked(module.name)) {
                continue;
            }
            Finding* finding = inspection_.Warn(
                RuleId::kUnusedModule, file_, *line, line->value,
                IsKnownModule(module.name)
                    ? "nothing in this tree asks for the module " + Quoted(module.name)
                    : "no part of the image has a module " + Quoted(module.name));
            if (finding == nullptr) {
                continue;
            }
            finding->module = module.name;
            if (!IsKnownModule(module.name)) {
                Suggest(finding, module.name, UnlistedModules());
            }
        }
    }

    std::vector<std::string> UnlistedModules() const {
        std::vector<std::string> names;
        for (const std::string& name : layout::Modules()) {
            if (product_.FindModule(name) == nullptr) {
                names.push_back(name);
            }
        }
        return names;
    }

    /// INI files in the tree that no module has.
    void FindUnlistedFiles() {
        std::set<std::string> listed = {product_.entry().shown};
        for (const auto& file : product_.files()) {
            listed.insert(std::filesystem::path(file->shown).lexically_normal().string());
        }
        std::vector<std::string> unlisted;
        std::error_code error;
        for (std::filesystem::recursive_directory_iterator it(product_.directory(), error), end;
             !error && it != end; it.increment(error)) {
            const std::filesystem::path path =
                std::filesystem::relative(it->path(), product_.directory(), error);
            const std::string shown =
                std::filesystem::path(product_.Shown(path.string())).lexically_normal().string();
            if (path.extension() == ".ini" && !listed.contains(shown) &&
                path != std::filesystem::path(tree::kEntryName)) {
                unlisted.push_back(path.string());
            }
        }
        std::sort(unlisted.begin(), unlisted.end());
        for (const std::string& path : unlisted) {
            Finding finding;
            finding.id = RuleId::kUnlistedFile;
            finding.place.file = product_.Shown(path);
            finding.place.path = path;
            finding.message = "no module has this file";
            inspection_.Add(std::move(finding), file_);
        }
    }

    Inspection& inspection_;
    const tree::Product& product_;
    const tree::FoundFile& file_;
    const tree::IniFile* ini_;
    bool isOctal_ = false;
    std::vector<const Line*> uncounted_;  ///< that name modules beyond module_num
};

}  // namespace

void CheckEntry(Inspection* inspection) {
    EntryChecker(inspection).Run();
}

}  // namespace paramgen::check
