/// All places at which a tree stops the program.
#pragma once

#include <vector>

#include "compile/session.h"

namespace paramgen::compile {

/// Runs again and again, each time as if what stopped the run before were absent, or for a module
/// empty, and returns what stopped them, in this order. A fault in the entry file is the only one.
/// `pretence` is what to pretend besides.
std::vector<Stop> FindStops(Session* session, Pretence pretence);

}  // namespace paramgen::compile
