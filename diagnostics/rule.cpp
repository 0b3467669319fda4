#include "diagnostics/rule.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace paramgen::diagnostics {

constexpr std::string_view kEntry = "entry";
constexpr std::string_view kLost = "lost";
constexpr std::string_view kValues = "values";
constexpr std::string_view kStructure = "structure";
constexpr std::string_view kReferences = "references";
constexpr std::string_view kSuppressions = "suppressions";

constexpr Rule kRules[] = {
    {RuleId::kEntryMissing, "entry-missing", kEntry, "There is no entry file.",
     "paramgen starts from config_cfgaccess_entry.ini in the directory that it runs in. Give the "
     "directory that holds it, or make it readable."},
    {RuleId::kModuleCount, "module-count", kEntry, "The entry file counts no modules.",
     "module_num in [module] says how many modules there are. Without it, or with 0, paramgen "
     "fails; "
     "with a negative number it reads none."},
    {RuleId::kModuleNameMissing, "module-name-missing", kEntry, "A counted module has no name.",
     "For each number up to module_num there must be a key module1, module2 and so on in "
     "[module]."},
    {RuleId::kModuleIncomplete, "module-incomplete", kEntry, "A module has no file name.",
     "A module needs a section of its own name with a cfg_filename that is not empty."},
    {RuleId::kModuleRepeated, "module-repeated", kEntry, "A module is listed twice.",
     "Each module may be listed once. Remove one of the two, and number the others without a gap."},
    {RuleId::kPathTooLong, "path-too-long", kEntry, "A path or a name is too long.",
     "A path may have 255 characters, a module's name 114. paramgen leaves out the module, or "
     "fails "
     "when it is the entry file's own path."},
    {RuleId::kOctal, "octal", kEntry, "module_num begins with 0 and is read as octal.",
     "010 is 8. Write the number without the leading 0."},
    {RuleId::kPathIgnored, "path-ignored", kEntry, "A path without '/' is not taken.",
     "A module's path counts only when it contains a '/'. Write ./name; otherwise the entry file's "
     "own directory is taken."},
    {RuleId::kModuleUncounted, "module-uncounted", kEntry, "A module is listed but not counted.",
     "module_num is lower than this module's number, so it is not read. Raise module_num."},
    {RuleId::kModuleUnreadable, "module-unreadable", kLost, "A module's file cannot be read.",
     "paramgen leaves the module out, and every value of it keeps its default; or it fails when it "
     "cannot do without. A directory in place of a file reads as an empty file."},
    {RuleId::kModuleMissing, "module-missing", kLost, "A module that is needed is not listed.",
     "paramgen fails without this module. List it in the entry file, and give it a file."},
    {RuleId::kEmptyModule, "empty-module", kLost, "None of a module's keys is read.",
     "The file holds nothing that its module is asked for, so that every value is left to its "
     "default. Is it the right file?"},
    {RuleId::kEncoding, "encoding", kLost, "A file is UTF-16, or has a byte order mark.",
     "Save it as UTF-8 without a byte order mark. As it is, its first line or all of it is not "
     "what "
     "it looks like."},
    {RuleId::kSyntax, "syntax", kLost, "A line is no INI line; its whole file is lost.",
     "Every line has to be empty, a comment, a [section] or key = value. One that is not makes "
     "paramgen refuse the whole file."},
    {RuleId::kLineTooLong, "line-too-long", kLost, "A line is too long; its whole file is lost.",
     "A line may have 1022 characters, comments included."},
    {RuleId::kNulByte, "nul-byte", kLost, "A line has a NUL byte.",
     "paramgen takes a NUL for the end of the text. A line that goes on behind it makes it refuse "
     "the "
     "whole file; else the line ends there."},
    {RuleId::kLineIgnored, "line-ignored", kLost, "The last line is passed over.",
     "A last line without a newline counts for nothing when it is one character, or ends in '\\'. "
     "End the file with a newline."},
    {RuleId::kNumberOutOfRange, "number-out-of-range", kValues, "A number has more than 32 bits.",
     "Numbers go from -2147483648 to 2147483647. paramgen refuses what is beyond, or stores the "
     "limit in its place."},
    {RuleId::kTextTooLong, "text-too-long", kValues, "A text does not fit its place.",
     "The image keeps a fixed number of bytes for each text, one of them for its end."},
    {RuleId::kUnknownName, "unknown-name", kValues, "A name is none that paramgen knows.",
     "Media modes and colour matrices are given by name, in capitals and to the letter."},
    {RuleId::kCountTooLarge, "count-too-large", kValues, "More is counted than can be.",
     "paramgen refuses a count that leads beyond its section."},
    {RuleId::kMaskNegative, "mask-negative", kValues, "A component mask is negative.",
     "Component masks go from 0 to 2147483647."},
    {RuleId::kNotANumber, "not-a-number", kValues, "A value that should be a number is none.",
     "What does not begin with a number is stored as 0."},
    {RuleId::kTrailingText, "trailing-text", kValues, "Text behind a number is dropped.",
     "A number ends at the first character that cannot belong to it: 12M is 12, and 29,97 is 29."},
    {RuleId::kHexadecimal, "hexadecimal", kValues, "A hexadecimal number is read as decimal.",
     "This reader is decimal: 0x10 is 0. Write the number as decimal."},
    {RuleId::kNumberTruncated, "number-truncated", kValues, "A number has too many bits.",
     "Only the low bits are stored: of 300 in 8 bits, 44."},
    {RuleId::kNumberNegative, "number-negative", kValues, "A negative number is stored unsigned.",
     "The value's type is unsigned: -1 becomes 4294967295."},
    {RuleId::kNotABoolean, "not-a-boolean", kValues, "A value is neither true nor false.",
     "Booleans are told by their first letter: 1, y, t or 0, n, f. Anything else, on and off "
     "included, leaves the default."},
    {RuleId::kFloatRange, "float-range", kValues, "A number is beyond what a float can hold.",
     "It is stored as infinity or as 0, or is no finite number at all."},
    {RuleId::kValueCut, "value-cut", kValues, "A ';' or '#' ends a value early.",
     "';' starts a comment anywhere, even between quotes, and '#' does outside them. Put white "
     "space "
     "before a comment; a text that needs '#' goes in quotes, and ';' cannot be written."},
    {RuleId::kQuote, "quote", kValues, "A quote is not closed, or text stands behind it.",
     "A value in quotes ends at the next quote of the same kind. What follows is dropped."},
    {RuleId::kUnknownKey, "unknown-key", kStructure, "No table knows this key.",
     "Nothing reads it, and the value that was meant keeps its default."},
    {RuleId::kUnknownSection, "unknown-section", kStructure, "No table knows this section.",
     "Nothing reads the keys in it, and the values that were meant keep their defaults."},
    {RuleId::kUnreadKey, "unread-key", kStructure, "This tree keeps a known key from being read.",
     "A count, a missing module or a bound of the image keeps it out."},
    {RuleId::kUnusedModule, "unused-module", kStructure, "Nobody asks for a listed module.",
     "No part of the image has a module of this name. Is it misspelled?"},
    {RuleId::kDuplicateKey, "duplicate-key", kStructure, "A key comes twice.",
     "The last one counts. Remove the other."},
    {RuleId::kKeyHiddenBySection, "key-hidden-by-section", kStructure,
     "A section hides the key of its name.",
     "A section is a key of its own without a value. The key before it counts as absent."},
    {RuleId::kSectionComment, "section-comment", kStructure,
     "A '#' behind a section makes it something else.",
     "Behind a [section] only a ';' comment is allowed. With '#' and '=' the line is a key."},
    {RuleId::kCountBeyondArray, "count-beyond-array", kStructure,
     "More is counted than the array has places for.",
     "What is beyond is stored over the values that follow in the image."},
    {RuleId::kCountClamped, "count-clamped", kStructure, "More is counted than is read.",
     "Only the first ones are read, but the image says that there are more."},
    {RuleId::kCountUnfilled, "count-unfilled", kStructure, "What is counted is not there.",
     "The count includes an element none of whose keys is there; it is all defaults."},
    {RuleId::kMissingKey, "missing-key", kStructure, "A key is left to its default.",
     "Off unless enabled: a tree need not have every key.", true},
    {RuleId::kUnlistedFile, "unlisted-file", kStructure, "No module is in this file.",
     "Off unless enabled. The entry file lists no module with this file.", true},
    {RuleId::kHandleUnknown, "handle-unknown", kReferences, "No enabled target has this handle.",
     "Handles tie the parts of a product together. The firmware will not find what this one "
     "names."},
    {RuleId::kHandleRepeated, "handle-repeated", kReferences, "Two targets have the same handle.",
     "The firmware finds only one of them."},
    {RuleId::kModeNotServed, "mode-not-served", kReferences, "No module serves a media mode.",
     "A work mode or a value set names a media mode that no cam0_mediamodeN module has as its "
     "own."},
    {RuleId::kModeRepeated, "mode-repeated", kReferences, "Two modules serve one media mode.",
     "The firmware takes one of them."},
    {RuleId::kLdcUnused, "ldc-unused", kReferences, "A lens calibration is for no mode.",
     "No mode module has the media mode that the calibration names."},
    {RuleId::kNotOffered, "not-offered", kReferences, "A value is not in its menu.",
     "The value set lists what menus offer. What is set here is not among it."},
    {RuleId::kLimitsCrossed, "limits-crossed", kReferences, "A minimum is above its maximum.",
     "The range between them is empty."},
    {RuleId::kSuppressionWithoutReason, "suppression-without-reason", kSuppressions,
     "A suppression gives no reason.",
     "Write '; paramtool: ignore ID (reason)': whoever reads it later wants to know."},
    {RuleId::kUnneededSuppression, "unneeded-suppression", kSuppressions,
     "A suppression silences nothing.",
     "What it was for is gone, is an error, or has another id. Remove it."},
};

std::span<const Rule> Rules() {
    return kRules;
}

const Rule& RuleOf(RuleId id) {
    return kRules[static_cast<std::size_t>(id)];
}

const Rule* FindRule(std::string_view name) {
    const auto* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                          [&](const Rule& each) { return each.name == name; });
    return rule == std::end(kRules) ? nullptr : rule;
}

bool IsGroup(std::string_view name) {
    return name == "all" || std::any_of(std::begin(kRules), std::end(kRules),
                                        [&](const Rule& each) { return each.group == name; });
}

bool IsNamed(const Rule& rule, std::string_view name) {
    return name == "all" || rule.name == name || rule.group == name;
}

}  // namespace paramgen::diagnostics
