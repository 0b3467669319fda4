#include <memory>

#include "paramtool/command.h"
#include "paramtool/manual_page.h"

namespace paramgen::paramtool {

void AddManual(CLI::App& app, int* status) {
    const auto file = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("manual", "print paramtool(1), as troff")->group("");
    command->add_option("-o,--output", *file, "write the result to FILE, whole or not at all")
        ->option_text("FILE");
    command->callback([file, status, &app] {
        output::WriteResult(*file, ManualPage(app));
        *status = kAllWell;
    });
}

}  // namespace paramgen::paramtool
