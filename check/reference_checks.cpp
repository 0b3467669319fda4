// Handles, media modes and menus: values that name each other.

#include "check/inspection.h"

namespace paramgen::check {

void CheckReferences(Inspection*) {}

}  // namespace paramgen::check
