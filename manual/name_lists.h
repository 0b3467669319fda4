/// The lists of names that numbers of the image stand for.
#pragma once

#include <string>
#include <vector>

#include "param/common/names.h"

namespace paramgen::manual {

/// All lists that values of the image use, in the order of their first uses.
std::vector<const NameTable*> NameLists();

/// What a list is called, from what all of its names begin with, in small letters.
std::string ListName(const NameTable& names);

}  // namespace paramgen::manual
