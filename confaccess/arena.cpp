#include "confaccess/arena.h"

#include <sys/mman.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace paramgen {
namespace {

/// Rounds a size up, so that the next piece is aligned.
std::size_t Aligned(std::size_t size) {
    constexpr std::size_t kAlignment = 8;
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

/// Advises the kernel on memory. One that cannot follow is no error, and `errno` stays as it is:
/// conversions of numbers depend on what earlier ones left in it.
void Advise(void* memory, std::size_t size, int advice) {
    const int before = errno;
    static_cast<void>(madvise(memory, size, advice));
    errno = before;
}

}  // namespace

Arena::~Arena() {
    FreeChunksUpTo(nullptr);
}

/// Frees the chunks that are newer than `last`.
void Arena::FreeChunksUpTo(const Chunk* last) {
    while (chunks_ != last) {
        Chunk* next = chunks_->next;
        munmap(chunks_, chunks_->size);
        chunks_ = next;
    }
}

void Arena::BackTo(const Mark& mark) {
    // Zero the memory that was used after the mark. If another chunk was begun since, that may be
    // all of the rest of this chunk.
    const bool isSameChunk = at_ + left_ == mark.at + mark.left;
    FreeChunksUpTo(mark.chunks);
    if (mark.left != 0) {
        std::memset(mark.at, 0, isSameChunk ? mark.left - left_ : mark.left);
    }
    at_ = mark.at;
    left_ = mark.left;
    mapped_ = at_ + left_;  // the rest is mapped when it is touched
}

/// Allocates a chunk and returns the `size` bytes behind its header; null when memory runs out.
char* Arena::NewChunk(std::size_t size) {
    constexpr std::size_t kHugePage = std::size_t{2} * 1024 * 1024;
    const std::size_t whole = sizeof(Chunk) + size;
    void* memory = mmap(nullptr, whole, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return nullptr;
    }
    if (sizeof(void*) >= 8 && whole >= kHugePage) {
        // Look-ups all over a large dictionary need not find each of its pages. On a machine of 32
        // bits size counts more.
        Advise(memory, whole, MADV_HUGEPAGE);
    }
    Chunk* chunk = static_cast<Chunk*>(memory);
    *chunk = {.next = chunks_, .size = whole};
    chunks_ = chunk;
    return reinterpret_cast<char*>(chunk + 1);
}

/// Maps the current chunk's pages up to the end of the last piece and some more, many at once: that
/// costs less than a page fault for each. A kernel that cannot do this maps them one by one.
void Arena::MapPages() {
    constexpr int kPopulateWrite = 23;  // since Linux 5.14; not in musl's headers
    constexpr std::size_t kAtOnce = std::size_t{16} * 1024;
    const std::size_t missing = static_cast<std::size_t>(at_ - mapped_);
    const std::size_t size = (missing + kAtOnce - 1) / kAtOnce * kAtOnce;
    Advise(mapped_, size, kPopulateWrite);
    mapped_ += size;
}

void* Arena::Take(std::uint64_t size) {
    last_ = nullptr;
    if (size > SIZE_MAX / 2) {  // more than any system has; the sums below cannot overflow
        return nullptr;
    }
    const std::size_t taken = Aligned(static_cast<std::size_t>(size));
    if (taken > left_ && taken > kChunkSize / 4) {
        return NewChunk(taken);  // the rest of the current chunk remains for smaller pieces
    }
    if (taken > left_) {
        char* chunk = NewChunk(kChunkSize);
        if (chunk == nullptr) {
            return nullptr;
        }
        at_ = chunk;
        left_ = kChunkSize;
        mapped_ = chunk - sizeof(Chunk);
    }
    last_ = at_;
    at_ += taken;
    left_ -= taken;
    if (at_ > mapped_) {
        MapPages();
    }
    return last_;
}

void Arena::KeepOfLast(const void* piece, std::size_t size) {
    if (piece == last_) {
        char* end = last_ + Aligned(size);
        left_ += static_cast<std::size_t>(at_ - end);
        at_ = end;
    }
}

}  // namespace paramgen
