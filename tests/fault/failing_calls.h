/// Calls into libc, and between rooms, that can be made to fail. A program has them when it is
/// linked with the wrappers (see tests/CMakeLists.txt).
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

/// Makes the `number`th call from now on fail, once. It still releases or takes what the real one
/// would: a stream is closed, a mutex taken or released.
void Fail(Call call, int number = 1);

/// Makes the wall clock stand still at this time, until `ReleaseClock`.
void HoldClock(long seconds, long microseconds);
void ReleaseClock();

}  // namespace paramgen::testing
