#include <memory>
#include <set>

#include "image/dump.h"
#include "image/key_text.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

struct GetOptions {
    std::string file;
    std::string key;
    std::string input;
};

/// Whether all values are those of one key.
bool IsOneKey(const std::vector<const layout::Value*>& values) {
    for (const layout::Value* value : values) {
        if (NameOf(*value) != NameOf(*values.front())) {
            return false;
        }
    }
    return true;
}

int TellSeveral(const std::string& key, const std::vector<const layout::Value*>& values) {
    std::set<std::string> names;
    for (const layout::Value* value : values) {
        names.insert(NameOf(*value));
    }
    Tell("paramtool: " + output::Shown(key) + " names " + std::to_string(names.size()) +
         " keys, and one is needed:");
    for (const std::string& name : names) {
        Tell("  " + name);
    }
    return kWrongUse;
}

int RunGet(const GetOptions& options) {
    const std::vector<const layout::Value*> values = layout::Find(ParseKey(options.key));
    if (values.empty()) {
        Tell("paramtool: there is no key " + output::Shown(options.key));
        return kFound;
    }
    if (!IsOneKey(values)) {
        return TellSeveral(options.key, values);
    }
    const image::Input input = ReadInputAndTell(options.input);
    const layout::Value& value = *values.front();
    // What no key gives is shown all the same.
    const std::optional<std::string> text =
        image::KeyText(value, image::BytesOf(input.image, value));
    output::WriteResult(options.file,
                        text.value_or(image::EntryOf(input.image, value).text) + "\n");
    return kAllWell;
}

}  // namespace

void AddGet(CLI::App& app, int* status) {
    const auto options = std::make_shared<GetOptions>();
    CLI::App* command = app.add_subcommand("get", "print the value of a key");
    command->footer("Example: paramtool get gsensor:sensitivity param.bin");
    command->add_option("-o,--output", options->file, "write the value to FILE")
        ->option_text("FILE");
    command->add_option("KEY", options->key, "module/section:key, or @OFFSET")->required();
    command->add_option("INPUT", options->input, "an image, or a tree")
        ->required()
        ->option_text("IMAGE|TREE");
    command->callback([options, status] { *status = RunGet(*options); });
}

}  // namespace paramgen::paramtool
