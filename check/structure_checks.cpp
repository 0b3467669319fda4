// Keys and sections that nothing reads, and those that come twice.

#include <algorithm>
#include <iterator>

#include "check/inspection.h"
#include "check/known_keys.h"
#include "check/lost_module.h"
#include "check/unread_reason.h"
#include "diagnostics/places.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using tree::Line;
using tree::LineKind;

/// How a key is used.
enum class Fate : std::uint8_t {
    kRead,
    kUnread,       ///< a table knows it, but it is not read in this tree
    kNoPlace,      ///< known except for its numbers, for which the image has no place
    kUnknown,      ///< the section is known, the key is not
    kUnknownHere,  ///< not even the section is known
    kSilent,       ///< documented to have no effect
};

/// The keys below one header, up to the next.
struct Block {
    const Line* header = nullptr;        ///< null: before the first section
    std::vector<const Line*> keys;       ///< those that count
    std::vector<Fate> fates;             ///< theirs
    std::vector<const Line*> replacing;  ///< those that replace a key of before
};

/// Checks one file.
class FileChecker {
public:
    FileChecker(Inspection* inspection, const tree::FoundFile& file)
        : inspection_(*inspection), file_(file), ini_(*file.ini) {
        for (const tree::Module* module : inspection->ModulesOf(file)) {
            if (inspection->IsModuleAsked(module->name)) {
                modules_.push_back(module->name);
            }
        }
    }

    void Run() {
        std::vector<Block> blocks = Blocks();
        for (const Block& block : blocks) {
            CheckDuplicates(block);
        }
        CheckHidden();
        if (modules_.empty() || !inspection_.IsComplete() || !CheckEmpty()) {
            return;
        }
        for (Block& block : blocks) {
            std::transform(block.keys.begin(), block.keys.end(), std::back_inserter(block.fates),
                           [this](const Line* line) { return FateOf(*line); });
        }
        FindForeignModule(blocks);
        for (const Block& block : blocks) {
            CheckBlock(block);
        }
    }

    /// Finds out whether most unknown sections are those of one other module: the file is not the
    /// one that was meant.
    void FindForeignModule(const std::vector<Block>& blocks) {
        std::vector<std::string> keys;
        std::size_t sections = 0;
        for (const Block& block : blocks) {
            const std::size_t before = keys.size();
            for (std::size_t i = 0; i < block.keys.size(); ++i) {
                if (block.fates[i] == Fate::kUnknownHere) {
                    keys.push_back(ini_.KeyOf(*block.keys[i]));
                }
            }
            sections += keys.size() > before ? 1 : 0;
        }
        foreign_ = sections > 1 ? LikelyModule(keys, "") : "";
    }

private:
    std::vector<Block> Blocks() const {
        std::vector<Block> blocks(1);
        for (const Line& line : ini_.lines()) {
            if (line.kind == LineKind::kSection) {
                blocks.emplace_back();
                blocks.back().header = &line;
            } else if (line.kind == LineKind::kValue && !inspection_.IsBad(line)) {
                if (!line.isReplaced) {
                    blocks.back().keys.push_back(&line);
                }
                if (line.former != tree::kNoLine &&
                    ini_.lines()[line.former].kind == LineKind::kValue) {
                    blocks.back().replacing.push_back(&line);
                }
            }
        }
        return blocks;
    }

    const Line& FormerOf(const Line& line) const { return ini_.lines()[line.former]; }

    IsThere InThisFile() const {
        return [this](const std::string& name) { return ini_.Find(name) != nullptr; };
    }

    /// Keys that replace those of one block before are one finding: the section was pasted twice.
    void CheckDuplicates(const Block& block) {
        const bool isPasted =
            block.header != nullptr && block.replacing.size() > 1 &&
            std::all_of(block.replacing.begin(), block.replacing.end(), [&](const Line* line) {
                return FormerOf(*line).section == FormerOf(*block.replacing.front()).section &&
                       FormerOf(*line).section != line->section;
            });
        if (isPasted) {
            TellPasted(block);
            return;
        }
        for (const Line* line : block.replacing) {
            const Line& former = FormerOf(*line);
            Finding* finding = inspection_.Warn(
                RuleId::kDuplicateKey, file_, *line, line->name,
                "the key " + Quoted(ini_.TextOf(line->name)) + " comes twice; this one counts");
            AddNote(finding, former, "this one does not");
        }
    }

    void TellPasted(const Block& block) {
        const Line& header = *block.header;
        Finding* finding = inspection_.Warn(
            RuleId::kDuplicateKey, file_, header, header.name,
            "[" + std::string(ini_.TextOf(header.name)) + "] comes twice; " +
                Counted(block.replacing.size(), "key") + " of it " +
                (block.replacing.size() == 1 ? "replaces" : "replace") + " those of before");
        const std::uint32_t former = FormerOf(*block.replacing.front()).section;
        pastedOver_.insert(former);
        AddNote(finding,
                former == tree::kNoLine ? FormerOf(*block.replacing.front()) : ini_.lines()[former],
                "they do not count here");
        if (finding != nullptr) {
            finding->suggestion = NextSection(modules_, ini_.TextOf(header.name), InThisFile());
        }
    }

    void AddNote(Finding* finding, const Line& line, const char* message) {
        if (finding != nullptr) {
            finding->notes.push_back(
                {.place = diagnostics::PlaceOf(file_, line, line.name), .message = message});
        }
    }

    void CheckHidden() {
        for (const Line& line : ini_.lines()) {
            if (line.kind != LineKind::kSection || line.former == tree::kNoLine ||
                FormerOf(line).kind != LineKind::kValue) {
                continue;
            }
            const Line& key = FormerOf(line);
            Finding* finding =
                inspection_.Warn(RuleId::kKeyHiddenBySection, file_, key, key.name,
                                 "the key counts as absent: a section below has its name");
            AddNote(finding, line, "this section");
        }
    }

    bool IsAsked(const std::string& module, const Line& line) const {
        const tree::FullKey name(ini_.SectionOf(line), ini_.TextOf(line.name));
        return inspection_.FindAsked(module, name.View()) != nullptr;
    }

    std::vector<std::string> KeysOfAllLines() const {
        std::vector<std::string> keys;
        for (const Line& line : ini_.lines()) {
            if (line.kind == LineKind::kValue) {
                keys.push_back(ini_.KeyOf(line));
            }
        }
        return keys;
    }

    /// Tells of modules that read nothing of the file. Returns false when none of them does.
    bool CheckEmpty() {
        bool isRead = false;
        for (const std::string& module : modules_) {
            const bool isReadHere =
                std::any_of(ini_.lines().begin(), ini_.lines().end(), [&](const Line& line) {
                    return line.kind == LineKind::kValue && IsAsked(module, line);
                });
            if (isReadHere) {
                isRead = true;
                continue;
            }
            const std::vector<std::string> keys = KeysOfAllLines();
            const bool isMistyped = IsMistyped(module, keys);
            isRead = isRead || isMistyped;
            if (!isMistyped && !file_.isDirectory && !IsUtf16(ini_.bytes())) {
                TellEmpty(module, keys);
            }
        }
        return isRead;
    }

    /// Whether keys of which a module reads none were meant for it all the same: they are in its
    /// sections, and not those of another. Each of them is then told.
    static bool IsMistyped(const std::string& module, const std::vector<std::string>& keys) {
        const bool isInSection = std::any_of(keys.begin(), keys.end(), [&](const std::string& key) {
            return KnowsSection(module, SectionPart(key)) &&
                   layout::FindKey(module, SectionPart(key), KeyPart(key)) == nullptr;
        });
        return isInSection && LikelyModule(keys, module).empty();
    }

    void TellEmpty(const std::string& module, const std::vector<std::string>& keys) {
        Finding finding;
        finding.id = RuleId::kEmptyModule;
        finding.place = diagnostics::PlaceOf(file_);
        finding.module = module;
        finding.message = keys.empty() ? "the file of " + Quoted(module) + " has no keys"
                                       : "none of the " + Counted(keys.size(), "key") +
                                             " here is read for " + Quoted(module);
        const std::string likely = LikelyModule(keys, module);
        if (!likely.empty()) {
            finding.message += "; they are those of " + Quoted(likely);
        }
        inspection_.Add(std::move(finding), file_);
    }

    Fate FateOf(const Line& line) const {
        const std::string_view section = ini_.SectionOf(line);
        const std::string_view key = ini_.TextOf(line.name);
        Fate fate = Fate::kUnknownHere;
        for (const std::string& module : modules_) {
            if (IsWithoutEffect(module, section)) {
                return Fate::kSilent;
            }
            if (IsAsked(module, line)) {
                return Fate::kRead;
            }
            if (layout::FindKey(module, section, key) != nullptr) {
                fate = Fate::kUnread;
            } else if (fate != Fate::kUnread && KnowsButForNumbers(module, section, key)) {
                fate = Fate::kNoPlace;
            } else if (fate == Fate::kUnknownHere && KnowsSection(module, section)) {
                fate = Fate::kUnknown;
            }
        }
        return fate;
    }

    void CheckBlock(const Block& block) {
        if (block.keys.empty()) {
            CheckHeaderAlone(block);
            return;
        }
        std::vector<Fate> fates = block.fates;
        const bool isReplaced = pastedOver_.contains(block.keys.front()->section);
        for (std::size_t i = 0; i < fates.size(); ++i) {
            const Line& line = *block.keys[i];
            const bool isTold =
                fates[i] == Fate::kUnread &&
                (isReplaced || HasWrongCount(inspection_, modules_, ini_.SectionOf(line),
                                             ini_.TextOf(line.name)));
            fates[i] = isTold ? Fate::kSilent : fates[i];
        }
        const auto areAll = [&](Fate fate) {
            return std::all_of(fates.begin(), fates.end(), [=](Fate each) { return each == fate; });
        };
        const bool isOneFate = block.header != nullptr && block.keys.size() > 1;
        const bool isUnknownSection = block.header != nullptr && areAll(Fate::kUnknownHere);
        if (isUnknownSection) {
            TellUnknownSection(block);
        } else if (isOneFate && (areAll(Fate::kUnread) || areAll(Fate::kNoPlace))) {
            TellUnreadSection(block, fates.front());
        } else {
            for (std::size_t i = 0; i < fates.size(); ++i) {
                CheckKey(*block.keys[i], fates[i]);
            }
        }
    }

    /// Reports a section without keys when its name is unknown.
    void CheckHeaderAlone(const Block& block) {
        const bool hidesKey = block.header != nullptr && block.header->former != tree::kNoLine &&
                              FormerOf(*block.header).kind == LineKind::kValue;
        if (block.header == nullptr || block.header->isBare || hidesKey) {
            return;
        }
        const std::string_view name = ini_.TextOf(block.header->name);
        const bool isKnown = std::any_of(modules_.begin(), modules_.end(), [&](const auto& module) {
            return KnowsSection(module, name) || IsWithoutEffect(module, name);
        });
        const auto next = block.header + 1;
        const bool hasKeys =
            next < ini_.lines().data() + ini_.lines().size() && next->kind == LineKind::kValue;
        if (!isKnown && !hasKeys) {
            TellUnknownSection(block);
        }
    }

    void TellUnknownSection(const Block& block) {
        const std::string name(ini_.TextOf(block.header->name));
        if (!foreign_.empty() && KnowsSection(foreign_, name)) {
            TellForeignModule(block);
            return;
        }
        std::vector<std::string> keys;
        for (const Line* line : block.keys) {
            keys.emplace_back(ini_.TextOf(line->name));
        }
        Finding* finding = inspection_.Warn(
            RuleId::kUnknownSection, file_, *block.header, block.header->name,
            "unknown section [" + name + "]" +
                (keys.empty() ? ""
                              : "; its " + Counted(keys.size(), "key") +
                                    (keys.size() == 1 ? " is" : " are") + " not read"));
        if (finding != nullptr) {
            finding->suggestion = LikelySection(modules_, name, keys, InThisFile());
        }
    }

    void TellForeignModule(const Block& block) {
        if (!isForeignTold_) {
            inspection_.Warn(RuleId::kUnknownSection, file_, *block.header, block.header->name,
                             "from here on, sections are those of " + Quoted(foreign_) +
                                 ", and not read for " + Quoted(modules_.front()) +
                                 "; are two files swapped?");
            MarkForeign();
        }
        isForeignTold_ = true;
    }

    /// The other module's sections are told: what they say is not this module's, either.
    void MarkForeign() {
        for (const Line& line : ini_.lines()) {
            if (line.kind == LineKind::kValue && KnowsSection(foreign_, ini_.SectionOf(line))) {
                inspection_.MarkBad(line);
            }
        }
    }

    void TellUnreadSection(const Block& block, Fate fate) {
        const Line& first = *block.keys.front();
        inspection_.Warn(RuleId::kUnreadKey, file_, *block.header, block.header->name,
                         "the " + Counted(block.keys.size(), "key") + " of [" +
                             std::string(ini_.TextOf(block.header->name)) +
                             "] are not read: " + ReasonOf(first, fate));
    }

    std::string ReasonOf(const Line& line, Fate fate) const {
        if (fate == Fate::kNoPlace) {
            return "the image has no place with this number";
        }
        return UnreadReason(inspection_, modules_, ini_.SectionOf(line), ini_.TextOf(line.name));
    }

    void CheckKey(const Line& line, Fate fate) {
        const std::string name(ini_.TextOf(line.name));
        const std::string section(ini_.SectionOf(line));
        Finding* finding = nullptr;
        switch (fate) {
            case Fate::kUnread:
            case Fate::kNoPlace:
                finding = inspection_.Warn(RuleId::kUnreadKey, file_, line, line.name,
                                           Quoted(name) + " is not read: " + ReasonOf(line, fate));
                break;
            case Fate::kUnknown:
            case Fate::kUnknownHere:
                finding = inspection_.Warn(
                    RuleId::kUnknownKey, file_, line, line.name,
                    "unknown key " + Quoted(name) +
                        (section.empty() ? " before the first section" : " in [" + section + "]"));
                break;
            default:
                break;
        }
        if (finding != nullptr && fate != Fate::kUnread) {
            finding->suggestion = LikelyKey(modules_, section, name, InThisFile());
        }
    }

    Inspection& inspection_;
    const tree::FoundFile& file_;
    const tree::IniFile& ini_;
    std::vector<std::string> modules_;  ///< those that have the file and are asked for
    std::string foreign_;               ///< the module whose sections most unknown ones are
    bool isForeignTold_ = false;
    std::set<std::uint32_t> pastedOver_;  ///< headers of sections that come again
};

}  // namespace

void CheckStructure(Inspection* inspection) {
    if (inspection->entry().ini != nullptr && inspection->entry().ini->IsAccepted()) {
        FileChecker(inspection, inspection->entry()).Run();
    }
    for (const auto& file : inspection->product().files()) {
        if (file->isReadable && file->ini->IsAccepted()) {
            FileChecker(inspection, *file).Run();
        }
    }
}

}  // namespace paramgen::check
