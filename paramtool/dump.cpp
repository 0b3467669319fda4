#include "image/dump.h"

#include <memory>

#include "image/input.h"
#include "paramtool/command.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

struct DumpOptions {
    ResultOptions result;
    std::string input;
    std::vector<std::string> only;
    bool nonDefault = false;
};

/// Whether there is something to see: it is read and not as without its key, or odd.
bool IsNonDefault(const image::Image& image, const image::Entry& entry) {
    const layout::Value& value = *entry.value;
    return !entry.flags.empty() || (!image::IsDefault(image, value) && image::IsRead(image, value));
}

int RunDump(const DumpOptions& options) {
    const KeyFilter only(options.only);
    const image::Input input = ReadInputAndTell(options.input);
    std::vector<image::Entry> entries;
    bool matches = options.only.empty();
    for (image::Entry& entry : image::Entries(input.image)) {
        const bool isWanted = options.only.empty() || only.Matches(*entry.value);
        matches = matches || isWanted;
        if (isWanted && (!options.nonDefault || IsNonDefault(input.image, entry))) {
            entries.push_back(std::move(entry));
        }
    }
    if (!matches) {
        Tell("paramtool: no value matches " + only.Shown());
        return kFound;
    }
    options.result.Write(options.result.format == "json"
                             ? output::Dumped(image::JsonDump(input.image, entries))
                         : options.result.format == "csv" ? image::CsvDump(entries)
                                                          : image::TextDump(entries));
    return kAllWell;
}

}  // namespace

void AddDump(CLI::App& app, int* status) {
    const auto options = std::make_shared<DumpOptions>();
    CLI::App* command = app.add_subcommand("dump", "show every byte of an image");
    command->footer("Example: paramtool dump --only 'gsensor:*' param.bin");
    options->result.AddTo(command, {"text", "json", "csv"});
    command->add_option("--only", options->only, "show the values that KEY names alone")
        ->option_text("KEY")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->add_flag("--non-default", options->nonDefault,
                      "show only what is not as it would be without its key");
    command->add_option("INPUT", options->input, "an image, or a tree")
        ->required()
        ->option_text("IMAGE|TREE");
    command->callback([options, status] { *status = RunDump(*options); });
}

}  // namespace paramgen::paramtool
