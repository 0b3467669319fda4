#include "confaccess/dictionary.h"

#include <algorithm>
#include <bit>

#include "confaccess/any_case.h"
#include "safestr/short_text.h"

namespace paramgen {

namespace {

/// Whether sections of few keys are searched. On a machine of 32 bits, where size counts more, all
/// keys are in the hash table.
constexpr bool kSearchesSections = sizeof(Word) >= 8;

/// How many keys a section may have to be searched.
constexpr std::uint32_t kFewKeys = 32;

/// Returns one of 64 bits, the same for equal names in any case: most others have another.
std::uint64_t SignOf(std::string_view name) {
    if (name.empty()) {
        return 1;
    }
    constexpr unsigned kCaseless = 0x1F;
    const unsigned first = static_cast<unsigned char>(name.front()) & kCaseless;
    const unsigned last = static_cast<unsigned char>(name.back()) & kCaseless;
    return std::uint64_t{1} << ((name.size() * 16 + first * 3 + last) % 64);
}

}  // namespace

/// Header of a record. Name, value and a NUL follow.
struct Dictionary::Record {
    std::uint32_t section;  ///< place of its section's record; a section's own place
    std::uint16_t nameLength;
    std::uint16_t units : 15;      ///< its size
    std::uint16_t isReplaced : 1;  ///< a later record has the same key

    char* Name() { return reinterpret_cast<char*>(this + 1); }
    char* Value() { return Name() + nameLength; }
    std::string_view NameView() { return {Name(), nameLength}; }

    std::uint32_t Size() const { return std::uint32_t{units} * kUnit; }

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
    end_ = Record::SizeOf(0);  // place 0 is that of keys before the first section
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
    const std::uint32_t size = Record::SizeOf(static_cast<std::uint32_t>(characters));
    record->section = section_;
    record->nameLength = static_cast<std::uint16_t>(name.size());
    record->units = static_cast<std::uint16_t>(size / Record::kUnit) & 0x7FFFU;
    end_ += size;
    ++recordCount_;
}

void Dictionary::AddSection(std::string_view name) {
    section_ = end_;
    ++sectionCount_;
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

/// Makes an empty hash table for that many keys. Returns false when memory runs out.
bool Dictionary::NewSlots(std::uint32_t keys, Arena* arena) {
    // The load factor is at most three quarters.
    const std::size_t slots = std::bit_ceil(std::size_t{keys} + keys / 3 + 1);
    slotMask_ = static_cast<std::uint32_t>(slots - 1);
    slots_ = static_cast<Slot*>(arena->Take(std::uint64_t{slots} * sizeof(Slot)));
    count_ = 0;
    return slots_ != nullptr;
}

/// Puts the record of `key` into the hash table. Returns false where it takes the place of another.
bool Dictionary::Index(std::uint32_t place, std::string_view key) {
    const std::uint32_t hash = HashInAnyCase(key);
    Slot* slot = FindSlot(key, hash);
    const bool isNew = *slot == 0;
    if (isNew) {
        ++count_;
    } else {
        RecordAt(PlaceIn(*slot))->isReplaced = 1;
    }
    *slot = (hash & ~placeMask_) | place / Record::kUnit;
    return isNew;
}

/// Indexes all keys. Returns false when a name is too long.
bool Dictionary::IndexKeys() {
    char key[2 * kNameMax + 2];  // begins with the current section and a colon
    std::size_t afterColon = 1;
    key[0] = ':';
    for (std::uint32_t place = next_; place != end_; place += RecordAt(place)->Size()) {
        Record* record = RecordAt(place);
        record->isReplaced = 0;
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

/// Indexes the sections alone. Returns false when that does not do: there are keys before the first
/// section, or a section has many keys, a colon in its name or the name of an earlier one. So a key
/// is found behind its first colon, in one section.
bool Dictionary::IndexSections() {
    std::uint32_t keys = 0;
    std::uint64_t signs = 0;  // of the section's keys
    for (std::uint32_t place = next_; place != end_; place += RecordAt(place)->Size()) {
        Record* record = RecordAt(place);
        const std::string_view name = record->NameView();
        if (record->section == place) {
            if (FindFirst(name, ':') != name.size() || !Index(place, name)) {
                return false;
            }
            keys = 0;
            signs = 0;
            continue;
        }
        if (record->section == 0 || ++keys > kFewKeys) {
            return false;
        }
        const std::uint64_t sign = SignOf(name);
        const std::uint32_t earlier =
            (signs & sign) == 0 ? 0 : FindInSection(record->section, place, name);
        signs |= sign;
        if (earlier == 0) {
            ++count_;
        } else {
            RecordAt(earlier)->isReplaced = 1;
        }
    }
    return true;
}

bool Dictionary::Finish(Arena* arena) {
    arena->KeepOfLast(records_, end_);
    placeMask_ = std::bit_ceil(end_ / Record::kUnit) - 1;
    if (isFull_) {
        return false;
    }
    if constexpr (kSearchesSections) {
        if (!NewSlots(sectionCount_, arena)) {
            return false;
        }
        hasSectionIndex_ = IndexSections();
    }
    return hasSectionIndex_ || (NewSlots(recordCount_, arena) && IndexKeys());
}

bool Dictionary::IsNamed(std::uint32_t place, std::string_view name) const {
    Record* record = RecordAt(place);
    return record->nameLength == name.size() && !record->isReplaced &&
           SameInAnyCase(record->Name(), name.data(), name.size());
}

/// Returns the place of the section of that name, or 0.
std::uint32_t Dictionary::FindSection(std::string_view name) const {
    const std::uint32_t likely = RecordAt(next_ == end_ ? 0 : next_)->section;
    if (likely != 0 && IsNamed(likely, name)) {
        return likely;
    }
    const std::uint32_t section = PlaceIn(*FindSlot(name, HashInAnyCase(name)));
    FetchSection(section);
    return section;
}

/// Asks for a section's first cache lines, all at once. Each record tells where the next one is, so
/// that a search in a large dictionary would otherwise wait for every line of its own.
void Dictionary::FetchSection(std::uint32_t section) const {
    constexpr std::uint32_t kLarge = 64 * 1024;  // what is smaller stays in the cache anyway
    constexpr std::uint32_t kCacheLine = 64;
    constexpr std::uint32_t kMost = 8 * kCacheLine;
    if (end_ < kLarge) {
        return;
    }
    const std::uint32_t size = std::min(end_ - section, kMost);
    for (std::uint32_t at = 0; at < size; at += kCacheLine) {
        __builtin_prefetch(records_ + section + at);
    }
}

/// Returns the place of the record of that name among those of a section before `end`, or 0.
std::uint32_t Dictionary::FindInSection(std::uint32_t section, std::uint32_t end,
                                        std::string_view name) const {
    std::uint32_t place = section + RecordAt(section)->Size();
    for (; place != end && RecordAt(place)->section == section; place += RecordAt(place)->Size()) {
        if (IsNamed(place, name)) {
            return place;
        }
    }
    return 0;
}

/// Returns the place of the record of `key`, or 0, by the index of the sections.
std::uint32_t Dictionary::FindBySection(std::string_view key) const {
    const std::size_t colon = FindFirst(key, ':');
    const std::uint32_t section = FindSection({key.data(), colon});
    if (section == 0 || colon == key.size()) {
        return section;
    }
    return FindInSection(section, end_, {key.data() + colon + 1, key.size() - colon - 1});
}

const char* Dictionary::FindText(std::string_view key, const char* defaultValue) const {
    std::uint32_t place = next_;
    if (place == end_ || !IsKeyAt(place, key)) {
        place = kSearchesSections && hasSectionIndex_ ? FindBySection(key)
                                                      : PlaceIn(*FindSlot(key, HashInAnyCase(key)));
        if (place == 0) {
            return defaultValue;
        }
    }
    Record* record = RecordAt(place);
    next_ = place + record->Size();
    return record->section == place ? nullptr : record->Value();
}

std::uint32_t Dictionary::ProbesFor(std::string_view key) const {
    const std::uint32_t hash = HashInAnyCase(key);
    const auto last = static_cast<std::uint32_t>(FindSlot(key, hash) - slots_);
    return ((last - hash) & slotMask_) + 1;
}

}  // namespace paramgen
