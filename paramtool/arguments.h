/// What the command line's own description says of its arguments.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace paramgen::paramtool {

/// The commands of `app` that its help lists, in that order.
std::vector<const CLI::App*> VisibleCommands(const CLI::App& app);

/// The options of `command`, --help included, in the order of its help.
std::vector<const CLI::Option*> OptionsOf(const CLI::App& command);

/// Its arguments that are no options, in their order.
std::vector<const CLI::Option*> ArgumentsOf(const CLI::App& command);

/// All names of an option as they are typed, the short ones first: "-o", "--output".
std::vector<std::string> NamesOf(const CLI::Option& option);

/// What stands for an argument, or for an option's value: "TREE", "text|json"; empty for an option
/// without one.
std::string PlaceholderOf(const CLI::Option& option);

/// Whether an argument may be given more than once.
bool IsRepeated(const CLI::Option& argument);

}  // namespace paramgen::paramtool
