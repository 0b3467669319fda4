/// Sweeps: the generator runs on a product. At every call of one kind it forks a copy of the
/// process in which this call fails.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "fault/sweep/calls.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Content of an output file after a run. Before it, each holds an old text.
enum class FileState { kOld, kImage, kPart };

/// How a run ended.
struct End {
    int exitStatus = -1;         ///< of the process; -1 when it did not exit by itself
    int held = 0;                ///< allocations and files not released, without the registry's
    bool isRegistered = false;   ///< the configuration was registered at the end
    bool hasCleanImage = false;  ///< the image in memory is that of a run without a fault
    FileState param = FileState::kOld;
    FileState paramDef = FileState::kOld;

    bool operator==(const End&) const = default;
};

/// A whole run.
struct WholeRun {
    End end;
    std::string output;
};

/// A call that failed, and what followed.
struct Point {
    int number;         ///< of the call among those of its kind, from 1 on
    Progress progress;  ///< of the run, when the call failed
    bool wasLoading;    ///< the configuration was registered: its values were being read
    std::size_t said;   ///< bytes of output before the call
    End end;
    std::string output;  ///< output after the call; empty when it `isRest`
    bool isRest;         ///< it is the same as without the fault
};

/// A copy of the example product in a temporary directory, which is the working directory.
class Sweep {
public:
    Sweep();
    ~Sweep();
    Sweep(const Sweep&) = delete;
    Sweep& operator=(const Sweep&) = delete;

    const std::filesystem::path& directory() const { return directory_.path(); }

    /// A run without a fault, made once before the first sweep.
    const WholeRun& Clean();

    /// Another run without a fault, of the product as it is now.
    WholeRun Again() { return RunWith(nullptr); }

    /// A run in which every call of one kind fails.
    WholeRun Failing(Kind kind);

    /// For every call of that kind, a run in which only this call fails. Of the calls while values
    /// are read only every `stride`th fails, unless the environment variable PARAMGEN_SWEEP is
    /// "every".
    std::vector<Point> Over(Kind kind, int stride = 1);

private:
    WholeRun RunWith(CallObserver observer);

    TempDir directory_;
    WorkingDirectory workingDirectory_{directory_.path()};
    int capture_;
    int copyCapture_;
    std::optional<WholeRun> clean_;
};

/// Number of calls that have failed in sweeps of this process, and of calls that were observed.
int PointCount();
int CallCount();

}  // namespace paramgen::testing
