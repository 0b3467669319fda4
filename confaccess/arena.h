/// Arena: memory that is freed all at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace paramgen {

/// Allocates pieces of memory that live as long as the arena. A configuration consists of many
/// pieces of different sizes that are allocated one after the other and freed together; cutting
/// them from large chunks saves calls of malloc and touches fewer pages.
class Arena {
public:
    Arena() = default;
    /// An arena that cuts its first pieces from `memory`, which must be aligned for any number.
    /// These pieces are not zeroed.
    explicit Arena(std::span<char> memory)
        : at_(memory.data()), left_(memory.size() / 8 * 8), mapped_(at_ + left_) {}
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Returns a zeroed piece of `size` bytes, at least 1, aligned for any number; null when memory
    /// runs out. `size` has 64 bits on every machine, so that sums of sizes do not overflow.
    void* Take(std::uint64_t size);

    /// Shrinks `piece`, the last one returned, to `size` bytes. The bytes behind must still be
    /// zero.
    void KeepOfLast(const void* piece, std::size_t size);

private:
    /// Header of a chunk of memory from the system.
    struct alignas(8) Chunk {
        Chunk* next;
        std::size_t size;
    };

public:
    /// A state of the arena to go back to.
    struct Mark {
        Chunk* chunks;
        char* at;
        std::size_t left;
    };
    Mark Now() const { return {.chunks = chunks_, .at = at_, .left = left_}; }

    /// Frees all pieces that were allocated after `mark`.
    void BackTo(const Mark& mark);

private:
    static constexpr std::size_t kChunkSize = std::size_t{64} * 1024 - sizeof(Chunk);

    char* NewChunk(std::size_t size);
    void MapPages();
    void FreeChunksUpTo(const Chunk* last);

    Chunk* chunks_ = nullptr;
    char* at_ = nullptr;  ///< the unused rest of the current chunk
    std::size_t left_ = 0;
    char* mapped_ = nullptr;  ///< up to where the current chunk's pages were mapped ahead of use
    char* last_ = nullptr;    ///< the last piece, if it was cut from there
};

}  // namespace paramgen
