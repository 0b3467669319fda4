/// Checks the text of a value: whether a comment or wrong quotes cut it.
#pragma once

#include "check/inspection.h"

namespace paramgen::check {

/// Tells when a ';' or '#' ended the value of a line early, or its quotes are not right.
void CheckText(Inspection* inspection, const tree::FoundFile& file, const tree::Line& line);

}  // namespace paramgen::check
