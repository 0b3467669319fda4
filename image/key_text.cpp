#include "image/key_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "confaccess/number.h"

namespace paramgen::image {
namespace {

using Text = std::optional<std::string>;

template <typename Number>
Number As(std::span<const std::byte> bytes) {
    Number number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

/// The number that is stored as `stored` when it is multiplied by `times`, modulo 2^32; the
/// smallest one that is not negative. None when there is none.
std::optional<std::uint32_t> Divided(std::uint32_t stored, std::uint32_t times) {
    const int shift = std::countr_zero(times);
    const std::uint32_t odd = times >> shift;
    if (stored % (1U << shift) != 0) {
        return std::nullopt;
    }
    std::uint32_t inverse = odd;  // right in its lowest 3 bits; each step doubles that
    for (int bits = 3; bits < 32; bits *= 2) {
        inverse *= 2 - odd * inverse;
    }
    const std::uint32_t number = (stored >> shift) * inverse;
    return shift == 0 ? number : number & ((1U << (32 - shift)) - 1);
}

Text WordText(std::uint32_t stored, std::uint32_t times) {
    if (times == 1) {
        return std::to_string(static_cast<std::int32_t>(stored));
    }
    const std::optional<std::uint32_t> number = Divided(stored, times);
    return number ? Text(std::to_string(static_cast<std::int32_t>(*number))) : std::nullopt;
}

/// The text of a boolean, which is stored as 0 or 1.
Text BoolText(std::uint32_t stored) {
    return stored <= 1 ? Text(std::to_string(stored)) : std::nullopt;
}

Text LongText(std::int64_t stored) {
    const bool fits = stored >= std::numeric_limits<std::int32_t>::min() &&
                      stored <= std::numeric_limits<std::int32_t>::max();
    return fits ? Text(std::to_string(stored)) : std::nullopt;
}

Text FloatKeyText(std::uint32_t bits) {
    const float number = std::bit_cast<float>(bits);
    if (std::isnan(number) &&
        bits != std::bit_cast<std::uint32_t>(std::numeric_limits<float>::quiet_NaN())) {
        return std::nullopt;  // the program stores only one NaN
    }
    return FloatText(number);
}

Text NameText(const layout::Value& value, std::int32_t number) {
    const NameTable* names = layout::NamesOf(value);
    const std::string name = names == nullptr ? "" : layout::NameOf(*names, number);
    return name.empty() ? std::nullopt : Text(name);
}

/// A text in its bytes: it has an end, and zeros behind it.
Text StoredText(const layout::Value& value, std::span<const std::byte> bytes) {
    const auto end = std::find(bytes.begin(), bytes.end(), std::byte{0});
    const bool isFilled =
        std::all_of(end, bytes.end(), [](std::byte b) { return b == std::byte{0}; });
    if (end == bytes.end() || !isFilled) {
        return std::nullopt;
    }
    std::string text(reinterpret_cast<const char*>(bytes.data()),
                     static_cast<std::size_t>(end - bytes.begin()));
    if (value.field->notes.emptyByQuotes && text == "\"\"") {
        return std::nullopt;
    }
    return text;
}

}  // namespace

std::string FloatText(float number) {
    if (std::isnan(number)) {
        return "nan";
    }
    char text[64];
    const auto shortest = std::to_chars(std::begin(text), std::end(text), number);
    std::string best(text, shortest.ptr);
    // The program reads a double and narrows it, which may round twice.
    if (std::bit_cast<std::uint32_t>(static_cast<float>(ParseDouble(best.c_str()))) !=
        std::bit_cast<std::uint32_t>(number)) {
        const auto exact =
            std::to_chars(std::begin(text), std::end(text), static_cast<double>(number));
        best.assign(text, exact.ptr);
    }
    return best;
}

Text KeyText(const layout::Value& value, std::span<const std::byte> bytes) {
    switch (value.Kind()) {
        case FieldKind::kBool:
            return BoolText(As<std::uint32_t>(bytes));
        case FieldKind::kInt32:
        case FieldKind::kUint32:
            return WordText(As<std::uint32_t>(bytes), value.times);
        case FieldKind::kUint8:
            return std::to_string(As<std::uint8_t>(bytes));
        case FieldKind::kInt16:
            return std::to_string(As<std::int16_t>(bytes));
        case FieldKind::kUint64:
            return LongText(As<std::int64_t>(bytes));
        case FieldKind::kFloat:
            return FloatKeyText(As<std::uint32_t>(bytes));
        case FieldKind::kName:
            return NameText(value, As<std::int32_t>(bytes));
        case FieldKind::kText:
            return StoredText(value, bytes);
        case FieldKind::kRecord:
        case FieldKind::kBytes:
            break;
    }
    return std::nullopt;
}

}  // namespace paramgen::image
