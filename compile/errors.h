/// All places at which a tree stops the program.
#pragma once

#include <vector>

#include "compile/session.h"

namespace paramgen::compile {

/// Runs repeatedly and returns what stopped each run, in this order. Each run treats the key that
/// stopped the one before as absent, or the module as empty. After an error in the entry file there
/// are no more. `pretence` applies to all runs.
std::vector<Stop> FindStops(Session* session, Pretence pretence);

}  // namespace paramgen::compile
