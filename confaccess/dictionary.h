/// Dictionary: the keys and values of one INI file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace paramgen {

/// Frees what malloc gave.
struct FreeDeleter {
    void operator()(void* memory) const;
};

/// Maps keys to values, where a value may be null: the mark of a section. It owns copies of all of
/// them. Inserting and looking up take constant time on average, whatever the number of keys.
///
/// Slots stand in the order in which their keys first came; an index of open addressing over the
/// keys' hashes finds them. Texts live in large blocks, released together: a value that is replaced
/// stays there, unused, until then.
class Dictionary {
public:
    static constexpr std::uint32_t kInitialSlots = 128;

    Dictionary() = default;
    ~Dictionary();
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    /// Makes room for the first keys. Returns false when memory runs out; the dictionary may then
    /// only be destroyed.
    [[nodiscard]] bool Create();

    /// Gives `key` a copy of `value`, which may be null, in place of what it had. Returns false
    /// when memory runs out; the dictionary then holds what it held before.
    [[nodiscard]] bool Set(const char* key, const char* value);

    /// The value of `key`, which is null for a section, or `defaultValue` when there is no such
    /// key. Keys are compared as they are.
    const char* Get(const char* key, const char* defaultValue) const;

    /// The number of keys.
    std::uint32_t Count() const { return used_; }

    /// The hash of a key.
    static std::uint32_t Hash(const char* key);

private:
    struct Slot {
        const char* key;
        const char* value;
        std::uint32_t hash;
    };
    struct Block;

    /// An index entry holds a slot's number plus 1, or 0 when it is free.
    std::uint32_t* FindIndex(const char* key, std::uint32_t hash) const;
    bool Grow(std::uint32_t slots);
    const char* CopyText(const char* text);

    std::unique_ptr<Slot, FreeDeleter> slots_;
    std::unique_ptr<std::uint32_t, FreeDeleter> index_;
    std::uint32_t size_ = 0;  ///< number of slots, a power of two; the index has twice as many
    std::uint32_t used_ = 0;
    Block* blocks_ = nullptr;
};

}  // namespace paramgen
