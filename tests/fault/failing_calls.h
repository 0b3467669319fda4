/// Fault injection: makes calls of libc, and of other rooms, fail. A test program must be linked
/// with the wrappers (see tests/CMakeLists.txt).
#pragma once

namespace paramgen::testing {

enum class Call {
    kFclose,
    kFflush,
    kFopen,
    kFseek,
    kFtell,
    kFwrite,
    kMemcpyS,
    kMutexLock,
    kMutexUnlock,
    kCount,
};

/// Makes the `number`th call from now on fail, once; 0: none. The failing call still has its
/// effect: a stream is closed, a mutex is locked or unlocked.
void Fail(Call call, int number = 1);

/// Stops the wall clock at this time until `ReleaseClock`.
void HoldClock(long seconds, long microseconds);
void ReleaseClock();

}  // namespace paramgen::testing
