/// Runs of the real program.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace paramgen::testing {

/// Where a run's standard output goes.
enum class Output { kCaptured, kClosed };

/// Whether a run has this process's rights, or those of nobody when this process is root's.
enum class Rights { kOwn, kNobody };

/// What a run came to.
struct ProgramRun {
    int exitStatus;      ///< -1 when the program did not exit by itself
    std::string output;  ///< what it wrote to standard output
};

/// Runs the program in `directory`. The program is the one that was built along with the tests, or
/// that of the environment variable PARAMGEN_PROGRAM; PARAMGEN_RUNNER names an emulator to run it
/// by.
///
/// With PARAMGEN_REFERENCE_PROGRAM set, that program, one of the host, runs in `directory` before,
/// and the two are expected to do the same: exit status, what they write to standard output, time
/// stamps apart, and what they leave in the output files.
///
/// A program that cannot be started is a failure of the test; the reason is on standard error.
ProgramRun RunProgram(const std::filesystem::path& directory, Output output = Output::kCaptured,
                      Rights rights = Rights::kOwn);

/// A run of the program in `directory` whose standard output is a terminal. It is killed at the
/// end of the object's life, unless it has exited.
class TerminalRun {
public:
    explicit TerminalRun(const std::filesystem::path& directory);
    ~TerminalRun();
    TerminalRun(const TerminalRun&) = delete;
    TerminalRun& operator=(const TerminalRun&) = delete;

    /// Waits until `text` stands on the terminal. Returns false when nothing more comes: after ten
    /// seconds of silence, or at the program's end.
    bool Shows(const std::string& text);

private:
    int terminal_;  ///< the side that shows what the program writes
    pid_t child_ = -1;
    std::string shown_;
};

}  // namespace paramgen::testing
