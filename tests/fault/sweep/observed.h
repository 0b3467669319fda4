/// What the wrappers of calls share.
#pragma once

#include "fault/sweep/calls.h"

namespace paramgen::testing {

/// Tells the observer of a call. Returns whether the call must fail.
bool Fails(Kind kind);

/// Counts `thing`, unless it is null, as allocated. Returns it.
void* Taken(void* thing);

/// Counts `thing`, unless it is null, as released.
void GivenBack(const void* thing);

}  // namespace paramgen::testing
