#include "diagnostics/finding.h"

#include <algorithm>
#include <cstdio>
#include <tuple>

namespace paramgen::diagnostics {

void Sort(std::vector<Finding>* findings) {
    const auto rank = [](const Finding& finding) {
        return std::tie(finding.fileOrder, finding.place.file, finding.place.line,
                        finding.place.column, finding.id);
    };
    std::stable_sort(findings->begin(), findings->end(),
                     [&](const Finding& a, const Finding& b) { return rank(a) < rank(b); });
}

std::string Identity(const Finding& finding) {
    std::string identity(RuleOf(finding.id).name);
    for (const std::string& part :
         {finding.module, finding.section, finding.key, finding.message}) {
        identity += '\0';
        identity += part;
    }
    return identity;
}

std::string HashOf(std::string_view text) {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    }
    char digits[20];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

Counts Count(const std::vector<Finding>& findings) {
    Counts counts;
    for (const Finding& finding : findings) {
        ++(finding.severity == Severity::kError ? counts.errors : counts.warnings);
    }
    return counts;
}

}  // namespace paramgen::diagnostics
