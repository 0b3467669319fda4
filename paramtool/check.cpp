#include <memory>

#include "paramtool/command.h"

namespace paramgen::paramtool {
namespace {

struct CheckOptions {
    ResultOptions result;
    std::vector<std::string> trees;
};

int RunCheck(const CheckOptions& options) {
    options.result.Write("");
    return kAllWell;
}

}  // namespace

void AddCheck(CLI::App& app, int* status) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* command = app.add_subcommand("check", "tell everything that is wrong in trees");
    command->footer("Example: paramtool check examples/dashcam");
    options->result.AddTo(command, {"text", "json", "sarif", "github"});
    command->add_option("TREE", options->trees, "directories with a config_cfgaccess_entry.ini")
        ->required();
    command->callback([options, status] { *status = RunCheck(*options); });
}

}  // namespace paramgen::paramtool
