/// Dictionary: the keys and values of one INI file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "confaccess/arena.h"

namespace paramgen {

/// Maps case-insensitive keys to values. The value of a section is null.
///
/// First a record with name and value is appended for each line of the file; then `Finish` builds a
/// hash table with open addressing. It has the sections alone where all of them have few keys, as
/// in every ordinary file: a look-up then reads a slot, and the records of one section, side by
/// side. In any other file it has all keys. Looking up takes constant time on average.
class Dictionary {
public:
    /// The maximal length of a name.
    static constexpr std::size_t kNameMax = 1024;

    /// Allocates records for all lines of `text` in `arena`, where the dictionary lives. Until
    /// `Finish` nothing else may be allocated in the arena. Returns false when memory runs out; the
    /// dictionary is then unusable.
    [[nodiscard]] bool Create(std::string_view text, Arena* arena);

    /// Adds the key `name`, without a value, and makes it the current section.
    void AddSection(std::string_view name);

    /// Adds "section:name" with a value. The name of the current section is empty at first.
    ///
    /// There may be one call of this or of `AddSection` for each line of the text, with no more
    /// characters than the line has.
    void AddValue(std::string_view name, std::string_view value);

    /// Builds the hash table; keys can be found from now on. Where a key was added twice, the last
    /// value counts. Returns false when memory runs out or a line did not fit.
    [[nodiscard]] bool Finish(Arena* arena);

    /// Returns the value of `key`, which is null for a section, or `defaultValue` when there is no
    /// such key. Not to be called by two threads at once.
    const char* FindText(std::string_view key, const char* defaultValue) const;

    /// The number of keys.
    std::uint32_t Count() const { return count_; }

    /// Returns how many slots a look-up of `key` by its hash reads.
    std::uint32_t ProbesFor(std::string_view key) const;

private:
    struct Record;

    /// The low bits are the place of a key's record, in units of 4 bytes. The others are bits of
    /// the key's hash, which rule out most other keys without a comparison. 0: the slot is free.
    using Slot = std::uint32_t;

    Record* RecordAt(std::uint32_t place) const;
    std::uint32_t PlaceIn(Slot slot) const;
    void Add(std::string_view name, std::string_view value);
    bool IsKeyAt(std::uint32_t place, std::string_view key) const;
    Slot* FindSlot(std::string_view key, std::uint32_t hash) const;
    bool NewSlots(std::uint32_t keys, Arena* arena);
    bool Index(std::uint32_t place, std::string_view key);
    bool IndexKeys();
    bool IndexSections();
    bool IsNamed(std::uint32_t place, std::string_view name) const;
    std::uint32_t FindSection(std::string_view name) const;
    void FetchSection(std::uint32_t section) const;
    std::uint32_t FindInSection(std::uint32_t section, std::uint32_t end,
                                std::string_view name) const;
    std::uint32_t FindBySection(std::string_view key) const;

    char* records_ = nullptr;
    std::size_t room_ = 0;  ///< for records, in bytes
    bool isFull_ = false;   ///< a record did not fit
    Slot* slots_ = nullptr;
    std::uint32_t end_ = 0;      ///< end of the records; places are in bytes from their start
    std::uint32_t section_ = 0;  ///< place of the current section's record
    std::uint32_t recordCount_ = 0;
    std::uint32_t slotMask_ = 0;   ///< the number of slots, a power of two, less 1
    std::uint32_t placeMask_ = 0;  ///< the bits of a slot that are a record's place
    std::uint32_t count_ = 0;      ///< of keys
    std::uint32_t sectionCount_ = 0;
    bool hasSectionIndex_ = false;  ///< the hash table is of the sections alone, not of all keys

    /// Place of the record behind the one found last. Loaders mostly read keys in the order of the
    /// file, so that two of three look-ups find their key here without a hash.
    mutable std::uint32_t next_ = 0;
};

}  // namespace paramgen
