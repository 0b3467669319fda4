#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "manual/c_header.h"
#include "manual/kaitai.h"
#include "manual/layout_compare.h"
#include "manual/layout_data.h"
#include "output/shown_text.h"
#include "output/table.h"
#include "paramtool/command.h"

namespace paramgen::paramtool {
namespace {

struct LayoutOptions {
    ResultOptions result;
};

int RunLayout(const LayoutOptions& options) {
    const std::string& format = options.result.format;
    if (format == "json") {
        options.result.Write(manual::LayoutText());
    } else if (format == "csv") {
        options.result.Write(manual::LayoutCsv());
    } else if (format == "c") {
        options.result.Write(manual::CHeader(PARAMGEN_VERSION));
    } else {
        options.result.Write(manual::KaitaiStruct(PARAMGEN_VERSION));
    }
    return kAllWell;
}

struct CompareOptions {
    ResultOptions result;
    std::string before;
    std::string after;
};

/// A layout from the file at `path`, "-" for standard input.
output::Json ReadLayout(const std::string& path) {
    std::ifstream file;
    if (path != "-") {
        file.open(path, std::ios::binary);
    }
    std::istream& input = path == "-" ? std::cin : file;
    if (!input) {
        throw output::UserError(output::Shown(path) + ": cannot be read");
    }
    std::ostringstream text;
    text << input.rdbuf();
    output::Json json = output::Json::parse(text.str(), nullptr, false);
    if (json.is_discarded()) {
        throw output::UserError(output::Shown(path) + ": no JSON");
    }
    return json;
}

std::string TextOf(const std::vector<manual::LayoutChange>& changes) {
    output::Table table;
    for (const manual::LayoutChange& change : changes) {
        table.Add({output::Shown(change.member), change.kind, output::Shown(change.text)});
    }
    return table.Text();
}

std::string JsonOf(const std::vector<manual::LayoutChange>& changes) {
    output::Json json = {{"schema", 1}, {"changes", output::Json::array()}};
    for (const manual::LayoutChange& change : changes) {
        json["changes"].push_back({{"kind", change.kind},
                                   {"member", output::JsonText(change.member)},
                                   {"text", output::JsonText(change.text)},
                                   {"misreads", change.misreads}});
    }
    return output::Dumped(json);
}

int RunCompare(const CompareOptions& options) {
    const output::Json before = ReadLayout(options.before);
    const output::Json after =
        options.after.empty() ? manual::LayoutJson() : ReadLayout(options.after);
    const std::vector<manual::LayoutChange> changes = manual::CompareLayouts(before, after);
    options.result.Write(options.result.format == "json" ? JsonOf(changes) : TextOf(changes));
    const auto misread = std::count_if(changes.begin(), changes.end(),
                                       [](const auto& change) { return change.misreads; });
    if (misread != 0) {
        Tell("a reader of the old layout misreads the new one (" + std::to_string(misread) +
             (misread == 1 ? " change)" : " changes)"));
    }
    return misread == 0 ? kAllWell : kFound;
}

void AddCompare(CLI::App* layout, int* status) {
    const auto options = std::make_shared<CompareOptions>();
    CLI::App* command =
        layout->add_subcommand("compare", "tell what moved, shrank, changed type or vanished");
    command->footer("Example: paramtool layout compare docs/layout.json");
    options->result.AddTo(command, {"text", "json"});
    command->add_option("OLD", options->before, "a layout in JSON")->required();
    command->add_option("NEW", options->after, "another (default: this program's)");
    command->callback([options, status] { *status = RunCompare(*options); });
}

}  // namespace

void AddLayout(CLI::App& app, int* status) {
    const auto options = std::make_shared<LayoutOptions>();
    CLI::App* command = app.add_subcommand("layout", "tell where everything lies in the image");
    command->footer("Example: paramtool layout --format=c -o param_image.h");
    options->result.AddTo(command, {"json", "csv", "c", "ksy"});
    AddCompare(command, status);
    command->callback([command, options, status] {
        if (command->get_subcommands().empty()) {
            *status = RunLayout(*options);
        }
    });
}

}  // namespace paramgen::paramtool
