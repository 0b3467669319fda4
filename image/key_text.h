/// From the bytes of a value back to what stands behind its key.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "layout/value.h"

namespace paramgen::image {

/// The value of the key of `value` that is stored as `bytes`, which are as many as the value takes:
/// a number as the shortest text, the name of a number that stands for one, a text as it is. None
/// when no text is stored so.
std::optional<std::string> KeyText(const layout::Value& value, std::span<const std::byte> bytes);

/// A float as the shortest text that reads back to the same 32 bits: "29.97", "inf", "-inf", "nan".
std::string FloatText(float number);

}  // namespace paramgen::image
