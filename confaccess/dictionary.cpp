#include "confaccess/dictionary.h"

#include <bit>

#include "confaccess/any_case.h"
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
    slotMask_ = static_cast<std::uint32_t>(slots - 1);
    numberMask_ = static_cast<std::uint32_t>(std::bit_ceil(lines + 1) - 1);
    slots_ = static_cast<Slot*>(arena->Take(std::uint64_t{slots} * sizeof(Slot)));
    entries_ = static_cast<Entry*>(arena->Take(std::uint64_t{lines} * sizeof(Entry)));
    return slots_ != nullptr && entries_ != nullptr;
}

Dictionary::Entry* Dictionary::EntryOf(Slot slot) const {
    return entries_ + ((slot & numberMask_) - 1);
}

std::uint32_t Dictionary::PlaceOf(std::string_view part) const {
    return static_cast<std::uint32_t>(part.data() - text_.bytes);
}

bool Dictionary::IsKeyOf(const Entry& entry, std::string_view key) const {
    const char* section = text_.bytes + entry.section;
    if (entry.value == Entry::kNoValue) {
        return key.size() == entry.sectionLength && SameInAnyCase(key.data(), section, key.size());
    }
    const std::size_t colon = entry.sectionLength;
    return key.size() == colon + 1 + entry.nameLength && key[colon] == ':' &&
           SameInAnyCase(key.data(), section, colon) &&
           SameInAnyCase(key.data() + colon + 1, text_.bytes + entry.name, entry.nameLength);
}

/// The slot of `key`, or the free one that it would take.
Dictionary::Slot* Dictionary::FindSlot(std::string_view key, std::uint32_t hash) const {
    for (std::uint32_t at = hash & slotMask_;; at = (at + 1) & slotMask_) {
        Slot* slot = slots_ + at;
        if (*slot == 0 || (((*slot ^ hash) & ~numberMask_) == 0 && IsKeyOf(*EntryOf(*slot), key))) {
            return slot;
        }
    }
}

/// Puts `entry` where the one of the same key is, or behind the last one.
void Dictionary::Set(std::string_view key, const Entry& entry) {
    const std::uint32_t hash = HashInAnyCase(key);
    Slot* slot = FindSlot(key, hash);
    if (*slot == 0) {
        ++count_;
        *slot = (hash & ~numberMask_) | count_;
    }
    *EntryOf(*slot) = entry;
}

void Dictionary::SetSection(std::string_view section) {
    Set(section, {.section = PlaceOf(section),
                  .name = 0,
                  .value = Entry::kNoValue,
                  .sectionLength = static_cast<std::uint16_t>(section.size()),
                  .nameLength = 0});
}

void Dictionary::SetValue(std::string_view key, std::string_view section, std::string_view name,
                          std::string_view value) {
    Set(key, {.section = PlaceOf(section),
              .name = PlaceOf(name),
              .value = PlaceOf(value),
              .sectionLength = static_cast<std::uint16_t>(section.size()),
              .nameLength = static_cast<std::uint16_t>(name.size())});
    text_.bytes[PlaceOf(value) + value.size()] = '\0';
}

const char* Dictionary::Get(std::string_view key, const char* defaultValue) const {
    if (next_ >= count_ || !IsKeyOf(entries_[next_], key)) {
        const Slot slot = *FindSlot(key, HashInAnyCase(key));
        if (slot == 0) {
            return defaultValue;
        }
        next_ = (slot & numberMask_) - 1;
    }
    const Entry& entry = entries_[next_];
    ++next_;
    return entry.value == Entry::kNoValue ? nullptr : text_.bytes + entry.value;
}

std::uint32_t Dictionary::ProbesFor(std::string_view key) const {
    const std::uint32_t hash = HashInAnyCase(key);
    const auto last = static_cast<std::uint32_t>(FindSlot(key, hash) - slots_);
    return ((last - hash) & slotMask_) + 1;
}

}  // namespace paramgen
