/// What the commands of paramtool share. A command is a function that adds itself to the command
/// line; what it does when it is called is a callback that tells the exit status.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "output/result.h"

namespace paramgen::paramtool {

/// Exit statuses.
inline constexpr int kAllWell = 0;
inline constexpr int kFound = 1;  ///< errors or differences, or what was asked for does not exist
inline constexpr int kWrongUse = 2;  ///< also what cannot be read or written

/// Adds a command to `app`; it stores its exit status in `status`, which lives as long as `app`.
using AddCommand = void (*)(CLI::App& app, int* status);

/// A command of the program.
struct Command {
    std::string_view name;
    AddCommand add;
    bool needsOthers = false;  ///< it looks at all commands
};

/// All commands, in the order in which --help lists them.
const std::vector<Command>& Commands();

void AddCheck(CLI::App& app, int* status);
void AddReference(CLI::App& app, int* status);
void AddLayout(CLI::App& app, int* status);
void AddReport(CLI::App& app, int* status);
void AddCompletion(CLI::App& app, int* status);
void AddDecompile(CLI::App& app, int* status);
void AddDeps(CLI::App& app, int* status);
void AddExplain(CLI::App& app, int* status);
void AddDiff(CLI::App& app, int* status);
void AddDump(CLI::App& app, int* status);
void AddGet(CLI::App& app, int* status);
void AddIdentify(CLI::App& app, int* status);
void AddInit(CLI::App& app, int* status);
void AddSet(CLI::App& app, int* status);

// For programs only: help does not list them.
void AddComplete(CLI::App& app, int* status);
void AddManual(CLI::App& app, int* status);

/// Options of every command that has a result: -o, and how it is shown.
struct ResultOptions {
    std::string file;             ///< -o; empty: standard output
    std::string format = "text";  ///< --format
    output::ColorChoice color = output::ColorChoice::kAuto;

    /// Adds them to a command whose formats are `formats`, the first of which is the default.
    void AddTo(CLI::App* command, const std::vector<std::string>& formats);

    /// Whether a text result is coloured.
    bool IsColored() const;

    /// Writes the result.
    void Write(std::string_view text) const { output::WriteResult(file, text); }
};

/// Tells something on standard error. `text` is as it is shown, without a newline.
void Tell(std::string_view text);

/// Runs the program. Returns its exit status.
int Run(int argc, const char* const* argv);

}  // namespace paramgen::paramtool
