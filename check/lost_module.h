/// Modules that are missing from the image.
#pragma once

#include <string>
#include <string_view>

#include "check/inspection.h"

namespace paramgen::check {

/// Adds a finding with the reason why the module `name` is missing; an error when the program fails
/// because of it.
void TellLostModule(Inspection* inspection, const std::string& name,
                    diagnostics::Severity severity);

/// Tells why the program refuses a file: its first line at fault, with notes at further ones, or
/// its encoding.
void TellRefusedFile(Inspection* inspection, const tree::FoundFile& file, const std::string& module,
                     diagnostics::Severity severity);

/// Whether a file is UTF-16, in which nothing is read as it is meant.
bool IsUtf16(std::string_view bytes);

/// A sentence about the encoding of a file when it is unusual; else empty.
std::string EncodingOf(std::string_view bytes);

}  // namespace paramgen::check
