/// The words of a product, for fuzzers.
#pragma once

#include <string>

namespace paramgen::layout {

/// The lines of a fuzzer's dictionary: every module as the fuzz target of the generator chooses it,
/// every section, every key and every name, each once.
std::string FuzzWords();

}  // namespace paramgen::layout
