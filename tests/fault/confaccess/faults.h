/// Fault injection: makes calls of the functions below fail. The test program is linked with
/// wrappers for all calls that its own code makes of them.
#pragma once

namespace paramgen::testing {

enum class Fault {
    kNone,
    kAllocation,  ///< malloc, calloc, realloc, strdup, mmap: no memory
    kAdvice,      ///< madvise: not known to the kernel
    kOpen,        ///< open: no such file
    kRead,        ///< pread: an error
    kFormat,      ///< vsnprintf: -1
    kDirName,     ///< CONFACCESS_GetDirName: too long
};

/// While this object exists, one call fails, and memory and open files are counted.
class FaultWatch {
public:
    /// Makes call `number` (from 1 on) of one kind fail.
    FaultWatch(Fault fault, int number);
    ~FaultWatch();
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;

    /// Whether the call was made, and so has failed.
    bool Happened() const;

    /// Number of allocations and open files since the constructor that have not been released.
    int Held() const;
};

}  // namespace paramgen::testing
