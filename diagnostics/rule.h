/// The kinds of findings, with their ids.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace paramgen::diagnostics {

/// A kind of finding.
enum class RuleId : std::uint8_t {
    kEntryMissing,
    kModuleCount,
    kModuleNameMissing,
    kModuleIncomplete,
    kModuleRepeated,
    kPathTooLong,
    kOctal,
    kPathIgnored,
    kModuleUncounted,
    kModuleUnreadable,
    kModuleMissing,
    kEmptyModule,
    kEncoding,
    kSyntax,
    kLineTooLong,
    kNulByte,
    kLineIgnored,
    kNumberOutOfRange,
    kTextTooLong,
    kUnknownName,
    kCountTooLarge,
    kMaskNegative,
    kNotANumber,
    kTrailingText,
    kHexadecimal,
    kNumberTruncated,
    kNumberNegative,
    kNotABoolean,
    kFloatRange,
    kValueCut,
    kQuote,
    kUnknownKey,
    kUnknownSection,
    kUnreadKey,
    kUnusedModule,
    kDuplicateKey,
    kKeyHiddenBySection,
    kSectionComment,
    kCountBeyondArray,
    kCountClamped,
    kCountUnfilled,
    kMissingKey,
    kUnlistedFile,
    kHandleUnknown,
    kHandleRepeated,
    kModeNotServed,
    kModeRepeated,
    kLdcUnused,
    kNotOffered,
    kLimitsCrossed,
    kSuppressionWithoutReason,
    kUnneededSuppression,
};

/// Description of a kind.
struct Rule {
    RuleId id;
    std::string_view name;     ///< "unknown-key"; never changes
    std::string_view group;    ///< "structure"
    std::string_view summary;  ///< one line, for lists
    std::string_view help;     ///< what happens, and what to do about it
    bool isOff = false;        ///< off by default
};

/// All kinds, in the order of `RuleId`.
std::span<const Rule> Rules();

const Rule& RuleOf(RuleId id);

/// The kind of this name; null when there is none.
const Rule* FindRule(std::string_view name);

/// Whether `name` is a group, or "all".
bool IsGroup(std::string_view name);

/// Whether `name` is the rule's own, its group's, or "all".
bool IsNamed(const Rule& rule, std::string_view name);

}  // namespace paramgen::diagnostics
