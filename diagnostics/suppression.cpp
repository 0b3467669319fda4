#include "diagnostics/suppression.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "diagnostics/places.h"
#include "diagnostics/suggestion.h"

namespace paramgen::diagnostics {
namespace {

constexpr std::string_view kSpace = " \t\r\v\f";

/// A comment that silences warnings, and where.
struct Suppression {
    const tree::FoundFile* file = nullptr;
    Place place;       ///< of the directive
    std::string id;    ///< as it is written; empty when the directive is not understood
    std::string path;  ///< the file that it names, from the tree's directory
    bool hasReason = false;
    std::uint32_t first = 0;  ///< the lines that it is for; those of findings without one are 0
    std::uint32_t last = 0;
    bool isNeeded = false;
};

/// Takes words off the beginning of a text.
class Words {
public:
    explicit Words(std::string_view text) : rest_(text) { SkipSpace(); }

    std::string Next() {
        const std::size_t length = std::min(rest_.find_first_of(" \t\r\v\f("), rest_.size());
        std::string word(rest_.substr(0, length));
        rest_.remove_prefix(length);
        SkipSpace();
        return word;
    }

    /// What stands before the parenthesis, as a file's name may have spaces.
    std::string NextPath() {
        const std::string_view words = rest_.substr(0, rest_.find('('));
        std::string path(words.substr(0, words.find_last_not_of(kSpace) + 1));
        rest_.remove_prefix(words.size());
        return path.starts_with("./") ? path.substr(2) : path;
    }

    /// Takes a text in parentheses off, and returns whether there is one.
    bool NextReason() {
        const std::size_t end = rest_.find(')');
        if (!rest_.starts_with('(') || end == std::string_view::npos) {
            return false;
        }
        const std::string_view reason = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return reason.find_first_not_of(kSpace) != std::string_view::npos;
    }

    std::string_view rest() const { return rest_; }

private:
    void SkipSpace() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kSpace), rest_.size()));
    }

    std::string_view rest_;
};

/// Reads a suppression behind its directive. Only one in an entry file names a path. Returns the
/// text behind it.
std::string_view ReadSuppression(std::string_view text, bool isEntry, Suppression* suppression) {
    Words words(text);
    if (words.Next() == "ignore") {
        suppression->id = words.Next();
        suppression->path = isEntry ? words.NextPath() : "";
        suppression->hasReason = words.NextReason();
    }
    return words.rest();
}

/// The suppressions of a line's comment; it may have several.
std::vector<Suppression> ReadComment(const tree::FoundFile& file, bool isEntry,
                                     const tree::Line& line) {
    const std::string_view comment = file.ini->TextOf({line.comment, line.text.end});
    std::vector<Suppression> suppressions;
    std::size_t at = comment.find(tree::kDirective);
    while (at != std::string_view::npos) {
        Suppression suppression;
        const std::string_view rest =
            ReadSuppression(comment.substr(at + tree::kDirective.size()), isEntry, &suppression);
        const std::size_t next = comment.find(tree::kDirective, comment.size() - rest.size());
        const std::string_view whole = comment.substr(at, next - at);
        const auto begin = static_cast<std::uint32_t>(line.comment + at);
        const auto length = static_cast<std::uint32_t>(whole.find_last_not_of(kSpace) + 1);
        suppression.file = &file;
        suppression.place = PlaceOf(file, line, {begin, begin + length});
        suppression.first = suppression.last = line.number;
        suppressions.push_back(suppression);
        at = next;
    }
    return suppressions;
}

/// The lines of one file that suppressions are for.
class Scopes {
public:
    explicit Scopes(const tree::IniFile& ini) : lines_(ini.lines()) {}

    /// Widens a suppression at line `index` to what it is for.
    void Widen(std::size_t index, Suppression* suppression) const {
        const bool isAlone = lines_[index].kind == tree::LineKind::kComment;
        if (isAlone && lines_[index].section == tree::kNoLine) {
            suppression->first = 0;
            suppression->last = UINT32_MAX;
            return;
        }
        std::size_t target = index;
        while (target < lines_.size() && lines_[target].kind == tree::LineKind::kComment) {
            ++target;
        }
        if (target == lines_.size()) {
            return;
        }
        suppression->last = lines_[target].number;
        if (lines_[target].kind == tree::LineKind::kSection) {
            suppression->last = EndOfSection(target);
        }
    }

private:
    std::uint32_t EndOfSection(std::size_t header) const {
        for (std::size_t i = header + 1; i < lines_.size(); ++i) {
            if (lines_[i].kind == tree::LineKind::kSection && !lines_[i].isBare) {
                return lines_[i].number - 1;
            }
        }
        return UINT32_MAX;
    }

    std::span<const tree::Line> lines_;
};

void Collect(const tree::FoundFile& file, bool isEntry, std::vector<Suppression>* suppressions) {
    if (file.ini == nullptr) {
        return;
    }
    const Scopes scopes(*file.ini);
    const std::span<const tree::Line> lines = file.ini->lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (Suppression& suppression : ReadComment(file, isEntry, lines[i])) {
            if (suppression.path.empty()) {
                scopes.Widen(i, &suppression);
            } else {
                suppression.first = suppression.last = 0;
            }
            suppressions->push_back(std::move(suppression));
        }
    }
}

/// The suppressions of one kind of finding that stand in one file, or name one file. Lines of
/// findings are looked up among them, and theirs among those of findings: there may be many of
/// both.
class Group {
public:
    void Add(Suppression* suppression) { members_.push_back(suppression); }

    /// To be called when all have been added.
    void Sort() {
        const auto isBefore = [](const Suppression* a, const Suppression* b) {
            return a->first < b->first;
        };
        std::stable_sort(members_.begin(), members_.end(), isBefore);
        std::uint32_t last = 0;
        for (const Suppression* member : members_) {
            last = std::max(last, member->last);
            last_.push_back(last);
        }
    }

    /// Whether a finding at `line` is silenced.
    bool Silences(std::uint32_t line) {
        const auto behind = std::upper_bound(
            members_.begin(), members_.end(), line,
            [](std::uint32_t at, const Suppression* each) { return at < each->first; });
        const bool silences =
            behind != members_.begin() &&
            last_[static_cast<std::size_t>(behind - members_.begin()) - 1] >= line;
        if (silences) {
            lines_.push_back(line);
        }
        return silences;
    }

    /// Marks the suppressions that have silenced something.
    void Mark() {
        std::sort(lines_.begin(), lines_.end());
        for (Suppression* member : members_) {
            const auto line = std::lower_bound(lines_.begin(), lines_.end(), member->first);
            member->isNeeded = line != lines_.end() && *line <= member->last;
        }
    }

private:
    std::vector<Suppression*> members_;
    std::vector<std::uint32_t> last_;   ///< of each the last line that it or one before is for
    std::vector<std::uint32_t> lines_;  ///< of findings that have been silenced
};

/// All suppressions, to be found by what they are for.
class Groups {
public:
    explicit Groups(std::vector<Suppression>* suppressions) {
        for (Suppression& suppression : *suppressions) {
            const std::string& path = suppression.path;
            groups_[{suppression.id, path.empty() ? suppression.file->shown : path, path.empty()}]
                .Add(&suppression);
        }
        for (auto& [key, group] : groups_) {
            group.Sort();
        }
    }

    bool Silence(const Finding& finding) {
        const std::string id(RuleOf(finding.id).name);
        const bool byFile = SilencesBy({id, finding.place.file, true}, finding);
        const bool byPath = SilencesBy({id, finding.place.path, false}, finding);
        return byFile || byPath;
    }

    void Mark() {
        for (auto& [key, group] : groups_) {
            group.Mark();
        }
    }

private:
    using Key = std::tuple<std::string, std::string, bool>;  ///< id, file or path, which of them

    bool SilencesBy(const Key& key, const Finding& finding) {
        const auto group = groups_.find(key);
        return group != groups_.end() && group->second.Silences(finding.place.line);
    }

    std::map<Key, Group> groups_;
};

Finding Complaint(RuleId id, const Suppression& suppression, std::string message) {
    Finding finding;
    finding.id = id;
    finding.place = suppression.place;
    finding.message = std::move(message);
    return finding;
}

/// A complaint about an id that is none.
Finding UnknownId(const Suppression& suppression) {
    const std::string& id = suppression.id;
    if (id.empty()) {
        return Complaint(RuleId::kUnneededSuppression, suppression,
                         "not understood; expected 'paramtool: ignore ID (reason)'");
    }
    if (IsGroup(id)) {
        return Complaint(RuleId::kUnneededSuppression, suppression,
                         "'" + id + "' is a group of findings; name the one to ignore");
    }
    std::vector<std::string> names;
    for (const Rule& rule : Rules()) {
        names.emplace_back(rule.name);
    }
    Finding finding =
        Complaint(RuleId::kUnneededSuppression, suppression, "there is no finding '" + id + "'");
    finding.suggestion = Nearest(id, names);
    return finding;
}

/// Whether a suppression that has silenced nothing is to be told: not when its check was not made,
/// nor when it is for warnings about suppressions, which may depend on the choice of checks.
bool IsUnneeded(const Suppression& suppression, const Rule& rule, const WasMade& wasMade) {
    const bool isLostFile = !suppression.file->ini->IsAccepted();
    const bool isOfItsKind = rule.group == RuleOf(RuleId::kUnneededSuppression).group;
    return !suppression.isNeeded && !isLostFile && !isOfItsKind && wasMade(rule);
}

/// What is wrong with a suppression, once it is known whether it is needed.
void Judge(const Suppression& suppression, const WasMade& wasMade, std::vector<Finding>* findings) {
    const Rule* rule = FindRule(suppression.id);
    if (rule == nullptr) {
        findings->push_back(UnknownId(suppression));
        return;
    }
    if (!suppression.hasReason) {
        findings->push_back(Complaint(
            RuleId::kSuppressionWithoutReason, suppression,
            "'" + suppression.id + "' is ignored without a reason; add one in parentheses"));
    }
    if (IsUnneeded(suppression, *rule, wasMade)) {
        const std::string about =
            suppression.path.empty() ? "" : " about the whole of '" + suppression.path + "'";
        findings->push_back(
            Complaint(RuleId::kUnneededSuppression, suppression,
                      "there is no warning '" + suppression.id + "'" + about + " to ignore"));
    }
}

/// All that is wrong with suppressions.
std::vector<Finding> Complaints(const tree::Product& product,
                                const std::vector<Suppression>& suppressions,
                                const WasMade& wasMade) {
    std::vector<Finding> complaints;
    for (const Suppression& suppression : suppressions) {
        const std::size_t before = complaints.size();
        Judge(suppression, wasMade, &complaints);
        for (std::size_t i = before; i < complaints.size(); ++i) {
            complaints[i].fileOrder = OrderOf(product, *suppression.file);
        }
    }
    return complaints;
}

}  // namespace

void ApplySuppressions(const tree::Product& product, const WasMade& wasMade,
                       std::vector<Finding>* findings) {
    std::vector<Suppression> suppressions;
    Collect(product.entry(), true, &suppressions);
    for (const auto& file : product.files()) {
        Collect(*file, false, &suppressions);
    }
    Groups groups(&suppressions);
    const auto isSilenced = [&groups](const Finding& finding) {
        return finding.severity != Severity::kError && groups.Silence(finding);
    };
    std::erase_if(*findings, isSilenced);
    groups.Mark();
    std::vector<Finding> complaints = Complaints(product, suppressions, wasMade);
    std::erase_if(complaints, isSilenced);
    std::move(complaints.begin(), complaints.end(), std::back_inserter(*findings));
}

}  // namespace paramgen::diagnostics
