/// Calls that fail when a test wants them to. The program of these tests is linked so that every
/// call of the functions below that its own code makes comes by here first.
#pragma once

namespace paramgen::testing {

enum class Fault {
    kNone,
    kAllocation,  ///< malloc, calloc, realloc, strdup, mmap: no memory
    kOpen,        ///< open: no such file
    kRead,        ///< pread: an error
    kFormat,      ///< vsnprintf: -1
    kDirName,     ///< CONFACCESS_GetDirName: too long
};

/// While this lives, one call fails, and what is taken and given back is counted.
class FaultWatch {
public:
    /// Makes call `number` (from 1 on) of one kind fail.
    FaultWatch(Fault fault, int number);
    ~FaultWatch();
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;

    /// Whether the call has come, and failed.
    bool Happened() const;

    /// How many pieces of memory and open files have been taken since, and not given back.
    int Held() const;
};

}  // namespace paramgen::testing
