/// Dictionary: the keys and values of one INI file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "confaccess/text_file.h"

namespace paramgen {

/// Maps keys, in any case, to values, where a value may be null: the mark of a section.
///
/// All of them stand in the file's text, and none is copied: an entry tells where in the text its
/// key and value are, and a table of open addressing where the entry of a hash is. Looking up takes
/// constant time on average, whatever the number of keys.
class Dictionary {
public:
    /// Makes room for a key on each line of `text`. Text and dictionary live in `arena`, and as
    /// long as it. Returns false when memory runs out; the dictionary is then of no use.
    [[nodiscard]] bool Create(const Text& text, Arena* arena);

    /// The text; what is put into the dictionary are parts of it.
    std::string_view TextView() const { return text_.View(); }

    /// Makes `section`, a part of the text, a key of its own, without a value.
    void SetSection(std::string_view section);

    /// Gives `key` a value, in place of what it had. The key is "section:name"; section, name and
    /// value are parts of the text, and what stands right behind the value there is overwritten.
    ///
    /// Of this and of `SetSection` there may be one call for each line of the text.
    void SetValue(std::string_view key, std::string_view section, std::string_view name,
                  std::string_view value);

    /// The value of `key`, in any case; null for a section, and `defaultValue` when there is no
    /// such key. Not to be called by two threads at once.
    const char* Get(std::string_view key, const char* defaultValue) const;

    /// The number of keys.
    std::uint32_t Count() const { return count_; }

    /// How many slots are looked at to find `key` by its hash.
    std::uint32_t ProbesFor(std::string_view key) const;

private:
    struct Entry;

    /// The number of a key's entry, from 1 on, in the low bits, as many as the largest takes; above
    /// it those of the key's hash, by which most other keys are told apart. 0: the slot is free.
    using Slot = std::uint32_t;

    Entry* EntryOf(Slot slot) const;
    std::uint32_t PlaceOf(std::string_view part) const;
    bool IsKeyOf(const Entry& entry, std::string_view key) const;
    Slot* FindSlot(std::string_view key, std::uint32_t hash) const;
    void Set(std::string_view key, const Entry& entry);

    Text text_;
    Slot* slots_ = nullptr;
    Entry* entries_ = nullptr;
    std::uint32_t slotMask_ = 0;    ///< the number of slots, a power of two, less 1
    std::uint32_t numberMask_ = 0;  ///< the bits of a slot that are an entry's number
    std::uint32_t count_ = 0;       ///< of keys and entries

    /// The entry behind the one that was found last, counted from 0. Loaders mostly ask in the
    /// order in which a file has its keys, so that two of three look-ups need no hash.
    mutable std::uint32_t next_ = 0;
};

}  // namespace paramgen
