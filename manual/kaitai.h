/// The image as a Kaitai Struct description, from which readers in many languages are made.
#pragma once

#include <string>

namespace paramgen::manual {

std::string KaitaiStruct(const std::string& version);

}  // namespace paramgen::manual
