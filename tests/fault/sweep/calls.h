/// Fault injection for a whole run: observes every call that can fail, and makes chosen ones fail.
/// The test program is linked with wrappers around the calls below: those of memory for the whole
/// process, with libc's own use, the others for the linked code. Output files and standard output
/// are streams that are made here, so that a single write or close can fail as on a device.
#pragma once

#include <string>

namespace paramgen::testing {

enum class Kind {
    kAllocation,    ///< malloc, calloc, realloc, strdup, mmap
    kOpen,          ///< open, fopen
    kRead,          ///< pread
    kWrite,         ///< a block written to a file
    kOutput,        ///< a block written to standard output
    kDeviceClose,   ///< closing a file: the device reports an error
    kShortWrite,    ///< fwrite: it writes one byte less than it should
    kRefusedWrite,  ///< fwrite: it writes nothing
    kFlush,         ///< fflush of a file
    kClose,         ///< fclose of a file
    kRealpath,
    kMutexInit,
    kMutexLock,
    kMutexUnlock,
    kMutexDestroy,
    kFormat,     ///< sprintf_s, snprintf_s, vsnprintf_s
    kClock,      ///< gettimeofday
    kLocalTime,  ///< localtime_r
};

/// How far a run has come, told by the files that it opens.
struct Progress {
    int opens;         ///< files that it has tried to open so far
    bool fileIsOpen;   ///< a file is open, or being opened
    bool isInStream;   ///< libc works on the open file, or on standard output
    std::string path;  ///< the file that it tried to open last
};

/// Is called before every call, and returns whether that call must fail.
using CallObserver = bool (*)(Kind kind);

/// While this object exists, calls are observed and standard output goes to the file `output`.
class ObservedCalls {
public:
    ObservedCalls(CallObserver observer, int output);
    ~ObservedCalls();
    ObservedCalls(const ObservedCalls&) = delete;
    ObservedCalls& operator=(const ObservedCalls&) = delete;

    /// Closes standard output, as a process does when it exits. Later calls are counted, and
    /// succeed.
    void CloseOutput();
};

/// While this object exists, calls are neither observed nor counted.
class UnobservedCalls {
public:
    UnobservedCalls();
    ~UnobservedCalls();
    UnobservedCalls(const UnobservedCalls&) = delete;
    UnobservedCalls& operator=(const UnobservedCalls&) = delete;

private:
    bool before_;
};

Progress CurrentProgress();

/// Changes the observer.
void SetObserver(CallObserver observer);

/// Sends standard output to the start of the file `output` from now on.
void RestartOutput(int output);

/// Flushes standard output, unless it is being written at the moment.
void FlushOutput();

/// Number of allocations and open files since observation began that have not been released.
int HeldThings();

}  // namespace paramgen::testing
