#include "image/diff.h"

#include <algorithm>
#include <fstream>
#include <memory>

#include "paramtool/command.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

struct DiffOptions {
    ResultOptions result;
    std::string before;
    std::string after;
    std::vector<std::string> only;
    std::vector<std::string> ignore;
    std::string ignoreFrom;
    bool offsets = false;
    bool stat = false;
};

/// The KEY arguments in a file, one a line; empty lines and those that begin with '#' are none.
std::vector<std::string> KeysInFile(const std::string& path) {
    std::ifstream file(path);
    if (!file || std::filesystem::is_directory(path)) {
        throw output::UserError(output::Shown(path) + ": cannot be read");
    }
    std::vector<std::string> keys;
    for (std::string line; std::getline(file, line);) {
        const std::size_t begin = line.find_first_not_of(" \t\r");
        if (begin != std::string::npos && line[begin] != '#') {
            keys.push_back(line.substr(begin, line.find_last_not_of(" \t\r") + 1 - begin));
        }
    }
    return keys;
}

/// Takes out what is not asked for. Returns how many were ignored.
std::size_t Filter(const DiffOptions& options, std::vector<image::Difference>* differences) {
    std::vector<std::string> ignored = options.ignore;
    if (!options.ignoreFrom.empty()) {
        const std::vector<std::string> more = KeysInFile(options.ignoreFrom);
        ignored.insert(ignored.end(), more.begin(), more.end());
    }
    const KeyFilter only(options.only);
    const KeyFilter ignore(ignored);
    const auto matches = [](const KeyFilter& filter, const image::Difference& difference) {
        return std::any_of(difference.places.begin(), difference.places.end(),
                           [&](const layout::Value* value) { return filter.Matches(*value); });
    };
    if (!options.only.empty()) {
        std::erase_if(*differences,
                      [&](const auto& difference) { return !matches(only, difference); });
    }
    return std::erase_if(*differences,
                         [&](const auto& difference) { return matches(ignore, difference); });
}

std::string Result(const DiffOptions& options, const image::Input& before,
                   const image::Input& after, const std::vector<image::Difference>& differences) {
    const image::DiffStyle style = {.offsets = options.offsets,
                                    .colors = options.result.IsColored(),
                                    .placeBefore = PlacesIn(before),
                                    .placeAfter = PlacesIn(after)};
    if (options.stat) {
        return image::DiffStat(differences);
    }
    if (options.result.format == "json") {
        return output::Dumped(image::JsonDiff(before, after, differences));
    }
    return options.result.format == "markdown" ? image::MarkdownDiff(differences, style)
                                               : image::TextDiff(differences, style);
}

/// Whether there is something that `argument` names; says so when not.
bool NamesSomething(const std::string& argument) {
    const KeyFilter filter({argument});
    const std::span<const layout::Value> values = layout::Values();
    const bool names = std::any_of(values.begin(), values.end(), [&](const layout::Value& value) {
        return filter.Matches(value);
    });
    if (!names) {
        Tell("paramtool: no value matches " + filter.Shown());
    }
    return names;
}

int RunDiff(const DiffOptions& options) {
    const image::Input before = ReadInputAndTell(options.before);
    const image::Input after = ReadInputAndTell(options.after);
    // A comparison of nothing would find no differences.
    if (!std::all_of(options.only.begin(), options.only.end(), NamesSomething)) {
        return kFound;
    }
    std::vector<image::Difference> differences = image::Differences(before, after);
    const std::size_t ignored = Filter(options, &differences);
    options.result.Write(Result(options, before, after, differences));
    if (ignored != 0) {
        Tell(std::to_string(ignored) + (ignored == 1 ? " difference" : " differences") +
             " ignored");
    }
    return differences.empty() ? kAllWell : kFound;
}

/// An option that takes a KEY and may be given several times.
void AddKeys(CLI::App* command, const char* name, std::vector<std::string>* keys,
             const char* description) {
    command->add_option(name, *keys, description)
        ->option_text("KEY")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

}  // namespace

void AddDiff(CLI::App& app, int* status) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* command = app.add_subcommand("diff", "show in which keys two images differ");
    command->footer("Example: paramtool diff --ignore devinfo:software_version old.bin my-product");
    options->result.AddTo(command, {"text", "json", "markdown"});
    AddKeys(command, "--only", &options->only, "compare only the values that KEY names");
    AddKeys(command, "--ignore", &options->ignore, "do not compare the values that KEY names");
    command->add_option("--ignore-from", options->ignoreFrom, "the same for each line of FILE")
        ->option_text("FILE");
    command->add_flag("--offsets", options->offsets, "show where in the image they are");
    command->add_flag("--stat", options->stat, "show only how many differ, by module");
    command->add_option("A", options->before, "an image, or a tree")
        ->required()
        ->option_text("IMAGE|TREE");
    command->add_option("B", options->after, "another one")->required()->option_text("IMAGE|TREE");
    command->callback([options, status] { *status = RunDiff(*options); });
}

}  // namespace paramgen::paramtool
