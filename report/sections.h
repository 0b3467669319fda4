/// The parts of the page that are readable without its script.
#pragma once

#include <string>

#include "report/page.h"

namespace paramgen::report {

/// Version, the image's digest, and what the page was made from.
std::string Identity(const Page& page);

/// How many findings, changes and values of each state there are, as links.
std::string Figures(const Page& page);

/// The findings, errors first; empty when the input was not checked.
std::string Findings(const Page& page);

/// The changed values; empty when the input is compared with nothing.
std::string Changes(const Page& page);

/// All values, as tables of some dozens of rows each: a browser skips those that are not in sight.
std::string Values(const Page& page);

}  // namespace paramgen::report
