/// Dictionary: the keys and values of one INI file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "confaccess/folded_key.h"

namespace paramgen {

/// Frees what malloc gave.
struct FreeDeleter {
    void operator()(void* memory) const;
};

/// Maps keys to values, where a value may be null: the mark of a section. It owns copies of all of
/// them. Inserting and looking up take constant time on average, whatever the number of keys.
///
/// Keys and values stand one behind the other, as they came, in few large blocks that never move; a
/// value that is replaced stays there, unused. A table of open addressing tells where the entry of
/// a hash is. Together they take about twice the room of the texts.
class Dictionary {
public:
    /// The table's first size, enough for three quarters as many keys.
    static constexpr std::uint32_t kFirstSlots = 256;

    /// The most characters of a value.
    static constexpr std::size_t kValueMax = 4000;

    Dictionary() = default;
    ~Dictionary();
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    /// Makes room for the first keys. Returns false when memory runs out; the dictionary may then
    /// only be destroyed.
    [[nodiscard]] bool Create();

    /// Gives `key` a copy of `value`, in place of what it had; a value without data is null.
    /// Returns false when memory runs out or the value is too long; the dictionary then holds what
    /// it held before.
    [[nodiscard]] bool Set(const FoldedKey& key, std::string_view value);

    /// The value of `key`, which is null for a section, or `defaultValue` when there is no such
    /// key.
    const char* Get(const FoldedKey& key, const char* defaultValue) const;

    /// The number of keys.
    std::uint32_t Count() const { return used_; }

private:
    struct Entry;

    /// Where the entry of a key stands; place 0 is nowhere.
    struct Slot {
        std::uint32_t hash;
        std::uint32_t place;
    };

    // A place counts entries' units from 1. Block number n holds 2^n times what block 0 holds, so
    // that a place tells its block.
    static constexpr std::uint32_t kBlockCount = 20;

    Entry* EntryAt(std::uint32_t place) const;
    Slot* FindSlot(const FoldedKey& key, std::uint32_t hash) const;
    bool GrowTable(std::uint32_t slots);
    std::uint32_t ReserveEntry(std::size_t bytes);

    std::unique_ptr<Slot, FreeDeleter> slots_;
    std::uint32_t size_ = 0;  ///< number of slots, a power of two
    std::uint32_t used_ = 0;
    std::uint32_t nextPlace_ = 1;  ///< of the entry that comes next, if its block has room
    char* blocks_[kBlockCount] = {};
};

}  // namespace paramgen
