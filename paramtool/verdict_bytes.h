/// Verdicts as bytes, on their way from one process to another of the same program.
#pragma once

#include <string>

#include "check/check.h"

namespace paramgen::paramtool {

/// A verdict as bytes, which begin with their number.
std::string VerdictBytes(const check::Verdict& verdict);

/// Takes a verdict off the beginning of `bytes`. Returns false, and takes nothing, when not all of
/// one is there.
bool TakeVerdictBytes(std::string* bytes, check::Verdict* verdict);

}  // namespace paramgen::paramtool
