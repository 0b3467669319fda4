/// Sweeps: the generator runs on a product, and at every call of one kind a copy of the process
/// goes on in which this call fails.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "fault/sweep/calls.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// What became of an output file. Before a run each holds an old text.
enum class FileState { kOld, kImage, kPart };

/// How a run ended.
struct End {
    int exitStatus = -1;         ///< as a caller of the program sees it; -1 when it did not end
    int held = 0;                ///< memory and streams still held, those of the registry apart
    bool isRegistered = false;   ///< the configuration was registered at the end
    bool hasCleanImage = false;  ///< the image in memory is that of a run without a fault
    FileState param = FileState::kOld;
    FileState paramDef = FileState::kOld;

    bool operator==(const End&) const = default;
};

/// A run as a whole.
struct WholeRun {
    End end;
    std::string output;
};

/// A call that failed, and what followed.
struct Point {
    int number;         ///< of the call among those of its kind, from 1 on
    Progress progress;  ///< when it failed
    bool wasLoading;    ///< the configuration was registered then: its values were being read
    std::size_t said;   ///< bytes of output before it
    End end;
    std::string output;  ///< what came after it; empty when it `isRest`
    bool isRest;         ///< it is exactly what a run without a fault says from there on
};

/// The example product in a directory of its own, which is the working directory meanwhile.
class Sweep {
public:
    Sweep();
    ~Sweep();
    Sweep(const Sweep&) = delete;
    Sweep& operator=(const Sweep&) = delete;

    const std::filesystem::path& directory() const { return directory_.path(); }

    /// What a run says and makes without a fault. Taken once, before the first sweep.
    const WholeRun& Clean();

    /// A run without a fault as well, of the product as it is by now.
    WholeRun Again() { return RunWith(nullptr); }

    /// A run in which every call of one kind fails.
    WholeRun Failing(Kind kind);

    /// One run for every call of that kind, in which it is the one to fail. Of the calls that are
    /// made while values are read only every `stride`th fails, unless the environment variable
    /// PARAMGEN_SWEEP is "every".
    std::vector<Point> Over(Kind kind, int stride = 1);

private:
    WholeRun RunWith(CallObserver observer);

    TempDir directory_;
    WorkingDirectory workingDirectory_{directory_.path()};
    int capture_;
    int copyCapture_;
    std::optional<WholeRun> clean_;
};

/// How many points this process has swept, and of how many calls that were seen.
int PointCount();
int CallCount();

}  // namespace paramgen::testing
