/// Modules that the image has to do without.
#pragma once

#include <string>
#include <string_view>

#include "check/inspection.h"

namespace paramgen::check {

/// Tells why the module `name` is not there: an error when the program stops for the lack of it.
void TellLostModule(Inspection* inspection, const std::string& name,
                    diagnostics::Severity severity);

/// Tells why the program refuses a file: its first line at fault, with notes at further ones, or
/// its encoding.
void TellRefusedFile(Inspection* inspection, const tree::FoundFile& file, const std::string& module,
                     diagnostics::Severity severity);

/// What is to be said about how the characters of a file are encoded; empty when nothing is.
std::string EncodingOf(std::string_view bytes);

}  // namespace paramgen::check
