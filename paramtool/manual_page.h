/// The program's page of the manual, made from its command line's own description.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace paramgen::paramtool {

/// paramtool(1), as troff.
std::string ManualPage(const CLI::App& app);

}  // namespace paramgen::paramtool
