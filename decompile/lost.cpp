#include "decompile/lost.h"

#include "image/entry.h"
#include "image/key_text.h"
#include "tree/spelling.h"

namespace paramgen::decompile {
namespace {

/// Whether a value comes from a module that is found by the name of a media mode, and the number of
/// that mode has no name.
bool IsOfNamelessMode(const image::Image& image, const layout::Value& value) {
    for (const layout::Condition& condition : value.conditions) {
        if (condition.kind == layout::ConditionKind::kSearchedModule) {
            const layout::Value& mode = *layout::ValueAt(condition.wanted);
            return !image::KeyText(mode, image::BytesOf(image, mode));
        }
    }
    return false;
}

/// Why a value with a key cannot be made.
std::string KeyReason(const image::Image& image, const layout::Value& value) {
    if (IsOfNamelessMode(image, value)) {
        return "its media mode has no name, by which its module is found";
    }
    if (!image::IsRead(image, value)) {
        return "its key is not read with this image's counts and modules";
    }
    const std::optional<std::string> text = image::KeyText(value, image::BytesOf(image, value));
    if (!text && value.Kind() == FieldKind::kName) {
        return "no name has this number";
    }
    if (!text || !tree::Spelled(*text)) {
        return "no value of its key is stored so";
    }
    return "another value of the same key, or what it counts, is at odds with it";
}

std::string Reason(const image::Image& image, const layout::Value& value) {
    switch (value.Source()) {
        case FieldSource::kNobody:
            return "nothing is stored there";
        case FieldSource::kConstant:
            return "it is always " + std::to_string(value.Default());
        case FieldSource::kCopy:
            return "it is a copy of " + layout::ValueAt(value.origin)->Member();
        default:
            return value.HasKey() ? KeyReason(image, value)
                                  : "it is worked out from other values, and not to this";
    }
}

}  // namespace

std::vector<Lost> Explain(const image::Image& image, const std::vector<std::uint32_t>& offsets) {
    std::vector<Lost> lost;
    const layout::Value* last = nullptr;
    for (const std::uint32_t offset : offsets) {
        const layout::Value* value = layout::ValueAt(offset);
        if (value == last) {
            lost.back().size = offset + 1 - lost.back().offset;
            continue;
        }
        lost.push_back({.offset = offset,
                        .size = 1,
                        .member = value->Member(),
                        .reason = Reason(image, *value)});
        last = value;
    }
    return lost;
}

}  // namespace paramgen::decompile
