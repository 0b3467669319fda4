#include "confaccess/dictionary.h"

#include <bit>

#include "confaccess/any_case.h"
#include "safestr/short_text.h"

namespace paramgen {

/// Header of a record. Name, value and a NUL follow.
struct Dictionary::Record {
    std::uint32_t section;  ///< place of its section's record; a section's own place
    std::uint16_t nameLength;
    std::uint16_t valueLength : 15;
    std::uint16_t isReplaced : 1;  ///< a later record has the same key

    char* Name() { return reinterpret_cast<char*>(this + 1); }
    char* Value() { return Name() + nameLength; }

    std::uint32_t Size() const { return SizeOf(std::uint32_t{nameLength} + valueLength); }

    static constexpr std::uint32_t SizeOf(std::uint32_t characters) {
        const auto size = static_cast<std::uint32_t>(sizeof(Record)) + characters + 1;
        return (size + kUnit - 1) / kUnit * kUnit;
    }

    static constexpr std::uint32_t kUnit = 4;  ///< alignment of places
};

bool Dictionary::Create(std::string_view text, Arena* arena) {
    // Room for one record per line, for the section before the first one, and for all characters.
    const std::size_t lines = 2 + CountCharacter(text, '\n');
    const std::uint64_t room =
        std::uint64_t{lines} * Record::SizeOf(Record::kUnit - 1) + text.size();
    records_ = static_cast<char*>(arena->Take(room));
    if (records_ == nullptr) {
        return false;
    }
    room_ = static_cast<std::size_t>(room);
    end_ = RecordAt(0)->Size();
    next_ = end_;
    return true;
}

Dictionary::Record* Dictionary::RecordAt(std::uint32_t place) const {
    return reinterpret_cast<Record*>(records_ + place);
}

std::uint32_t Dictionary::PlaceIn(Slot slot) const {
    return (slot & placeMask_) * Record::kUnit;
}

void Dictionary::Add(std::string_view name, std::string_view value) {
    const std::size_t characters = name.size() + value.size();
    if (sizeof(Record) + characters >= room_ - end_) {  // a NUL follows
        isFull_ = true;
        return;
    }
    Record* record = RecordAt(end_);
    PutCharacters(PutCharacters(record->Name(), name), value);
    record->section = section_;
    record->nameLength = static_cast<std::uint16_t>(name.size());
    record->valueLength = static_cast<std::uint16_t>(value.size()) & 0x7FFFU;
    end_ += Record::SizeOf(static_cast<std::uint32_t>(characters));
    ++recordCount_;
}

void Dictionary::AddSection(std::string_view name) {
    section_ = end_;
    Add(name, {});
}

void Dictionary::AddValue(std::string_view name, std::string_view value) {
    Add(name, value);
}

bool Dictionary::IsKeyAt(std::uint32_t place, std::string_view key) const {
    Record* record = RecordAt(place);
    if (record->isReplaced) {
        return false;
    }
    if (record->section == place) {
        return key.size() == record->nameLength &&
               SameInAnyCase(key.data(), record->Name(), key.size());
    }
    Record* section = RecordAt(record->section);
    const std::size_t colon = section->nameLength;
    return key.size() == colon + 1 + record->nameLength && key[colon] == ':' &&
           SameInAnyCase(key.data() + colon + 1, record->Name(), record->nameLength) &&
           SameInAnyCase(key.data(), section->Name(), colon);
}

/// Returns the slot of `key`, or the free slot where the search ends.
Dictionary::Slot* Dictionary::FindSlot(std::string_view key, std::uint32_t hash) const {
    for (std::uint32_t at = hash & slotMask_;; at = (at + 1) & slotMask_) {
        Slot* slot = slots_ + at;
        if (*slot == 0 || (((*slot ^ hash) & ~placeMask_) == 0 && IsKeyAt(PlaceIn(*slot), key))) {
            return slot;
        }
    }
}

void Dictionary::Index(std::uint32_t place, std::string_view key) {
    const std::uint32_t hash = HashInAnyCase(key);
    Slot* slot = FindSlot(key, hash);
    if (*slot == 0) {
        ++count_;
    } else {
        RecordAt(PlaceIn(*slot))->isReplaced = 1;
    }
    *slot = (hash & ~placeMask_) | place / Record::kUnit;
}

bool Dictionary::Finish(Arena* arena) {
    arena->KeepOfLast(records_, end_);
    // The load factor is at most three quarters.
    const std::size_t slots = std::bit_ceil(std::size_t{recordCount_} + recordCount_ / 3 + 1);
    slotMask_ = static_cast<std::uint32_t>(slots - 1);
    placeMask_ = std::bit_ceil(end_ / Record::kUnit) - 1;
    slots_ = static_cast<Slot*>(arena->Take(std::uint64_t{slots} * sizeof(Slot)));
    if (slots_ == nullptr || isFull_) {
        return false;
    }
    char key[2 * kNameMax + 2];  // begins with the current section and a colon
    std::size_t afterColon = 1;
    key[0] = ':';
    for (std::uint32_t place = next_; place != end_; place += RecordAt(place)->Size()) {
        Record* record = RecordAt(place);
        const bool isSection = record->section == place;
        const std::size_t begin = isSection ? 0 : afterColon;
        const std::size_t end = begin + record->nameLength;
        // The capacity leaves room for a colon behind the name.
        if (CopyText(key + begin, sizeof key - 1 - begin, record->Name(), record->nameLength) !=
            0) {
            return false;
        }
        Index(place, {key, end});
        if (isSection) {
            key[end] = ':';
            afterColon = end + 1;
        }
    }
    return true;
}

const char* Dictionary::FindText(std::string_view key, const char* defaultValue) const {
    if (next_ == end_ || !IsKeyAt(next_, key)) {
        const Slot slot = *FindSlot(key, HashInAnyCase(key));
        if (slot == 0) {
            return defaultValue;
        }
        next_ = PlaceIn(slot);
    }
    const std::uint32_t place = next_;
    Record* record = RecordAt(place);
    next_ += record->Size();
    return record->section == place ? nullptr : record->Value();
}

std::uint32_t Dictionary::ProbesFor(std::string_view key) const {
    const std::uint32_t hash = HashInAnyCase(key);
    const auto last = static_cast<std::uint32_t>(FindSlot(key, hash) - slots_);
    return ((last - hash) & slotMask_) + 1;
}

}  // namespace paramgen
