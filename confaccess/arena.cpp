#include "confaccess/arena.h"

#include <cstdint>
#include <cstdlib>

namespace paramgen {

Arena::~Arena() {
    while (chunks_ != nullptr) {
        Chunk* next = chunks_->next;
        std::free(chunks_);
        chunks_ = next;
    }
}

/// Returns `size` new bytes behind a chunk's head, or null.
char* Arena::NewChunk(std::uint64_t size) {
    Chunk* chunk =
        size > SIZE_MAX - sizeof(Chunk)
            ? nullptr
            : static_cast<Chunk*>(std::calloc(1, sizeof(Chunk) + static_cast<std::size_t>(size)));
    if (chunk == nullptr) {
        return nullptr;
    }
    chunk->next = chunks_;
    chunks_ = chunk;
    return reinterpret_cast<char*>(chunk + 1);
}

void* Arena::Take(std::uint64_t size) {
    if (size > kChunkSize / 4) {
        return NewChunk(size);  // the rest of the present one serves smaller pieces
    }
    const std::size_t taken =
        (static_cast<std::size_t>(size) + alignof(Chunk) - 1) / alignof(Chunk) * alignof(Chunk);
    if (taken > left_) {
        char* chunk = NewChunk(kChunkSize);
        if (chunk == nullptr) {
            return nullptr;
        }
        at_ = chunk;
        left_ = kChunkSize;
    }
    char* piece = at_;
    at_ += taken;
    left_ -= taken;
    return piece;
}

}  // namespace paramgen
