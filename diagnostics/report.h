/// Output formats of findings, for people and for programs.
#pragma once

#include <string>
#include <vector>

#include "diagnostics/finding.h"
#include "output/json.h"

namespace paramgen::diagnostics {

/// For people: "file:line:column: warning: message [id]", the source line, and a caret below what
/// is at fault. The first line of a finding is what gcc's is, so that editors jump to it.
std::string TextReport(const std::vector<Finding>& findings, bool isColored);

/// The findings and how many there are of each severity.
output::Json JsonReport(const std::vector<Finding>& findings);

/// SARIF 2.1.0, for code scanning: one run, relative URIs where paths are relative, columns in code
/// points, fingerprints that do not hang on line numbers. `homepage`, an absolute URI, tells where
/// to read about the program; empty: nowhere.
output::Json SarifReport(const std::vector<Finding>& findings, std::string_view version,
                         std::string_view homepage = "");

/// Commands for GitHub's annotations, errors first, behind the text report.
std::string GithubReport(const std::vector<Finding>& findings);

/// The name of a severity.
std::string_view NameOf(Severity severity);

/// Columns of a place in code points, from 1; where the place has none, 1.
struct Columns {
    std::size_t begin;
    std::size_t end;
};
Columns InCharacters(const Place& place);

/// The message, with what was probably meant.
std::string FullMessage(const Finding& finding);

}  // namespace paramgen::diagnostics
