/// Value sets: the choices that the device offers for one setting. A choice has a short description
/// and a value.
///
/// A set may have more choices than its record has room for. The others are stored in the bytes
/// behind the record, up to the end of the section. A count that is too large for the section fails
/// with -1 before the first choice is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/media_mode.h"

namespace paramgen {

inline constexpr std::size_t kValueCount = 10;

/// One choice. 16 bytes.
template <typename Value>
struct ValueItem {
    char description[12];
    Value value;
};
using NumberItem = ValueItem<std::uint32_t>;
using MediaModeItem = ValueItem<MediaMode>;
static_assert(sizeof(NumberItem) == 16 && sizeof(MediaModeItem) == 16);

/// The choices for one setting. 164 bytes.
template <typename Value>
struct ValueSet {
    std::uint32_t count;  ///< as read, even when it is larger than `items`
    ValueItem<Value> items[kValueCount];
};
using NumberSet = ValueSet<std::uint32_t>;
using MediaModeSet = ValueSet<MediaMode>;
static_assert(sizeof(NumberSet) == 164 && sizeof(MediaModeSet) == 164);
static_assert(offsetof(NumberSet, items) == 4 && offsetof(MediaModeSet, items) == 4);

extern const TableOf<NumberItem> kNumberItemTable;
extern const TableOf<MediaModeItem> kMediaModeItemTable;
extern const TableOf<NumberSet> kNumberSetTable;
extern const TableOf<MediaModeSet> kMediaModeSetTable;

/// A value set of either kind in its section, with the bytes behind it that its choices may use. It
/// does not own them.
class ValueSetView {
public:
    /// The set at the start of `bytes`, which go on to the end of the section.
    explicit ValueSetView(std::span<std::byte> bytes);

    /// The same set, limited to `max` choices.
    ValueSetView LimitedTo(std::uint32_t max) const;

    /// The largest number of choices: what the section has room for, or the limit if it is smaller.
    std::uint32_t MaxCount() const { return maxCount_; }

    /// The number of choices that the set says it has.
    std::uint32_t Count() const;

    /// The first byte of the set, to load its count into.
    std::byte* Record() const { return bytes_.data(); }

    /// The bytes of choice `index`, which is less than `MaxCount()`.
    std::span<std::byte> Item(std::uint32_t index) const;

    /// The description of choice `index`, with all bytes behind it up to the section's end. It may
    /// lack its terminator when another set has overwritten it.
    std::span<char> Description(std::uint32_t index) const;

    /// The value of choice `index`.
    std::uint32_t Value(std::uint32_t index) const;
    void SetValue(std::uint32_t index, std::uint32_t value) const;

private:
    std::span<std::byte> bytes_;
    std::uint32_t maxCount_;
};

// The loaders take the module to read, the node of the set, and the set to fill. They return 0, or
// the code of the first step that failed, having logged it. What was loaded before a failure stays.

/// Loads a set of numbers.
[[nodiscard]] Status PDT_INIPARAM_LoadCommItemValues(const char* module, const char* item,
                                                     ValueSetView set);

/// Loads a set of media modes. A choice without a media mode leaves the bytes of its value
/// unchanged. Returns -1 for an unknown media mode.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaModeItemValues(const char* module, const char* item,
                                                          ValueSetView set);

}  // namespace paramgen
