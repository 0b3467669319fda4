#include "confaccess/dictionary.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "safestr/short_text.h"

namespace paramgen {

void FreeDeleter::operator()(void* memory) const {
    std::free(memory);
}

/// The head of a key and its value. The stored key follows, then the value and its terminator.
struct Dictionary::Entry {
    std::uint16_t keyLength;
    std::uint16_t valueLength;  ///< `kNoValue`: the value is null

    static constexpr std::uint16_t kNoValue = 0xFFFF;

    char* Key() { return reinterpret_cast<char*>(this + 1); }
    char* Value() { return Key() + StoredKeySize(keyLength); }
};

namespace {

/// Entries begin at multiples of a unit, which is what an entry is aligned to and places count.
constexpr std::uint32_t kUnit = 4;
constexpr std::uint32_t kFirstBlockUnits = 8 * 1024 / kUnit;
static_assert(std::has_single_bit(kFirstBlockUnits));
static_assert(FoldedKey::kMax + Dictionary::kValueMax + 16 < std::size_t{kFirstBlockUnits} * kUnit,
              "an entry fits every block");

/// A place taken apart: a block, and the units in it that come before.
struct Position {
    std::uint32_t block;
    std::uint32_t units;
};

Position PositionOf(std::uint32_t place) {
    const std::uint32_t number = place - 1 + kFirstBlockUnits;
    const auto block =
        static_cast<std::uint32_t>(std::bit_width(number) - std::bit_width(kFirstBlockUnits));
    return {.block = block, .units = number - (kFirstBlockUnits << block)};
}

std::uint32_t UnitsOfBlock(std::uint32_t block) {
    return kFirstBlockUnits << block;
}

}  // namespace

Dictionary::~Dictionary() {
    for (char* block : blocks_) {
        std::free(block);
    }
}

bool Dictionary::Create() {
    return GrowTable(kFirstSlots);
}

Dictionary::Entry* Dictionary::EntryAt(std::uint32_t place) const {
    const Position position = PositionOf(place);
    void* at = blocks_[position.block] + std::size_t{position.units} * kUnit;
    return static_cast<Entry*>(at);
}

/// The slot of `key`, or the free one that it would take.
Dictionary::Slot* Dictionary::FindSlot(const FoldedKey& key, std::uint32_t hash) const {
    const std::uint32_t mask = size_ - 1;
    for (std::uint32_t at = hash & mask;; at = (at + 1) & mask) {
        Slot* slot = slots_.get() + at;
        if (slot->place == 0) {
            return slot;
        }
        if (slot->hash == hash) {
            Entry* entry = EntryAt(slot->place);
            if (key.Is(entry->Key(), entry->keyLength)) {
                return slot;
            }
        }
    }
}

bool Dictionary::GrowTable(std::uint32_t slots) {
    std::unique_ptr<Slot, FreeDeleter> grown(static_cast<Slot*>(std::calloc(slots, sizeof(Slot))));
    if (grown == nullptr) {
        return false;
    }
    const std::uint32_t mask = slots - 1;
    for (std::uint32_t i = 0; i < size_; ++i) {
        const Slot& slot = slots_.get()[i];
        if (slot.place != 0) {
            std::uint32_t at = slot.hash & mask;
            while (grown.get()[at].place != 0) {
                at = (at + 1) & mask;
            }
            grown.get()[at] = slot;
        }
    }
    slots_ = std::move(grown);
    size_ = slots;
    return true;
}

/// Finds room for an entry of `bytes` behind the last one. Returns its place, or 0 when memory runs
/// out.
std::uint32_t Dictionary::ReserveEntry(std::size_t bytes) {
    const std::uint32_t units = static_cast<std::uint32_t>((bytes + kUnit - 1) / kUnit);
    Position position = PositionOf(nextPlace_);
    if (position.units + units > UnitsOfBlock(position.block)) {
        nextPlace_ += UnitsOfBlock(position.block) - position.units;
        position = PositionOf(nextPlace_);
    }
    if (position.block == kBlockCount) {
        return 0;
    }
    char*& block = blocks_[position.block];
    if (block == nullptr) {
        block = static_cast<char*>(std::malloc(std::size_t{UnitsOfBlock(position.block)} * kUnit));
        if (block == nullptr) {
            return 0;
        }
    }
    const std::uint32_t place = nextPlace_;
    nextPlace_ += units;
    return place;
}

bool Dictionary::Set(const FoldedKey& key, std::string_view value) {
    const std::size_t keyLength = key.Text().size();
    if (value.size() > kValueMax || (used_ == size_ / 4 * 3 && !GrowTable(2 * size_))) {
        return false;
    }
    const std::uint32_t place =
        ReserveEntry(sizeof(Entry) + StoredKeySize(keyLength) + value.size() + 1);
    if (place == 0) {
        return false;
    }
    Entry* entry = EntryAt(place);
    *entry = {.keyLength = static_cast<std::uint16_t>(keyLength),
              .valueLength = value.data() == nullptr ? Entry::kNoValue
                                                     : static_cast<std::uint16_t>(value.size())};
    key.Store(entry->Key());
    CopyText(entry->Value(), value.data(), value.size());
    entry->Value()[value.size()] = '\0';

    const std::uint32_t hash = key.Hash();
    Slot* slot = FindSlot(key, hash);
    used_ += slot->place == 0 ? 1 : 0;
    *slot = {.hash = hash, .place = place};
    return true;
}

const char* Dictionary::Get(const FoldedKey& key, const char* defaultValue) const {
    const Slot* slot = FindSlot(key, key.Hash());
    if (slot->place == 0) {
        return defaultValue;
    }
    Entry* entry = EntryAt(slot->place);
    return entry->valueLength == Entry::kNoValue ? nullptr : entry->Value();
}

}  // namespace paramgen
