/// What the page's script knows: the values again, with all that unfolding one shows.
#pragma once

#include <nlohmann/json.hpp>

#include "report/page.h"

namespace paramgen::report {

/// Members that are empty are left out. Texts that many values share stand in `texts`; values give
/// their numbers.
nlohmann::ordered_json Data(const Page& page);

/// "set", "default", "unread", "stored", "constant" or "reserved".
const char* NameOf(State state);

}  // namespace paramgen::report
