#include "paramtool/arguments.h"

namespace paramgen::paramtool {

std::vector<const CLI::App*> VisibleCommands(const CLI::App& app) {
    return app.get_subcommands(
        [](const CLI::App* command) { return !command->get_group().empty(); });
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) {
        return option->nonpositional() && !option->get_group().empty();
    });
}

std::vector<const CLI::Option*> ArgumentsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) {
        return option->get_positional() && !option->nonpositional();
    });
}

std::vector<std::string> NamesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) {
        names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        names.push_back("--" + name);
    }
    return names;
}

std::string PlaceholderOf(const CLI::Option& option) {
    if (option.get_expected_max() == 0) {
        return "";
    }
    if (!option.get_option_text().empty()) {
        return option.get_option_text();
    }
    return option.nonpositional() ? option.get_type_name() : option.get_name();
}

bool IsRepeated(const CLI::Option& argument) {
    return argument.get_items_expected_max() >= CLI::detail::expected_max_vector_size;
}

}  // namespace paramgen::paramtool
