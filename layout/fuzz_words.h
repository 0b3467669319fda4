/// The dictionary of the generator's fuzzer.
#pragma once

#include <string>

namespace paramgen::layout {

/// The lines of the dictionary: every module in the fuzz target's notation, every section, every
/// key and every name, each once.
std::string FuzzWords();

}  // namespace paramgen::layout
