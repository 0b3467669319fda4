#include "image/entry.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>

#include "image/key_text.h"

namespace paramgen::image {
namespace {

bool IsMagic(const layout::Value& value) {
    return value.offset == offsetof(ImageHeader, magic);
}

bool HoldsConstant(const Image& image, const layout::Value& value) {
    return NumberAt<std::int32_t>(image, value.offset) == value.Default();
}

bool HoldsCopy(const Image& image, const layout::Value& value) {
    const auto bytes = BytesOf(image, value);
    return std::equal(bytes.begin(), bytes.end(), image.begin() + value.origin);
}

/// Adds flags that depend on a value's source.
void FlagSource(const Image& image, const layout::Value& value, std::vector<Flag>* flags) {
    switch (value.Source()) {
        case FieldSource::kNobody:
            if (!IsZero(BytesOf(image, value))) {
                flags->push_back(Flag::kReservedNotZero);
            }
            break;
        case FieldSource::kConstant:
            if (!HoldsConstant(image, value)) {
                flags->push_back(IsMagic(value) ? Flag::kWrongMagic : Flag::kConstantDiffers);
            }
            break;
        case FieldSource::kCopy:
            if (!HoldsCopy(image, value)) {
                flags->push_back(Flag::kCopyDiffers);
            }
            break;
        default:
            break;
    }
}

/// Adds flags that depend on a value's kind.
void FlagKind(const Image& image, const layout::Value& value, const std::string& name,
              std::vector<Flag>* flags) {
    const auto bytes = BytesOf(image, value);
    if (value.Kind() == FieldKind::kText &&
        std::find(bytes.begin(), bytes.end(), std::byte{0}) == bytes.end()) {
        flags->push_back(Flag::kTextUnended);
    }
    if (value.Kind() == FieldKind::kBool && NumberAt<std::uint32_t>(image, value.offset) > 1) {
        flags->push_back(Flag::kNotABoolean);
    }
    if (value.Kind() == FieldKind::kName && name.empty()) {
        flags->push_back(Flag::kUnknownName);
    }
}

std::string NameIn(const Image& image, const layout::Value& value) {
    const NameTable* names = layout::NamesOf(value);
    return names == nullptr ? ""
                            : layout::NameOf(*names, NumberAt<std::int32_t>(image, value.offset));
}

/// A value's text as people read it.
std::string ValueText(const Image& image, const layout::Value& value) {
    const std::uint32_t at = value.offset;
    switch (value.Kind()) {
        case FieldKind::kBool:
        case FieldKind::kUint32:
            return std::to_string(NumberAt<std::uint32_t>(image, at));
        case FieldKind::kInt32:
        case FieldKind::kName:
            return std::to_string(NumberAt<std::int32_t>(image, at));
        case FieldKind::kUint8:
            return std::to_string(NumberAt<std::uint8_t>(image, at));
        case FieldKind::kInt16:
            return std::to_string(NumberAt<std::int16_t>(image, at));
        case FieldKind::kUint64:
            return std::to_string(NumberAt<std::uint64_t>(image, at));
        case FieldKind::kFloat:
            return FloatText(NumberAt<float>(image, at));
        case FieldKind::kText: {
            const std::string text = Characters(BytesOf(image, value));
            return text.substr(0, text.find('\0'));
        }
        default:
            return IsZero(BytesOf(image, value)) ? "" : Hexadecimal(BytesOf(image, value));
    }
}

/// Where a module's values lie: from the first up to the end of the last.
struct Extent {
    std::uint32_t begin = UINT32_MAX;
    std::uint32_t end = 0;
};

const Extent& ExtentOf(const std::string& module) {
    static const std::map<std::string, Extent> kExtents = [] {
        std::map<std::string, Extent> extents;
        for (const layout::Value& value : layout::Values()) {
            Extent& extent = extents[value.module];
            extent.begin = std::min(extent.begin, value.offset);
            extent.end = std::max(extent.end, value.offset + value.size);
        }
        return extents;
    }();
    return kExtents.at(module);
}

bool IsModuleZero(const Image& image, const std::string& module) {
    const Extent& extent = ExtentOf(module);
    return IsZero(std::span(image).subspan(extent.begin, extent.end - extent.begin));
}

/// The values of a searched module lie in several blocks; the one around a value, up to those of
/// other modules.
bool IsBlockZero(const Image& image, const layout::Value& value) {
    const auto values = layout::Values();
    const layout::Value* begin = &value;
    while (begin > values.data() && begin[-1].module == value.module) {
        --begin;
    }
    for (; begin < values.data() + values.size() && begin->module == value.module; ++begin) {
        if (!IsZero(BytesOf(image, *begin))) {
            return false;
        }
    }
    return true;
}

bool Holds(const Image& image, const layout::Value& value, const layout::Condition& condition) {
    switch (condition.kind) {
        case layout::ConditionKind::kCounted:
            return NumberAt<std::uint32_t>(image, condition.count) > condition.number;
        case layout::ConditionKind::kLeading:
            return NumberAt<std::uint32_t>(image, condition.count) >= condition.number;
        case layout::ConditionKind::kOptionalModule:
            return value.modules.size() != 1 || !IsModuleZero(image, value.module);
        case layout::ConditionKind::kSearchedModule:
            return !IsBlockZero(image, value);
    }
    return true;
}

}  // namespace

const char* NameOf(Flag flag) {
    switch (flag) {
        case Flag::kWrongMagic:
            return "wrong-magic";
        case Flag::kReservedNotZero:
            return "reserved-not-zero";
        case Flag::kConstantDiffers:
            return "constant-differs";
        case Flag::kCopyDiffers:
            return "copy-differs";
        case Flag::kTextUnended:
            return "text-unended";
        case Flag::kNotABoolean:
            return "not-a-boolean";
        case Flag::kUnknownName:
            return "unknown-name";
    }
    return "";
}

Entry EntryOf(const Image& image, const layout::Value& value) {
    Entry entry = {.value = &value,
                   .raw = Hexadecimal(BytesOf(image, value)),
                   .text = ValueText(image, value),
                   .name = NameIn(image, value),
                   .flags = {}};
    FlagSource(image, value, &entry.flags);
    FlagKind(image, value, entry.name, &entry.flags);
    return entry;
}

std::vector<Entry> Entries(const Image& image) {
    std::vector<Entry> entries;
    entries.reserve(layout::Values().size());
    for (const layout::Value& value : layout::Values()) {
        entries.push_back(EntryOf(image, value));
    }
    return entries;
}

output::Json ValueJson(const Image& image, const layout::Value& value) {
    const std::uint32_t at = value.offset;
    switch (value.Kind()) {
        case FieldKind::kText:
            return output::JsonText(ValueText(image, value));
        case FieldKind::kFloat: {
            const float number = NumberAt<float>(image, at);
            return std::isfinite(number) ? output::Json::parse(FloatText(number))
                                         : output::Json(FloatText(number));
        }
        case FieldKind::kUint64:
            return NumberAt<std::uint64_t>(image, at);
        case FieldKind::kRecord:
        case FieldKind::kBytes:
            return nullptr;
        default:
            return std::stoll(ValueText(image, value));
    }
}

std::vector<std::byte> DefaultBytes(const layout::Value& value) {
    std::vector<std::byte> bytes(value.size, std::byte{0});
    if (value.HasDefault() && value.Kind() == FieldKind::kFloat) {
        const float number = static_cast<float>(value.Default());
        std::memcpy(bytes.data(), &number, sizeof number);
    } else if (value.HasDefault()) {
        const std::int64_t number = value.Default();
        std::memcpy(bytes.data(), &number, std::min(bytes.size(), sizeof number));
    }
    return bytes;
}

bool IsDefault(const Image& image, const layout::Value& value) {
    const auto bytes = BytesOf(image, value);
    const std::vector<std::byte> expected = DefaultBytes(value);
    return !value.HasKey() || std::equal(bytes.begin(), bytes.end(), expected.begin());
}

std::string DefaultText(const layout::Value& value) {
    return value.HasDefault() ? std::to_string(value.Default()) : "";
}

bool IsRead(const Image& image, const layout::Value& value) {
    return std::all_of(
        value.conditions.begin(), value.conditions.end(),
        [&](const layout::Condition& condition) { return Holds(image, value, condition); });
}

}  // namespace paramgen::image
