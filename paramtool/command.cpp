#include "paramtool/command.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>

#include "diagnostics/suggestion.h"
#include "output/shown_text.h"
#include "paramtool/layout_id.h"

namespace paramgen::paramtool {

void ResultOptions::AddTo(CLI::App* command, const std::vector<std::string>& formats) {
    static const std::map<std::string, output::ColorChoice> kColors = {
        {"auto", output::ColorChoice::kAuto},
        {"always", output::ColorChoice::kAlways},
        {"never", output::ColorChoice::kNever}};
    format = formats.front();
    command->add_option("-o,--output", file, "write the result to FILE, whole or not at all")
        ->option_text("FILE");
    std::string names;
    for (const std::string& name : formats) {
        names += (names.empty() ? "" : "|") + name;
    }
    command->add_option("--format", format, "form of the result (default " + format + ")")
        ->check(CLI::IsMember(formats))
        ->option_text(names);
    command
        ->add_option_function<std::string>(
            "--color", [this](const std::string& name) { color = kColors.at(name); },
            "when to colour text (default auto)")
        ->check(CLI::IsMember(std::vector<std::string>{"auto", "always", "never"}))
        ->option_text("auto|always|never");
}

bool ResultOptions::IsColored() const {
    if (!file.empty() && color == output::ColorChoice::kAuto) {
        return false;
    }
    return output::UsesColor(color, STDOUT_FILENO);
}

void Tell(std::string_view text) {
    const std::string line = std::string(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

namespace {

/// Prints CLI11's message: help and version as the result, errors on standard error.
int TellParseResult(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text, text);
        output::WriteResult("", text.str());
        return kAllWell;
    }
    Tell("paramtool: " + output::Shown(error.what()));
    Tell("Run 'paramtool --help' or 'paramtool COMMAND --help' for more.");
    return kWrongUse;
}

std::string VersionText() {
    return std::string("paramtool " PARAMGEN_VERSION "\nlayout ") + kLayoutId;
}

/// Whether the first argument is meant as a command, and no command has that name; says so.
bool IsUnknownCommand(const CLI::App& app, int argc, const char* const* argv) {
    const std::string name = argc > 1 ? argv[1] : "-";
    std::vector<std::string> commands;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        commands.push_back(command->get_name());
    }
    if (name.starts_with('-') ||
        std::find(commands.begin(), commands.end(), name) != commands.end()) {
        return false;
    }
    const std::string nearest = diagnostics::Nearest(name, commands);
    Tell("paramtool: there is no command '" + output::Shown(name) + "'" +
         (nearest.empty() ? "" : "; did you mean '" + nearest + "'?"));
    Tell("Run 'paramtool --help' for the commands.");
    return true;
}

/// Adds the command that is called `name`, or all when there is none or it looks at all: to add the
/// others would take a tenth of the time of a short run.
void AddCommands(std::string_view name, CLI::App& app, int* status) {
    const auto isMeant = [&](const Command& command) {
        return command.name == name && !command.needsOthers;
    };
    const std::vector<Command>& commands = Commands();
    const bool isAlone = std::any_of(commands.begin(), commands.end(), isMeant);
    for (const Command& command : commands) {
        if (!isAlone || isMeant(command)) {
            command.add(app, status);
        }
    }
}

int ParseAndRun(int argc, const char* const* argv) {
    CLI::App app("Checks, explains, compares and edits the settings of camera products.",
                 "paramtool");
    int status = kAllWell;
    app.set_version_flag("--version", VersionText);
    app.require_subcommand(1);
    AddCommands(argc > 1 ? argv[1] : "", app, &status);
    if (IsUnknownCommand(app, argc, argv)) {
        return kWrongUse;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return TellParseResult(app, error);
    }
    return status;
}

}  // namespace

int Run(int argc, const char* const* argv) {
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        Tell(std::string("paramtool: ") + error.what());
        return kWrongUse;
    }
}

}  // namespace paramgen::paramtool
