/// Memory that is given back all at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace paramgen {

/// Gives out pieces of memory that live as long as the arena, the last of them not quite as long if
/// they turn out to be of no use.
///
/// What is registered is made of many pieces of many sizes that come once and go together. Cut from
/// one large piece they cost no call of malloc each, and touch hardly more pages than they fill.
class Arena {
public:
    Arena() = default;
    /// An arena whose first pieces are cut from `memory`, aligned for any number, as long as it
    /// lasts. These are not zeros.
    explicit Arena(std::span<char> memory) : at_(memory.data()), left_(memory.size() / 8 * 8) {}
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// A piece of `size` bytes, at least 1 (64 bits even where addresses have 32, so that no sum is
    /// too large), all of them 0, aligned for any number; null when memory runs out.
    void* Take(std::uint64_t size);

    /// Takes back the end of `piece`, the last that was given out: all but `size` bytes. They are
    /// zeros still.
    void KeepOfLast(const void* piece, std::size_t size);

private:
    /// The head of a piece of memory that the system gave.
    struct alignas(8) Chunk {
        Chunk* next;
        std::size_t size;
    };

public:
    /// How much has been given out at some time.
    struct Mark {
        Chunk* chunks;
        char* at;
        std::size_t left;
    };
    Mark Now() const { return {.chunks = chunks_, .at = at_, .left = left_}; }

    /// Takes back all pieces that were given out after `mark`.
    void BackTo(const Mark& mark);

private:
    static constexpr std::size_t kChunkSize = std::size_t{64} * 1024 - sizeof(Chunk);

    char* NewChunk(std::uint64_t size, int flags);
    void FreeChunksUpTo(const Chunk* last);

    Chunk* chunks_ = nullptr;
    char* at_ = nullptr;  ///< what is left of the chunk that pieces are cut from
    std::size_t left_ = 0;
    char* last_ = nullptr;  ///< the last piece, if it was cut from there
};

}  // namespace paramgen
