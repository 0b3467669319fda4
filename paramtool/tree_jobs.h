/// Many trees, several at a time. A tree's check needs a process of its own: the program's loaders
/// have one state, and one working directory.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "check/check.h"

namespace paramgen::paramtool {

/// Takes what tree `index` came to.
using TakeVerdict = std::function<void(std::size_t index, check::Verdict verdict)>;

/// Checks `trees`, `jobs` of them at a time, and hands over what they came to in their order. Tells
/// on standard error how far it is, when that is a terminal and it takes longer than a second.
/// Throws `output::UserError` when a process ends otherwise than it should.
void CheckTrees(const std::vector<std::string>& trees, const check::Choice& choice, unsigned jobs,
                const TakeVerdict& take);

}  // namespace paramgen::paramtool
