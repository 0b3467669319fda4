// Values that are stored differently from how they are written.

#include <algorithm>
#include <limits>

#include "check/inspection.h"
#include "check/known_names.h"
#include "check/number_text.h"
#include "check/scaled_number.h"
#include "check/value_text.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using tree::Line;

/// One value that was read, with everything there is to know about it.
struct ReadValue {
    const tree::FoundFile& file;
    const Line& line;
    const layout::Value* stored;  ///< the first value that the key gives; null: none
    std::string text;

    FieldKind Kind() const { return stored == nullptr ? FieldKind::kBytes : stored->Kind(); }
    std::string Unit() const { return stored == nullptr ? "" : stored->Unit(); }
};

class ValueChecker {
public:
    explicit ValueChecker(Inspection* inspection) : inspection_(*inspection) {}

    void Check(const ReadValue& value) {
        CheckText(&inspection_, value.file, value.line);
        switch (value.Kind()) {
            case FieldKind::kBool:
                CheckBoolean(value);
                break;
            case FieldKind::kFloat:
                CheckFloat(value);
                break;
            case FieldKind::kInt32:
            case FieldKind::kUint32:
            case FieldKind::kUint8:
            case FieldKind::kInt16:
            case FieldKind::kUint64:
                CheckNumber(value);
                break;
            default:
                break;
        }
    }

private:
    Finding* Warn(const ReadValue& value, RuleId id, std::string message) {
        const tree::Span part = value.line.value.Size() == 0 ? value.line.name : value.line.value;
        return inspection_.Warn(id, value.file, value.line, part, std::move(message));
    }

    void CheckBoolean(const ReadValue& value) {
        if (IsBoolean(value.text)) {
            return;
        }
        Finding* finding =
            Warn(value, RuleId::kNotABoolean,
                 (value.text.empty() ? std::string("an empty value") : Quoted(value.text)) +
                     " is neither true nor false, and counts as not given");
        if (finding == nullptr) {
            return;
        }
        const std::string lower = tree::LowerCase(value.text);
        if (lower == "on" || lower.starts_with("enable")) {
            finding->suggestion = "yes";
        } else if (lower == "off" || lower.starts_with("disable")) {
            finding->suggestion = "no";
        }
    }

    void CheckFloat(const ReadValue& value) {
        const FloatText number = ReadFloat(value.text);
        if (!number.isNumber) {
            TellNoNumber(value);
        } else if (!number.isExact) {
            Warn(value, RuleId::kFloatRange, Quoted(value.text) + " is more than a float can hold");
        } else if (number.end != value.text.size()) {
            Finding* finding = TellTrailing(value, number.end);
            const bool hasComma = value.text[number.end] == ',';
            if (finding != nullptr && hasComma) {
                finding->suggestion = value.text;
                finding->suggestion[number.end] = '.';
            }
        }
    }

    void TellNoNumber(const ReadValue& value) {
        Warn(value, RuleId::kNotANumber,
             (value.text.empty() ? std::string("an empty value") : Quoted(value.text)) +
                 " is no number, and is stored as 0");
    }

    Finding* TellTrailing(const ReadValue& value, std::size_t end) {
        return Warn(value, RuleId::kTrailingText,
                    Quoted(value.text.substr(end)) + " behind the number is dropped; " +
                        value.text.substr(0, end) + " is left");
    }

    void TellSuffix(const ReadValue& value, const NumberText& number) {
        Finding* finding = TellTrailing(value, number.end);
        const std::size_t suffix =
            std::min(value.text.find_first_not_of(" \t", number.end), value.text.size());
        const std::optional<std::int64_t> meant =
            ScaledNumber(number.value, value.text.substr(suffix), value.Unit());
        if (finding != nullptr && meant.has_value()) {
            finding->suggestion = std::to_string(*meant);
        }
    }

    void CheckNumber(const ReadValue& value) {
        const NumberText number = ReadNumber(value.text);
        if (number.isHexadecimal) {
            Finding* finding = Warn(value, RuleId::kHexadecimal,
                                    Quoted(value.text) + " is read as decimal, that is 0");
            if (finding != nullptr) {
                finding->suggestion = AsDecimal(value.text);
            }
        } else if (!number.isNumber) {
            TellNoNumber(value);
        } else if (!number.isInRange) {
            Warn(value, RuleId::kNumberOutOfRange,
                 Quoted(value.text) + " does not fit 32 bits; " + std::to_string(number.value) +
                     " is stored");
        } else if (number.end != value.text.size()) {
            TellSuffix(value, number);
        } else {
            CheckWidth(value, number.value);
        }
    }

    /// A hexadecimal number as decimal; empty when it would not be read.
    static std::string AsDecimal(const std::string& text) {
        const std::int64_t number = std::strtoll(text.c_str(), nullptr, 16);
        const bool fits = number <= std::numeric_limits<std::int32_t>::max() &&
                          number >= std::numeric_limits<std::int32_t>::min();
        return fits ? std::to_string(number) : "";
    }

    void CheckWidth(const ReadValue& value, std::int64_t number) {
        if (value.Kind() == FieldKind::kUint8 && (number < 0 || number > 255)) {
            Warn(value, RuleId::kNumberTruncated,
                 Quoted(value.text) + " does not fit 8 bits; " +
                     std::to_string(static_cast<std::uint8_t>(number)) + " is stored");
            return;
        }
        if (number >= 0) {
            return;
        }
        if (value.Kind() == FieldKind::kUint32) {
            Warn(value, RuleId::kNumberNegative,
                 Quoted(value.text) + " is stored unsigned, as " +
                     std::to_string(static_cast<std::uint32_t>(number)));
        } else if (value.Kind() == FieldKind::kUint64) {
            Warn(value, RuleId::kNumberNegative,
                 Quoted(value.text) + " is stored unsigned, as " +
                     std::to_string(static_cast<std::uint64_t>(number)));
        }
    }

    Inspection& inspection_;
};

/// Checks the values of one module that were read.
void CheckModule(const tree::Module& module, Inspection* inspection) {
    ValueChecker checker(inspection);
    const tree::IniFile& ini = *module.file->ini;
    for (const Line& line : ini.lines()) {
        const bool counts = line.kind == tree::LineKind::kValue && !line.isReplaced;
        if (!counts || inspection->IsBad(line)) {
            continue;
        }
        const Asked* asked = inspection->FindAsked(
            module.name, tree::FullKey(ini.SectionOf(line), ini.TextOf(line.name)).View());
        if (asked == nullptr) {
            continue;
        }
        const bool isStored = asked->key != nullptr && !asked->key->values.empty();
        checker.Check({.file = *module.file,
                       .line = line,
                       .stored = isStored ? asked->key->values.front() : nullptr,
                       .text = std::string(ini.TextOf(line.value))});
    }
}

}  // namespace

void CheckValues(Inspection* inspection) {
    for (const tree::Module& module : inspection->product().modules()) {
        if (module.fate == tree::ModuleFate::kRead) {
            CheckModule(module, inspection);
        }
    }
}

}  // namespace paramgen::check
