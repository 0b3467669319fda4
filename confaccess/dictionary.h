/// Dictionary: the keys and values of one INI file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "confaccess/arena.h"

namespace paramgen {

/// Maps keys, in any case, to values, where a value may be null: the mark of a section.
///
/// First comes a record for each line of the file, one behind the other, then, with `Finish`, a
/// table of open addressing that tells where the record of a hash is. A record begins with what a
/// comparison needs and holds name and value, so that looking up reads a slot and a record. It
/// takes constant time on average, whatever the number of keys.
class Dictionary {
public:
    /// The most characters of a name.
    static constexpr std::size_t kNameMax = 1024;

    /// Makes room for a key on each line of `text`. The dictionary lives in `arena`, and as long as
    /// it; the last piece taken from that is the dictionary's until `Finish`. Returns false when
    /// memory runs out; the dictionary is then of no use.
    [[nodiscard]] bool Create(std::string_view text, Arena* arena);

    /// Makes `name` a key of its own, without a value, and begins a section.
    void AddSection(std::string_view name);

    /// Gives the key "section:name" a value. Before the first section its name is empty.
    ///
    /// Of this and of `AddSection` there may be one call for each line of the text, with no more
    /// characters than the line has.
    void AddValue(std::string_view name, std::string_view value);

    /// Has keys found from now on. Where a key came twice, the last one counts. Returns what
    /// `Create` does, and false when there was no room for a line.
    [[nodiscard]] bool Finish(Arena* arena);

    /// The value of `key`, in any case; null for a section, and `defaultValue` when there is no
    /// such key. Not to be called by two threads at once.
    const char* Get(std::string_view key, const char* defaultValue) const;

    /// The number of keys.
    std::uint32_t Count() const { return count_; }

    /// How many slots are looked at to find `key` by its hash.
    std::uint32_t ProbesFor(std::string_view key) const;

private:
    struct Record;

    /// Where a key's record is, see `RecordIn`, in the low bits, as many as the last one takes;
    /// above it those of the key's hash, by which most other keys are told apart. 0: the slot is
    /// free.
    using Slot = std::uint32_t;

    Record* RecordAt(std::uint32_t place) const;
    std::uint32_t PlaceIn(Slot slot) const;
    void Add(std::string_view name, std::string_view value);
    bool IsKeyAt(std::uint32_t place, std::string_view key) const;
    Slot* FindSlot(std::string_view key, std::uint32_t hash) const;
    void Index(std::uint32_t place, std::string_view key);

    char* records_ = nullptr;
    std::size_t room_ = 0;  ///< for records, in bytes
    bool isFull_ = false;   ///< a record did not fit
    Slot* slots_ = nullptr;
    std::uint32_t end_ = 0;      ///< of the records, in bytes, as all places are
    std::uint32_t section_ = 0;  ///< the place of the present section's record
    std::uint32_t recordCount_ = 0;
    std::uint32_t slotMask_ = 0;   ///< the number of slots, a power of two, less 1
    std::uint32_t placeMask_ = 0;  ///< the bits of a slot that are a record's place
    std::uint32_t count_ = 0;      ///< of keys

    /// The place behind the record that was found last. Loaders mostly ask in the order in which a
    /// file has its keys, so that two of three look-ups need no hash.
    mutable std::uint32_t next_ = 0;
};

}  // namespace paramgen
