/// The values of an image: what each of them is, and what is odd about it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "image/bytes.h"
#include "layout/layout.h"
#include "output/json.h"

namespace paramgen::image {

/// What is odd about a value.
enum class Flag : std::uint8_t {
    kWrongMagic,
    kReservedNotZero,
    kConstantDiffers,
    kCopyDiffers,
    kTextUnended,
    kNotABoolean,
    kUnknownName,  ///< a number that has to stand for a name, and for none
};

/// "wrong-magic", "reserved-not-zero" ...
const char* NameOf(Flag flag);

/// One value of an image. It refers to the image's layout, which stays.
struct Entry {
    const layout::Value* value;
    std::string raw;   ///< its bytes, hexadecimal
    std::string text;  ///< its value: a number, a text up to its end, "" for bytes that are zero
    std::string name;  ///< of a number that stands for a name it has
    std::vector<Flag> flags;
};

/// All values of an image, in its order. Their bytes cover it exactly once.
std::vector<Entry> Entries(const Image& image);

/// The entry of one value.
Entry EntryOf(const Image& image, const layout::Value& value);

/// The value as JSON: a number, a string for a text and for a float that is not finite; null for
/// bytes without a meaning.
output::Json ValueJson(const Image& image, const layout::Value& value);

/// Whether a value has the bytes that it has without its key; true for what has no key.
bool IsDefault(const Image& image, const layout::Value& value);

/// The bytes of a number without its key; zeros for everything else.
std::vector<std::byte> DefaultBytes(const layout::Value& value);

/// The text of the value that an absent key stands for; empty for texts.
std::string DefaultText(const layout::Value& value);

/// Whether the loaders read the value's key in a run that makes this image: its counts reach it,
/// and the module that it comes from is not optional or not all zero.
bool IsRead(const Image& image, const layout::Value& value);

}  // namespace paramgen::image
