/// Runs of the real program.
#pragma once

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
ProgramRun RunProgram(const std::filesystem::path& directory, Output output = Output::kCaptured,
                      Rights rights = Rights::kOwn);

}  // namespace paramgen::testing
