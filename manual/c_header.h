/// The image as a C header: for C99 to C23 and C++11 onwards, without dependencies.
#pragma once

#include <string>

namespace paramgen::manual {

/// The header: one struct for each type of record, an assertion for every offset and size,
/// enumerators for names, and a reader. `version` is the program's.
std::string CHeader(const std::string& version);

}  // namespace paramgen::manual
