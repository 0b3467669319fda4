#include "confaccess/dictionary.h"

#include <bit>

#include "safestr/short_text.h"

namespace paramgen {

/// Where a key and its value begin in the text. A section has neither name nor value.
struct Dictionary::Entry {
    std::uint32_t section;
    std::uint32_t name;
    std::uint32_t value;  ///< `kNoValue`: a section
    std::uint16_t sectionLength;
    std::uint16_t nameLength;

    static constexpr std::uint32_t kNoValue = UINT32_MAX;
};

bool Dictionary::Create(const Text& text, Arena* arena) {
    text_ = text;
    const std::size_t lines = 1 + CountCharacter(text.View(), '\n');
    // At most three quarters of the slots are taken.
    const std::size_t slots = std::bit_ceil(lines + lines / 3 + 1);
    slotCount_ = static_cast<std::uint32_t>(slots);
    slots_ = static_cast<Slot*>(arena->Take(std::uint64_t{slots} * sizeof(Slot)));
    entries_ = static_cast<Entry*>(arena->Take(std::uint64_t{lines} * sizeof(Entry)));
    return slots_ != nullptr && entries_ != nullptr;
}

std::uint32_t Dictionary::PlaceOf(std::string_view part) const {
    return static_cast<std::uint32_t>(part.data() - text_.bytes);
}

bool Dictionary::IsKeyOf(const Entry& entry, const FoldedKey& key) const {
    const char* text = text_.bytes;
    const std::size_t length = key.Text().size();
    const std::size_t colon = entry.sectionLength;
    const std::size_t expected =
        entry.value == Entry::kNoValue ? colon : colon + 1 + entry.nameLength;
    return length == expected && key.HasAt(0, {text + entry.section, colon}) &&
           (length == colon || (key.Text()[colon] == ':' &&
                                key.HasAt(colon + 1, {text + entry.name, entry.nameLength})));
}

/// The slot of `key`, or the free one that it would take.
Dictionary::Slot* Dictionary::FindSlot(const FoldedKey& key, std::uint32_t hash) const {
    const std::uint32_t mask = slotCount_ - 1;
    for (std::uint32_t at = hash & mask;; at = (at + 1) & mask) {
        Slot* slot = slots_ + at;
        if (slot->entry == 0 || (slot->hash == hash && IsKeyOf(entries_[slot->entry - 1], key))) {
            return slot;
        }
    }
}

/// Puts `entry` where the one of the same key is, or behind the last one.
void Dictionary::Set(const FoldedKey& key, const Entry& entry) {
    const std::uint32_t hash = key.Hash();
    Slot* slot = FindSlot(key, hash);
    if (slot->entry == 0) {
        ++count_;
        *slot = {.hash = hash, .entry = count_};
    }
    entries_[slot->entry - 1] = entry;
}

void Dictionary::SetSection(const FoldedKey& key, std::string_view section) {
    Set(key, {.section = PlaceOf(section),
              .name = 0,
              .value = Entry::kNoValue,
              .sectionLength = static_cast<std::uint16_t>(section.size()),
              .nameLength = 0});
}

void Dictionary::SetValue(const FoldedKey& key, std::string_view section, std::string_view name,
                          std::string_view value) {
    Set(key, {.section = PlaceOf(section),
              .name = PlaceOf(name),
              .value = PlaceOf(value),
              .sectionLength = static_cast<std::uint16_t>(section.size()),
              .nameLength = static_cast<std::uint16_t>(name.size())});
    text_.bytes[PlaceOf(value) + value.size()] = '\0';
}

const char* Dictionary::Get(const FoldedKey& key, const char* defaultValue) const {
    const Slot* slot = FindSlot(key, key.Hash());
    if (slot->entry == 0) {
        return defaultValue;
    }
    const Entry& entry = entries_[slot->entry - 1];
    return entry.value == Entry::kNoValue ? nullptr : text_.bytes + entry.value;
}

}  // namespace paramgen
