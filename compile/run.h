/// One run of the loaders under watch.
#pragma once

#include "compile/recorder.h"

namespace paramgen::compile {

/// Runs what the program's `main` runs, but for writing files: image, status and where it stopped
/// go to `result`. `recorder` is watching already.
void RunAndKeep(const Recorder& recorder, Keep keep, Compilation* result);

/// Lets the program log what it logs, or nothing.
void SetUpLog(bool isKept);

}  // namespace paramgen::compile
