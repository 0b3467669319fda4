/// The names that paramgen knows.
#pragma once

#include <string>
#include <vector>

#include "layout/layout.h"

namespace paramgen::check {

/// The names that may stand behind a key; none when it takes no name.
std::vector<std::string> NamesOf(const layout::Key* key);

}  // namespace paramgen::check
