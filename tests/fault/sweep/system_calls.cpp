// Calls for paths, clocks, mutexes and formatting that can be made to fail.

#include <pthread.h>
#include <sys/time.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <ctime>

#include "fault/formatter.h"
#include "fault/sweep/observed.h"

namespace paramgen::testing {

extern "C" {

char* __real_realpath(const char* path, char* resolved);
int __real_gettimeofday(timeval* now, void* zone);
std::tm* __real_localtime_r(const std::time_t* seconds, std::tm* local);
int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes);
int __real_pthread_mutex_lock(pthread_mutex_t* mutex);
int __real_pthread_mutex_unlock(pthread_mutex_t* mutex);
int __real_pthread_mutex_destroy(pthread_mutex_t* mutex);

char* __wrap_realpath(const char* path, char* resolved) {
    if (Fails(Kind::kRealpath)) {
        errno = ENOENT;
        return nullptr;
    }
    return __real_realpath(path, resolved);
}

int __wrap_gettimeofday(timeval* now, void* zone) {
    return Fails(Kind::kClock) ? -1 : __real_gettimeofday(now, zone);
}

std::tm* __wrap_localtime_r(const std::time_t* seconds, std::tm* local) {
    return Fails(Kind::kLocalTime) ? nullptr : __real_localtime_r(seconds, local);
}

int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attributes) {
    return Fails(Kind::kMutexInit) ? ENOMEM : __real_pthread_mutex_init(mutex, attributes);
}

int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex) {
    return Fails(Kind::kMutexLock) ? EAGAIN : __real_pthread_mutex_lock(mutex);
}

// A mutex whose unlocking fails is unlocked all the same: the next lock would wait for ever.
int __wrap_pthread_mutex_unlock(pthread_mutex_t* mutex) {
    const int result = __real_pthread_mutex_unlock(mutex);
    return Fails(Kind::kMutexUnlock) ? EPERM : result;
}

int __wrap_pthread_mutex_destroy(pthread_mutex_t* mutex) {
    return Fails(Kind::kMutexDestroy) ? EBUSY : __real_pthread_mutex_destroy(mutex);
}

int __wrap__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(char* dest, std::size_t destMax,
                                                             std::size_t count, const char* format,
                                                             std::va_list args) {
    if (Fails(Kind::kFormat)) {
        dest[0] = '\0';
        return -1;
    }
    return __real__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(dest, destMax, count, format,
                                                                    args);
}

int __wrap__ZN8paramgen10snprintf_sEPcmmPKcz(char* dest, std::size_t destMax, std::size_t count,
                                             const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = __wrap__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(
        dest, destMax, count, format, args);
    va_end(args);
    return length;
}

int __wrap__ZN8paramgen9sprintf_sEPcmPKcz(char* dest, std::size_t destMax, const char* format,
                                          ...) {
    std::va_list args;
    va_start(args, format);
    const int length = __wrap__ZN8paramgen11vsnprintf_sEPcmmPKcP13__va_list_tag(
        dest, destMax, destMax, format, args);
    va_end(args);
    return length;
}

}  // extern "C"

}  // namespace paramgen::testing
