/// Runs of the real program.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace paramgen::testing {

/// Whether a run's standard output is captured or closed.
enum class Output { kCaptured, kClosed };

/// The user that a run has: this process's, or nobody when this process runs as root.
enum class Rights { kOwn, kNobody };

/// Result of a run.
struct ProgramRun {
    int exitStatus;      ///< -1 when the program did not exit by itself
    std::string output;  ///< what it wrote to standard output
};

/// Runs the program in `directory`. The program is the one that was built along with the tests, or
/// that of the environment variable PARAMGEN_PROGRAM; PARAMGEN_RUNNER names an emulator to run it
/// with.
///
/// With PARAMGEN_REFERENCE_PROGRAM set, that program, which must run on the host, runs in
/// `directory` first. Both must give the same exit status, the same output apart from time stamps,
/// and the same output files.
///
/// A program that cannot be started fails the test; the reason is printed on standard error.
ProgramRun RunProgram(const std::filesystem::path& directory, Output output = Output::kCaptured,
                      Rights rights = Rights::kOwn);

/// A run of the program in `directory` whose standard output is a terminal. The destructor kills
/// the program unless it has exited.
class TerminalRun {
public:
    explicit TerminalRun(const std::filesystem::path& directory);
    ~TerminalRun();
    TerminalRun(const TerminalRun&) = delete;
    TerminalRun& operator=(const TerminalRun&) = delete;

    /// Waits until the program has written `text`. Returns false when it exits first, or writes
    /// nothing for ten seconds.
    bool Shows(const std::string& text);

private:
    int terminal_;  ///< the master side, which reads what the program writes
    pid_t child_ = -1;
    std::string shown_;
};

}  // namespace paramgen::testing
