#include "tree/edits.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "tree/edit.h"
#include "tree/lines.h"

namespace paramgen::tree {
namespace {

/// By key in lower case.
using Changes = std::map<std::string, const KeyChange*>;

Changes ByKey(const std::vector<KeyChange>& changes) {
    Changes all;
    for (const KeyChange& change : changes) {
        all[LowerCase(change.key)] = &change;
    }
    return all;
}

/// Other text in place of a part of a file.
struct Splice {
    Span part;
    std::string text;
};

/// Changes of one file, as splices.
class Splices {
public:
    explicit Splices(const IniFile& file) : file_(file) {
        for (const Line& line : file.lines()) {
            if (line.kind == LineKind::kSection && !line.isBare) {
                section_ = &last_[file.KeyOf(line)];
            }
            if (section_ != nullptr &&
                (line.kind == LineKind::kSection || line.kind == LineKind::kValue)) {
                *section_ = &line;
            }
        }
    }

    /// Returns false when this change is none for a splice.
    bool Add(const KeyChange& change) {
        const Line* line = file_.Find(change.key);
        const bool isThere = line != nullptr && line->kind == LineKind::kValue;
        if (!change.value) {
            return !isThere;
        }
        if (!isThere) {
            return AddNew(change);
        }
        std::optional<ChangedPart> changed = ChangedValue(file_, *line, *change.value);
        if (changed) {
            splices_.push_back({changed->part, std::move(changed->text)});
        }
        return changed.has_value();
    }

    /// The file's bytes with all splices. Those for one place come in the order of `Add`.
    std::string Done() {
        std::stable_sort(splices_.begin(), splices_.end(), [](const Splice& a, const Splice& b) {
            return a.part.begin < b.part.begin;
        });
        const std::string& bytes = file_.bytes();
        std::string text;
        std::size_t at = 0;
        for (const Splice& splice : splices_) {
            text += bytes.substr(at, splice.part.begin - at) + splice.text;
            at = splice.part.end;
        }
        return text + bytes.substr(at);
    }

private:
    /// A key goes to the end of its section.
    bool AddNew(const KeyChange& change) {
        const std::size_t colon = change.key.rfind(':');
        const auto last = last_.find(LowerCase(change.key.substr(0, colon)));
        const std::vector<std::string> spellings = Spellings(*change.value);
        if (last == last_.end() || spellings.empty()) {
            return false;
        }
        const Line& before = *last->second;
        const std::uint32_t at = NextLine(file_.bytes(), before.text);
        if (at == 0 || file_.bytes()[at - 1] != '\n') {
            return false;
        }
        splices_.push_back({Span{at, at}, NewLine(file_, before, change.key.substr(colon + 1),
                                                  spellings.front())});
        return true;
    }

    const IniFile& file_;
    std::unordered_map<std::string, const Line*> last_;  ///< the last line of each section
    const Line** section_ = nullptr;
    std::vector<Splice> splices_;
};

/// Whether `after` says what `changes` want, and nothing else has become different.
bool IsAsWanted(const IniFile& before, const IniFile& after, const Changes& changes) {
    const auto says = [](const IniFile& file, const std::string& key) {
        const Line* line = file.Find(key);
        return line == nullptr || line->kind != LineKind::kValue
                   ? std::nullopt
                   : std::optional<std::string_view>(file.TextOf(line->value));
    };
    const auto isRight = [&](const std::string& key) {
        const auto change = changes.find(key);
        const auto wanted = change == changes.end()
                                ? says(before, key)
                                : std::optional<std::string_view>(change->second->value);
        return says(after, key) == wanted;
    };
    for (const IniFile* file : {&before, &after}) {
        for (const Line& line : file->lines()) {
            if (line.kind == LineKind::kValue && !isRight(file->KeyOf(line))) {
                return false;
            }
        }
    }
    return after.IsAccepted();
}

/// One change after the other.
std::string OneByOne(const std::string& bytes, const std::vector<const KeyChange*>& changes) {
    std::string text = bytes;
    for (const KeyChange* change : changes) {
        const IniFile file(text);
        text = change->value ? WithKey(file, change->key, *change->value).value_or(file.bytes())
                             : WithoutKey(file, change->key);
    }
    return text;
}

}  // namespace

std::string WithChanges(const IniFile& file, const std::vector<KeyChange>& changes) {
    const Changes wanted = ByKey(changes);
    Splices splices(file);
    Changes spliced;
    std::vector<const KeyChange*> all;
    std::vector<const KeyChange*> rest;
    for (const KeyChange& change : changes) {
        const auto counts = wanted.find(LowerCase(change.key));
        if (counts->second != &change) {
            continue;
        }
        all.push_back(&change);
        if (splices.Add(change)) {
            spliced.insert(*counts);
        } else {
            rest.push_back(&change);
        }
    }
    const std::string text = splices.Done();
    return IsAsWanted(file, IniFile(text), spliced) ? OneByOne(text, rest)
                                                    : OneByOne(file.bytes(), all);
}

}  // namespace paramgen::tree
