#include "support/same_record.h"

#include <algorithm>
#include <cstring>

namespace paramgen::testing {
namespace {

/// The bytes of a member as a number or a text.
std::string Shown(const Field& field, const std::string& bytes) {
    if (field.kind == FieldKind::kText || field.kind == FieldKind::kBytes || bytes.size() > 8) {
        return ::testing::PrintToString(bytes);
    }
    if (field.kind == FieldKind::kFloat) {
        float value = 0;
        std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
        return std::to_string(value);
    }
    std::uint64_t value = 0;
    std::memcpy(&value, bytes.data(), bytes.size());
    if (bytes.size() == 4 && field.kind == FieldKind::kInt32) {
        return std::to_string(static_cast<std::int32_t>(value));
    }
    return std::to_string(value);
}

}  // namespace

::testing::AssertionResult SameRecord(const std::vector<WalkedField>& fields,
                                      const std::string& expected, const std::string& actual) {
    if (expected.size() != actual.size()) {
        return ::testing::AssertionFailure() << "a record of " << expected.size()
                                             << " bytes is expected, not of " << actual.size();
    }
    const auto differs = std::mismatch(expected.begin(), expected.end(), actual.begin()).first;
    if (differs == expected.end()) {
        return ::testing::AssertionSuccess();
    }
    const auto at = static_cast<std::size_t>(differs - expected.begin());
    for (const WalkedField& walked : fields) {
        const std::size_t size = walked.field->size;
        if (at - walked.offset < size) {
            return ::testing::AssertionFailure()
                   << "at " << at << ": " << walked.member << " is "
                   << Shown(*walked.field, actual.substr(walked.offset, size)) << ", expected "
                   << Shown(*walked.field, expected.substr(walked.offset, size));
        }
    }
    return ::testing::AssertionFailure() << "at " << at << ": no member";
}

::testing::AssertionResult SameRecord(const RecordTable& table, const std::string& expected,
                                      const std::string& actual) {
    // Only the members matter here: any indices in their keys will do.
    return expected == actual ? ::testing::AssertionSuccess()
                              : SameRecord(WalkTable(table, "", "", {0, 0}), expected, actual);
}

}  // namespace paramgen::testing
