#include "support/row_checks.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/captured_output.h"
#include "support/records.h"
#include "support/same_record.h"

namespace paramgen::testing {
namespace {

constexpr char kTooBig[] = "99999999999";

bool IsInteger(FieldKind kind) {
    return kind == FieldKind::kInt32 || kind == FieldKind::kUint32 || kind == FieldKind::kUint8 ||
           kind == FieldKind::kInt16 || kind == FieldKind::kUint64;
}

/// The probe for a field: its own if it has one, else that of its kind.
Probe ProbeFor(const RowSubject& subject, const WalkedField& walked) {
    const auto own = subject.probes.find(walked.key);
    if (own != subject.probes.end()) {
        return own->second;
    }
    const Field& field = *walked.field;
    switch (field.kind) {
        case FieldKind::kBool:
            return field.Number() == 0 ? Probe{"yes", std::string("\1\0\0\0", 4)}
                                       : Probe{"no", std::string("\0\0\0\0", 4)};
        case FieldKind::kInt32:
            return {"-19088744", std::string("\x98\xba\xdc\xfe", 4)};
        case FieldKind::kUint32:
            return {"-2", std::string("\xfe\xff\xff\xff", 4)};
        case FieldKind::kUint8:
            return {"300", std::string("\x2c", 1)};
        case FieldKind::kInt16:
            return {"-300", std::string("\xd4\xfe", 2)};
        case FieldKind::kUint64:
            return {"-3", std::string("\xfd\xff\xff\xff\xff\xff\xff\xff", 8)};
        case FieldKind::kFloat:
            return {"29.97", std::string("\x8f\xc2\xef\x41", 4)};
        case FieldKind::kText: {
            const std::string text(field.size - 1U, 'x');
            return {text, text + '\0'};
        }
        case FieldKind::kName:
            return {"QX_PARAM_MEDIAMODE_720P_60_WDR", std::string("\4\0\0\0", 4)};
        default:
            return {};
    }
}

bool IsSetByBase(const RowSubject& subject, const WalkedField& walked) {
    const std::size_t colon = walked.key.find(':');
    const std::string line = walked.key.substr(colon + 1) + " = ";
    const std::string section = "[" + walked.key.substr(0, colon) + "]\n" + line;
    return subject.base.HasModule(walked.module) &&
           subject.base.ModuleText(walked.module).find(section) != std::string::npos;
}

bool IsTried(const RowSubject& subject, const WalkedField& walked) {
    return walked.field->key != nullptr && subject.unreachable.count(walked.key) == 0 &&
           !IsSetByBase(subject, walked);
}

std::string ExpectedWithoutKeys(const std::string& record, const WalkedField& walked) {
    const Field& field = *walked.field;
    if (field.source == FieldSource::kCopy) {
        const std::size_t start = walked.offset - field.offset;
        return record.substr(start + static_cast<std::size_t>(field.Number()), field.size);
    }
    if (field.source == FieldSource::kNobody || field.kind == FieldKind::kText ||
        field.kind == FieldKind::kName) {
        return std::string(field.size, '\0');
    }
    if (field.kind == FieldKind::kFloat) {
        const float value = static_cast<float>(field.Number());
        return {reinterpret_cast<const char*>(&value), sizeof value};
    }
    return LittleEndian(field.Number(), field.size);
}

/// `before` with `bytes` in place of a field's, and of the fields that copy it.
std::string WithField(const RowSubject& subject, std::string before, const WalkedField& walked,
                      const std::string& bytes) {
    before.replace(walked.offset, bytes.size(), bytes);
    const std::size_t start = walked.offset - walked.field->offset;
    for (const WalkedField& other : subject.fields) {
        if (other.field->source == FieldSource::kCopy &&
            other.offset - other.field->offset == start &&
            other.field->Number() == walked.field->offset) {
            before.replace(other.offset, bytes.size(), bytes);
        }
    }
    return before;
}

/// The record that a row's typed reader or name look-up logs for a bad value; empty when it logs
/// none.
std::string ReaderError(const WalkedField& walked) {
    const std::string failed = ": [" + walked.key + "] failed[0xFFFFFFFF]\n";
    if (walked.field->source == FieldSource::kQuery) {
        return "";
    }
    switch (walked.field->kind) {
        case FieldKind::kUint32:
            return "PDT_INIPARAM_LoadUintValueByNodePrefix" + failed;
        case FieldKind::kText:
            return "PDT_INIPARAM_LoadStringValue: [sprintf_s] failed\n";
        default:
            return "PDT_INIPARAM_LoadIntValueByNodePrefix" + failed;
    }
}

void CheckBadValue(const RowSubject& subject, const WalkedField& walked, const std::string& text) {
    ProductTree tree = subject.base;
    tree.Set(walked.module, walked.key, text);
    const LoadResult result = RunLoad(tree, subject.size, subject.load);
    EXPECT_EQ(result.status, -1);
    std::vector<std::string> errors = ErrorsOf(result.output);
    const std::string first = ReaderError(walked);
    if (!first.empty()) {
        ASSERT_FALSE(errors.empty());
        EXPECT_EQ(errors[0], first);
        errors.erase(errors.begin());
    }
    ASSERT_FALSE(errors.empty());
    const std::string label = ": [" + walked.label + "] failed[0xFFFFFFFF]\n";
    EXPECT_NE(errors[0].find(label), std::string::npos) << errors[0];
}

}  // namespace

LoadResult RunLoad(const ProductTree& tree, std::size_t size,
                   const std::function<Status(void* record)>& load) {
    const RegisteredProduct product(tree);
    std::vector<std::uint64_t> record(size / sizeof(std::uint64_t) + 1);
    LoadResult result = {};
    result.output = CaptureStdout([&] { result.status = load(record.data()); });
    result.record.assign(reinterpret_cast<const char*>(record.data()), size);
    return result;
}

std::string LoadRecord(const ProductTree& tree, std::size_t size,
                       const std::function<Status(void* record)>& load) {
    const LoadResult result = RunLoad(tree, size, load);
    EXPECT_EQ(result.status, 0) << result.output;
    return result.status == 0 ? result.record : std::string(size, '\0');
}

void CheckAbsentKeys(const RowSubject& subject) {
    const std::string record = LoadRecord(subject.base, subject.size, subject.load);
    for (const WalkedField& walked : subject.fields) {
        const bool hasKey = walked.field->key != nullptr;
        const bool isComputed = !hasKey && walked.field->source == FieldSource::kLoader;
        if (isComputed || (hasKey && !IsTried(subject, walked))) {
            continue;
        }
        EXPECT_EQ(record.substr(walked.offset, walked.field->size),
                  ExpectedWithoutKeys(record, walked))
            << Describe(walked);
    }
}

void CheckSetKeys(const RowSubject& subject) {
    const std::string before = LoadRecord(subject.base, subject.size, subject.load);
    int tried = 0;
    for (const WalkedField& walked : subject.fields) {
        if (!IsTried(subject, walked)) {
            continue;
        }
        SCOPED_TRACE(Describe(walked));
        const Probe probe = ProbeFor(subject, walked);
        ProductTree tree = subject.base;
        tree.Set(walked.module, walked.key, probe.text);
        const std::string after = LoadRecord(tree, subject.size, subject.load);
        EXPECT_TRUE(SameRecord(
            subject.fields,
            WithField(subject, before, walked, Padded(probe.bytes, walked.field->size)), after));
        ++tried;
    }
    EXPECT_GT(tried, 0);
}

void CheckBadValues(const RowSubject& subject) {
    for (const WalkedField& walked : subject.fields) {
        const Field& field = *walked.field;
        const bool isText = field.kind == FieldKind::kText;
        if (walked.field->key == nullptr || subject.unreachable.count(walked.key) != 0 ||
            field.source == FieldSource::kLoader || !(isText || IsInteger(field.kind))) {
            continue;
        }
        SCOPED_TRACE(Describe(walked));
        CheckBadValue(subject, walked, isText ? std::string(field.size, 'x') : kTooBig);
    }
}

void CheckRows(const RowSubject& subject) {
    CheckAbsentKeys(subject);
    CheckSetKeys(subject);
    CheckBadValues(subject);
}

}  // namespace paramgen::testing
