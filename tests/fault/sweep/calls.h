/// Every call of a run that can fail, seen as it is made. The program of these tests is linked so
/// that the calls below come by here first: memory for the whole process, libc's own use included,
/// the others for the code that is linked in. Files and standard output are streams of this file's
/// own making, so that single reads, writes and closings can fail as a device makes them fail.
#pragma once

#include <string>

namespace paramgen::testing {

enum class Kind {
    kAllocation,    ///< malloc, calloc, realloc, strdup, mmap
    kOpen,          ///< open, fopen
    kRead,          ///< pread
    kWrite,         ///< a block written to a file
    kOutput,        ///< a block written to standard output
    kDeviceClose,   ///< a file's last step: the device reports an error
    kShortWrite,    ///< fwrite that takes one byte less than it was given
    kRefusedWrite,  ///< fwrite that takes nothing
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

/// How far a run has come, as its files tell.
struct Progress {
    int opens;         ///< files that were asked for so far
    bool fileIsOpen;   ///< a file is open, or being opened
    bool isInStream;   ///< libc is at work on the open file, or on standard output
    std::string path;  ///< the file asked for last
};

/// Is told of every call before it is made, and says whether it fails.
using CallObserver = bool (*)(Kind kind);

/// While this lives, calls are observed and standard output goes to the file `output`.
class ObservedCalls {
public:
    ObservedCalls(CallObserver observer, int output);
    ~ObservedCalls();
    ObservedCalls(const ObservedCalls&) = delete;
    ObservedCalls& operator=(const ObservedCalls&) = delete;

    /// Closes standard output, as a process does at its end. From here on calls are counted and
    /// succeed.
    void CloseOutput();
};

/// While this lives, calls are neither observed nor counted.
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

/// Sends standard output to its beginning in the file `output` from now on.
void RestartOutput(int output);

/// Writes out what standard output holds back, unless it is just being written.
void FlushOutput();

/// Pieces of memory and streams taken since observation began, less those given back.
int HeldThings();

}  // namespace paramgen::testing
