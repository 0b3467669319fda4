/// The references between values of a product: the table of references (`check/reference_rules.h`),
/// applied to the keys that a run has read.
#pragma once

#include <vector>

#include "compile/compilation.h"
#include "layout/value.h"

namespace paramgen::check {

/// A value that refers to another one.
struct Reference {
    layout::KeyName from;  ///< names are spelled as loaders do; the module is never a pattern
    layout::KeyName to;
    const char* reason;  ///< why, as a sentence without a full stop; lives as long as the program
};

/// All references between existing keys that `run` has read, in the order of the table and then of
/// the loaders. A handle refers to each enabled target that has it. A handle of -1, the key of a
/// disabled part, and a value without a match refer to nothing. The run must have kept its answers
/// (`compile::Keep::answers`); a failed run gives the references up to the place where it stopped.
std::vector<Reference> ReferencesOf(const compile::Compilation& run);

}  // namespace paramgen::check
