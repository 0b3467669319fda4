/// Findings: what is wrong, and where.
///
/// Texts of a finding may hold any bytes of the input; reports make them safe.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/rule.h"

namespace paramgen::diagnostics {

/// How bad a finding is.
enum class Severity : std::uint8_t {
    kWarning,
    kError,  ///< paramgen fails because of it
};

/// Where something stands.
struct Place {
    std::string file;             ///< as it is shown: the tree as given, joined with the file
    std::string path;             ///< the same from the tree's directory
    std::uint32_t line = 0;       ///< from 1; 0: it is about the file as a whole
    std::uint32_t column = 0;     ///< from 1, in bytes
    std::uint32_t endColumn = 0;  ///< one past the last
    std::string source;           ///< the line's text
};

/// A further place, and what there is to say about it.
struct Note {
    Place place;
    std::string message;
};

/// A finding.
struct Finding {
    RuleId id = RuleId::kEntryMissing;
    Severity severity = Severity::kWarning;
    Place place;
    std::string message;
    std::string suggestion;  ///< what was probably meant; empty when there is no guess
    std::string module;      ///< what it is about, as far as that applies
    std::string section;
    std::string key;
    std::vector<Note> notes = {};
    std::uint32_t fileOrder = 0;  ///< files come in the order in which the tree lists them
    bool isForced = false;        ///< a warning that was made to fail, by --error
};

/// Sorts by file, line, column and kind.
void Sort(std::vector<Finding>* findings);

/// A text that is the same for the same finding wherever it stands in its file.
std::string Identity(const Finding& finding);

/// A short text that stands for a long one: 16 hexadecimal digits, always the same.
std::string HashOf(std::string_view text);

/// How many errors and warnings there are.
struct Counts {
    std::size_t errors = 0;
    std::size_t warnings = 0;
};
Counts Count(const std::vector<Finding>& findings);

}  // namespace paramgen::diagnostics
