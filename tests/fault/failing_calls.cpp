#include "fault/failing_calls.h"

#include <pthread.h>
#include <sys/time.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>

// The linker turns every call of NAME into one of __wrap_NAME; __real_NAME is the original.
extern "C" {
int __real_fclose(std::FILE* file);
int __real_fflush(std::FILE* file);
std::FILE* __real_fopen(const char* path, const char* mode);
int __real_fseek(std::FILE* file, long offset, int origin);
long __real_ftell(std::FILE* file);
std::size_t __real_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file);
int __real_gettimeofday(timeval* now, void* zone);
int __real_pthread_mutex_lock(pthread_mutex_t* mutex);
int __real_pthread_mutex_unlock(pthread_mutex_t* mutex);
int __real__ZN8paramgen8memcpy_sEPvmPKvm(void* dest, std::size_t destMax, const void* src,
                                         std::size_t count);
}

namespace paramgen::testing {
namespace {

int g_callsLeft[static_cast<int>(Call::kCount)] = {};  // calls up to the failing one; 0: none
bool g_clockHeld = false;
timeval g_clock = {};

bool FailsNow(Call call) {
    int& left = g_callsLeft[static_cast<int>(call)];
    return left > 0 && --left == 0;
}

}  // namespace

void Fail(Call call, int number) {
    g_callsLeft[static_cast<int>(call)] = number;
}

void HoldClock(long seconds, long microseconds) {
    g_clock = {.tv_sec = seconds, .tv_usec = microseconds};
    g_clockHeld = true;
}

void ReleaseClock() {
    g_clockHeld = false;
}

extern "C" {

int __wrap_fclose(std::FILE* file) {
    const int result = __real_fclose(file);
    return FailsNow(Call::kFclose) ? EOF : result;
}

int __wrap_fflush(std::FILE* file) {
    return FailsNow(Call::kFflush) ? EOF : __real_fflush(file);
}

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (FailsNow(Call::kFopen)) {
        errno = EMFILE;
        return nullptr;
    }
    return __real_fopen(path, mode);
}

int __wrap_fseek(std::FILE* file, long offset, int origin) {
    return FailsNow(Call::kFseek) ? -1 : __real_fseek(file, offset, origin);
}

long __wrap_ftell(std::FILE* file) {
    return FailsNow(Call::kFtell) ? -1 : __real_ftell(file);
}

std::size_t __wrap_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    return __real_fwrite(bytes, size, FailsNow(Call::kFwrite) ? count - 1 : count, file);
}

int __wrap_gettimeofday(timeval* now, void* zone) {
    if (!g_clockHeld) {
        return __real_gettimeofday(now, zone);
    }
    *now = g_clock;
    return 0;
}

int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex) {
    const int result = __real_pthread_mutex_lock(mutex);
    return FailsNow(Call::kMutexLock) ? EINVAL : result;
}

int __wrap_pthread_mutex_unlock(pthread_mutex_t* mutex) {
    const int result = __real_pthread_mutex_unlock(mutex);
    return FailsNow(Call::kMutexUnlock) ? EINVAL : result;
}

int __wrap__ZN8paramgen8memcpy_sEPvmPKvm(void* dest, std::size_t destMax, const void* src,
                                         std::size_t count) {
    return FailsNow(Call::kMemcpyS)
               ? -1
               : __real__ZN8paramgen8memcpy_sEPvmPKvm(dest, destMax, src, count);
}

}  // extern "C"

}  // namespace paramgen::testing
