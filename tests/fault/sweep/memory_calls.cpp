// Calls for memory that can be made to fail.

#include <sys/mman.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include "fault/sweep/observed.h"

namespace paramgen::testing {

extern "C" {

// The memory functions below replace libc's. They call these: the sanitizer's when there is one,
// else libc's own.
[[gnu::weak]] void* __interceptor_malloc(std::size_t size);
[[gnu::weak]] void* __interceptor_calloc(std::size_t count, std::size_t size);
[[gnu::weak]] void* __interceptor_realloc(void* memory, std::size_t size);
[[gnu::weak]] void __interceptor_free(void* memory);
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);

static void* OutOfMemory() {
    errno = ENOMEM;
    return nullptr;
}

void* malloc(std::size_t size) {
    if (Fails(Kind::kAllocation)) {
        return OutOfMemory();
    }
    return Taken(__interceptor_malloc != nullptr ? __interceptor_malloc(size)
                                                 : __libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    if (Fails(Kind::kAllocation)) {
        return OutOfMemory();
    }
    return Taken(__interceptor_calloc != nullptr ? __interceptor_calloc(count, size)
                                                 : __libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size) {
    if (Fails(Kind::kAllocation)) {
        return OutOfMemory();
    }
    GivenBack(memory);
    return Taken(__interceptor_realloc != nullptr ? __interceptor_realloc(memory, size)
                                                  : __libc_realloc(memory, size));
}

void free(void* memory) {
    GivenBack(memory);
    __interceptor_free != nullptr ? __interceptor_free(memory) : __libc_free(memory);
}

char* strdup(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    void* copy = malloc(size);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

void* __real_mmap(void* address, std::size_t size, int protection, int flags, int file,
                  off_t offset);
int __real_munmap(void* memory, std::size_t size);

void* __wrap_mmap(void* address, std::size_t size, int protection, int flags, int file,
                  off_t offset) {
    return Fails(Kind::kAllocation)
               ? (OutOfMemory(), MAP_FAILED)
               : Taken(__real_mmap(address, size, protection, flags, file, offset));
}

int __wrap_munmap(void* memory, std::size_t size) {
    GivenBack(memory);
    return __real_munmap(memory, size);
}

}  // extern "C"

}  // namespace paramgen::testing
