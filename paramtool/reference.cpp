#include <memory>

#include "manual/reference.h"
#include "paramtool/command.h"

namespace paramgen::paramtool {
namespace {

struct ReferenceOptions {
    ResultOptions result;
};

int RunReference(const ReferenceOptions& options) {
    const manual::Reference reference = manual::MakeReference();
    const std::string& format = options.result.format;
    if (format == "markdown") {
        options.result.Write(manual::Markdown(reference));
    } else if (format == "html") {
        options.result.Write(manual::Html(reference, PARAMGEN_VERSION));
    } else if (format == "man") {
        options.result.Write(manual::Man(reference, PARAMGEN_VERSION));
    } else {
        options.result.Write(output::Dumped(manual::ReferenceJson(reference)));
    }
    return kAllWell;
}

}  // namespace

void AddReference(CLI::App& app, int* status) {
    const auto options = std::make_shared<ReferenceOptions>();
    CLI::App* command = app.add_subcommand("reference", "write the manual of all keys");
    command->footer("Example: paramtool reference --format=html -o keys.html");
    options->result.AddTo(command, {"markdown", "html", "man", "json"});
    command->callback([options, status] { *status = RunReference(*options); });
}

}  // namespace paramgen::paramtool
