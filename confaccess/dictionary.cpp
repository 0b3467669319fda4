#include "confaccess/dictionary.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace paramgen {

void FreeDeleter::operator()(void* memory) const {
    std::free(memory);
}

/// A piece of memory that texts are laid into, one after the other.
struct Dictionary::Block {
    Block* next;
    std::size_t size;  ///< bytes for texts, after this head
    std::size_t used;

    char* Texts() { return reinterpret_cast<char*>(this + 1); }
};

namespace {

constexpr std::size_t kFirstBlockSize = std::size_t{4} * 1024;
constexpr std::size_t kBlockSizeMax = std::size_t{256} * 1024;

}  // namespace

Dictionary::~Dictionary() {
    while (blocks_ != nullptr) {
        Block* next = blocks_->next;
        std::free(blocks_);
        blocks_ = next;
    }
}

bool Dictionary::Create() {
    return Grow(kInitialSlots);
}

std::uint32_t Dictionary::Hash(const char* key) {
    std::uint32_t hash = 0;
    for (; *key != '\0'; ++key) {
        hash += static_cast<unsigned char>(*key);
        hash += hash << 10;
        hash ^= hash >> 6;
    }
    hash += hash << 3;
    hash ^= hash >> 11;
    hash += hash << 15;
    return hash;
}

std::uint32_t* Dictionary::FindIndex(const char* key, std::uint32_t hash) const {
    std::uint32_t* index = index_.get();
    const std::uint32_t mask = 2 * size_ - 1;
    for (std::uint32_t at = hash & mask;; at = (at + 1) & mask) {
        if (index[at] == 0) {
            return &index[at];
        }
        const Slot& slot = slots_.get()[index[at] - 1];
        if (slot.hash == hash && std::strcmp(slot.key, key) == 0) {
            return &index[at];
        }
    }
}

bool Dictionary::Grow(std::uint32_t slots) {
    // The index first: when the slots then find no memory, the old ones still stand.
    std::unique_ptr<std::uint32_t, FreeDeleter> index(
        static_cast<std::uint32_t*>(std::calloc(std::size_t{2} * slots, sizeof(std::uint32_t))));
    if (index == nullptr) {
        return false;
    }
    Slot* moved = static_cast<Slot*>(std::malloc(std::size_t{slots} * sizeof(Slot)));
    if (moved == nullptr) {
        return false;
    }
    if (used_ != 0) {
        std::memcpy(moved, slots_.get(), used_ * sizeof(Slot));
    }
    slots_.reset(moved);
    index_ = std::move(index);
    size_ = slots;
    const std::uint32_t mask = 2 * size_ - 1;
    for (std::uint32_t number = 0; number < used_; ++number) {
        std::uint32_t at = moved[number].hash & mask;
        while (index_.get()[at] != 0) {
            at = (at + 1) & mask;
        }
        index_.get()[at] = number + 1;
    }
    return true;
}

const char* Dictionary::CopyText(const char* text) {
    const std::size_t length = std::strlen(text) + 1;
    if (blocks_ == nullptr || blocks_->size - blocks_->used < length) {
        std::size_t size = kFirstBlockSize;
        if (blocks_ != nullptr) {
            size = blocks_->size < kBlockSizeMax ? 2 * blocks_->size : kBlockSizeMax;
        }
        size = size < length ? length : size;
        Block* block = static_cast<Block*>(std::malloc(sizeof(Block) + size));
        if (block == nullptr) {
            return nullptr;
        }
        *block = {.next = blocks_, .size = size, .used = 0};
        blocks_ = block;
    }
    char* copy = blocks_->Texts() + blocks_->used;
    std::memcpy(copy, text, length);
    blocks_->used += length;
    return copy;
}

bool Dictionary::Set(const char* key, const char* value) {
    const char* valueCopy = value == nullptr ? nullptr : CopyText(value);
    if (value != nullptr && valueCopy == nullptr) {
        return false;
    }
    const std::uint32_t hash = Hash(key);
    std::uint32_t* index = FindIndex(key, hash);
    if (*index != 0) {
        slots_.get()[*index - 1].value = valueCopy;
        return true;
    }
    if (used_ == size_) {
        if (!Grow(2 * size_)) {
            return false;
        }
        index = FindIndex(key, hash);
    }
    const char* keyCopy = CopyText(key);
    if (keyCopy == nullptr) {
        return false;
    }
    slots_.get()[used_] = {.key = keyCopy, .value = valueCopy, .hash = hash};
    *index = ++used_;
    return true;
}

const char* Dictionary::Get(const char* key, const char* defaultValue) const {
    const std::uint32_t index = *FindIndex(key, Hash(key));
    return index == 0 ? defaultValue : slots_.get()[index - 1].value;
}

}  // namespace paramgen
