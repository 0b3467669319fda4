#include "fault/confaccess/faults.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace paramgen::testing {
namespace {

struct Plan {
    bool watching;
    Fault fault;
    int callsLeft;  ///< 0 when the failing call has come
    int held;
    std::FILE* failedFile;
};

Plan g_plan = {};

/// Counts a call of one kind. Returns whether it is the one to fail.
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
    g_plan = {.watching = true, .fault = fault, .callsLeft = number, .held = 0, .failedFile = {}};
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
std::FILE* __real_fopen(const char* path, const char* mode);
int __real_fclose(std::FILE* file);
std::size_t __real_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file);
int __real_ferror(std::FILE* file);

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

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    return Fails(Fault::kOpen) ? nullptr : Taken(__real_fopen(path, mode));
}

int __wrap_fclose(std::FILE* file) {
    GivenBack(file);
    return __real_fclose(file);
}

std::size_t __wrap_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    if (!Fails(Fault::kRead)) {
        return __real_fread(bytes, size, count, file);
    }
    g_plan.failedFile = file;
    errno = EIO;
    return 0;
}

int __wrap_ferror(std::FILE* file) {
    return file == g_plan.failedFile ? 1 : __real_ferror(file);
}

// The names of functions as the linker sees them, where a size is an unsigned long.

int __real__ZN8paramgen11FormatPlainEPcmPKcP13__va_list_tag(char* text, std::size_t size,
                                                            const char* format, std::va_list args);

int __wrap__ZN8paramgen11FormatPlainEPcmPKcP13__va_list_tag(char* text, std::size_t size,
                                                            const char* format, std::va_list args) {
    return Fails(Fault::kFormat)
               ? -1
               : __real__ZN8paramgen11FormatPlainEPcmPKcP13__va_list_tag(text, size, format, args);
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
