#include "fault/confaccess/faults.h"

#include <sys/mman.h>
#include <sys/types.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>

namespace paramgen::testing {
namespace {

struct Plan {
    bool watching;
    Fault fault;
    int callsLeft;  ///< calls up to the failing one; 0 after it
    int held;
};

Plan g_plan = {};

/// Largest number of bytes that one call reads.
constexpr std::size_t kPieceSize = 10'000;

/// Counts a call of one kind. Returns whether it must fail.
bool Fails(Fault fault) {
    if (!g_plan.watching || g_plan.fault != fault || g_plan.callsLeft == 0) {
        return false;
    }
    return --g_plan.callsLeft == 0;
}

template <typename Thing>
Thing* Taken(Thing* thing) {
    g_plan.held += g_plan.watching && thing != nullptr ? 1 : 0;
    return thing;
}

void GivenBack(const void* thing) {
    g_plan.held -= g_plan.watching && thing != nullptr ? 1 : 0;
}

}  // namespace

FaultWatch::FaultWatch(Fault fault, int number) {
    g_plan = {.watching = true, .fault = fault, .callsLeft = number, .held = 0};
}

FaultWatch::~FaultWatch() {
    g_plan = {};
}

bool FaultWatch::Happened() const {
    return g_plan.callsLeft == 0;
}

int FaultWatch::Held() const {
    return g_plan.held;
}

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
char* __real_strdup(const char* text);
void __real_free(void* memory);
void* __real_mmap(void* address, std::size_t size, int protection, int flags, int file,
                  off_t offset);
int __real_munmap(void* memory, std::size_t size);
int __real_madvise(void* memory, std::size_t size, int advice);
int __real_open(const char* path, int flags, ...);
int __real_close(int file);
ssize_t __real_pread(int file, void* bytes, std::size_t size, off_t offset);

void* __wrap_malloc(std::size_t size) {
    return Fails(Fault::kAllocation) ? nullptr : Taken(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Fails(Fault::kAllocation) ? nullptr : Taken(__real_calloc(count, size));
}

void* __wrap_realloc(void* memory, std::size_t size) {
    if (Fails(Fault::kAllocation)) {
        return nullptr;
    }
    GivenBack(memory);
    return Taken(__real_realloc(memory, size));
}

char* __wrap_strdup(const char* text) {
    return Fails(Fault::kAllocation) ? nullptr : Taken(__real_strdup(text));
}

void __wrap_free(void* memory) {
    GivenBack(memory);
    __real_free(memory);
}

void* __wrap_mmap(void* address, std::size_t size, int protection, int flags, int file,
                  off_t offset) {
    if (Fails(Fault::kAllocation)) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    return Taken(__real_mmap(address, size, protection, flags, file, offset));
}

int __wrap_munmap(void* memory, std::size_t size) {
    GivenBack(memory);
    return __real_munmap(memory, size);
}

int __wrap_madvise(void* memory, std::size_t size, int advice) {
    if (Fails(Fault::kAdvice)) {
        errno = EINVAL;
        return -1;
    }
    return __real_madvise(memory, size, advice);
}

int __wrap_open(const char* path, int flags, ...) {
    if (Fails(Fault::kOpen)) {
        errno = ENOENT;
        return -1;
    }
    const int file = __real_open(path, flags);
    g_plan.held += g_plan.watching && file != -1 ? 1 : 0;
    return file;
}

int __wrap_close(int file) {
    g_plan.held -= g_plan.watching ? 1 : 0;
    return __real_close(file);
}

ssize_t __wrap_pread(int file, void* bytes, std::size_t size, off_t offset) {
    if (Fails(Fault::kRead)) {
        errno = EIO;
        return -1;
    }
    // Short reads, as devices may give them.
    return __real_pread(file, bytes, size > kPieceSize ? kPieceSize : size, offset);
}

// Mangled names of the wrapped functions, on hosts where std::size_t is unsigned long.

int __real__ZN8paramgen11FormatPlainEPcmPKcmP13__va_list_tag(char* text, std::size_t size,
                                                             const char* format, std::size_t length,
                                                             std::va_list args);

int __wrap__ZN8paramgen11FormatPlainEPcmPKcmP13__va_list_tag(char* text, std::size_t size,
                                                             const char* format, std::size_t length,
                                                             std::va_list args) {
    return Fails(Fault::kFormat) ? -1
                                 : __real__ZN8paramgen11FormatPlainEPcmPKcmP13__va_list_tag(
                                       text, size, format, length, args);
}

std::int32_t __real__ZN8paramgen21CONFACCESS_GetDirNameEPKcPcm(const char* path, char* directory,
                                                               std::size_t size);

std::int32_t __wrap__ZN8paramgen21CONFACCESS_GetDirNameEPKcPcm(const char* path, char* directory,
                                                               std::size_t size) {
    if (Fails(Fault::kDirName)) {
        return static_cast<std::int32_t>(0xA1418041U);
    }
    return __real__ZN8paramgen21CONFACCESS_GetDirNameEPKcPcm(path, directory, size);
}

}  // extern "C"

}  // namespace paramgen::testing
