#include "diagnostics/suppression.h"

#include <algorithm>
#include <string>

#include "diagnostics/places.h"

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
    std::uint32_t first = 0;  ///< the lines that it is for
    std::uint32_t last = 0;
    bool isForFile = false;
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

    /// Whether what is left is a text in parentheses.
    bool HasReason() const {
        const std::size_t end = rest_.find(')');
        return rest_.starts_with('(') && end != std::string_view::npos &&
               rest_.substr(1, end - 1).find_first_not_of(kSpace) != std::string_view::npos;
    }

private:
    void SkipSpace() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kSpace), rest_.size()));
    }

    std::string_view rest_;
};

/// Reads the directive of a line's comment. Returns false when it has none.
bool ReadDirective(const tree::FoundFile& file, const tree::Line& line, Suppression* suppression) {
    const std::string_view comment = file.ini->TextOf({line.comment, line.text.end});
    const std::size_t at = comment.find(tree::kDirective);
    if (at == std::string_view::npos) {
        return false;
    }
    const auto begin = static_cast<std::uint32_t>(line.comment + at);
    suppression->file = &file;
    suppression->place = PlaceOf(file, line, {begin, line.text.end});
    suppression->first = suppression->last = line.number;
    Words words(comment.substr(at + tree::kDirective.size()));
    if (words.Next() != "ignore") {
        return true;
    }
    suppression->id = words.Next();
    suppression->path = words.Next();
    if (suppression->path.starts_with("./")) {
        suppression->path.erase(0, 2);
    }
    suppression->hasReason = words.HasReason();
    return true;
}

/// The lines of one file that suppressions are for.
class Scopes {
public:
    explicit Scopes(const tree::IniFile& ini) : lines_(ini.lines()) {}

    /// Widens a suppression at line `index` to what it is for.
    void Widen(std::size_t index, Suppression* suppression) const {
        const bool isAlone = lines_[index].kind == tree::LineKind::kComment;
        if (isAlone && lines_[index].section == tree::kNoLine) {
            suppression->isForFile = true;
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
            if (lines_[i].kind == tree::LineKind::kSection) {
                return lines_[i].number - 1;
            }
        }
        return UINT32_MAX;
    }

    std::span<const tree::Line> lines_;
};

void Collect(const tree::FoundFile& file, std::vector<Suppression>* suppressions) {
    if (file.ini == nullptr) {
        return;
    }
    const Scopes scopes(*file.ini);
    const std::span<const tree::Line> lines = file.ini->lines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Suppression suppression;
        if (ReadDirective(file, lines[i], &suppression)) {
            scopes.Widen(i, &suppression);
            suppressions->push_back(suppression);
        }
    }
}

bool Silences(const Suppression& suppression, const Finding& finding) {
    if (finding.severity == Severity::kError || RuleOf(finding.id).name != suppression.id) {
        return false;
    }
    if (!suppression.path.empty()) {
        return finding.place.line == 0 && finding.place.path == suppression.path;
    }
    if (finding.place.file != suppression.file->shown) {
        return false;
    }
    return suppression.isForFile ||
           (finding.place.line >= suppression.first && finding.place.line <= suppression.last);
}

Finding Complaint(RuleId id, const Suppression& suppression, std::string message) {
    Finding finding;
    finding.id = id;
    finding.place = suppression.place;
    finding.message = std::move(message);
    return finding;
}

/// What is wrong with a suppression, once it is known whether it is needed.
void Judge(const Suppression& suppression, const WasMade& wasMade, std::vector<Finding>* findings) {
    const Rule* rule = FindRule(suppression.id);
    if (rule == nullptr) {
        findings->push_back(Complaint(
            RuleId::kUnneededSuppression, suppression,
            suppression.id.empty() ? "not understood; expected 'paramtool: ignore ID (reason)'"
                                   : "there is no finding '" + suppression.id + "'"));
        return;
    }
    if (!suppression.hasReason) {
        findings->push_back(Complaint(
            RuleId::kSuppressionWithoutReason, suppression,
            "'" + suppression.id + "' is ignored without a reason; add one in parentheses"));
    }
    const bool isLostFile = !suppression.file->ini->IsAccepted();
    if (!suppression.isNeeded && !isLostFile && wasMade(*rule)) {
        findings->push_back(Complaint(RuleId::kUnneededSuppression, suppression,
                                      "there is no warning '" + suppression.id + "' to ignore"));
    }
}

}  // namespace

void ApplySuppressions(const tree::Product& product, const WasMade& wasMade,
                       std::vector<Finding>* findings) {
    std::vector<Suppression> suppressions;
    Collect(product.entry(), &suppressions);
    for (const auto& file : product.files()) {
        Collect(*file, &suppressions);
    }
    std::erase_if(*findings, [&](const Finding& finding) {
        bool isSilenced = false;
        for (Suppression& suppression : suppressions) {
            const bool silences = Silences(suppression, finding);
            suppression.isNeeded = suppression.isNeeded || silences;
            isSilenced = isSilenced || silences;
        }
        return isSilenced;
    });
    for (const Suppression& suppression : suppressions) {
        const std::size_t before = findings->size();
        Judge(suppression, wasMade, findings);
        for (std::size_t i = before; i < findings->size(); ++i) {
            (*findings)[i].fileOrder = OrderOf(product, *suppression.file);
        }
    }
}

}  // namespace paramgen::diagnostics
