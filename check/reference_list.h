/// Which values of a product refer to which: the table of references (`check/reference_rules.h`),
/// applied to what was read.
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

/// All references between keys that `run` has read and found, in the order of the table and then of
/// the loaders. A handle refers to each enabled target that has it; a handle of -1, a user that is
/// not enabled, and what names nothing that there is refer to nothing. The run needs its answers
/// (`compile::Keep::answers`); a run that failed gives the references up to where it stopped.
std::vector<Reference> ReferencesOf(const compile::Compilation& run);

}  // namespace paramgen::check
