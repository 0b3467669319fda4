#include <memory>

#include "paramtool/command.h"
#include "paramtool/key_argument.h"
#include "paramtool/report_page.h"

namespace paramgen::paramtool {
namespace {

struct ReportOptions {
    std::string file;
    std::string input;
    std::string against;
};

int RunReport(const ReportOptions& options) {
    ReportInput given = {.input = ReadInputAndTell(options.input), .against = {}, .verdict = {}};
    if (!options.against.empty()) {
        given.against = ReadInputAndTell(options.against);
    }
    if (given.input.isTree) {
        given.verdict = check::Check(options.input, check::Choice());
    }
    output::WriteResult(options.file, report::Render(MakePage(given)));
    return kAllWell;
}

}  // namespace

void AddReport(CLI::App& app, int* status) {
    const auto options = std::make_shared<ReportOptions>();
    CLI::App* command =
        app.add_subcommand("report", "write a page that shows an image or a tree to people");
    command->footer(
        "Example: paramtool report examples/dashcam --against release.bin -o dashcam.html");
    command->add_option("INPUT", options->input, "an image, or a tree")
        ->required()
        ->option_text("IMAGE|TREE");
    command->add_option("--against", options->against, "show what changed since this image or tree")
        ->option_text("IMAGE|TREE");
    command
        ->add_option("-o,--output", options->file,
                     "write the page to FILE.html, whole or not at all")
        ->required()
        ->option_text("FILE.html");
    command->callback([options, status] { *status = RunReport(*options); });
}

}  // namespace paramgen::paramtool
