#include <filesystem>
#include <memory>
#include <set>

#include "output/result.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "tree/product.h"

namespace paramgen::paramtool {
namespace {

struct DepsOptions {
    std::string file;
    std::string tree;
    std::string target = "param.bin";
};

/// A path as make and ninja read it.
std::string Escaped(const std::string& path) {
    std::string text;
    for (const char c : path) {
        if (c == '\n') {
            throw output::UserError(output::Shown(path) + ": a depfile cannot hold this name");
        }
        if (c == ' ' || c == '#' || c == '\\') {
            text += '\\';
        }
        text += c == '$' ? "$$" : std::string(1, c);
    }
    return text;
}

/// The nearest directory in which the file at `path` would appear.
std::string DirectoryFor(std::filesystem::path path) {
    std::error_code error;
    do {
        path = path.parent_path();
    } while (!path.empty() && !std::filesystem::is_directory(path, error));
    return path.empty() ? "." : path.string();
}

/// A line with all paths, one a line after the first.
std::string Depfile(const std::string& target, const tree::Product& product) {
    std::set<std::string> known;
    std::string text = Escaped(target) + ":";
    const auto add = [&](const std::string& path) {
        if (known.insert(path).second) {
            text += " \\\n  " + Escaped(path);
        }
    };
    add(product.entry().shown);
    for (const tree::Module& module : product.modules()) {
        if (module.file != nullptr) {
            add(module.file->isReadable ? module.file->shown : DirectoryFor(module.file->shown));
        }
    }
    return text + "\n";
}

int RunDeps(const DepsOptions& options) {
    const tree::Product product(options.tree);
    if (product.entryFate() == tree::EntryFate::kMissing) {
        throw output::UserError(output::Shown(options.tree) + ": has no " + tree::kEntryName);
    }
    output::WriteResult(options.file, Depfile(options.target, product));
    return kAllWell;
}

}  // namespace

void AddDeps(CLI::App& app, int* status) {
    const auto options = std::make_shared<DepsOptions>();
    CLI::App* command = app.add_subcommand("deps", "write a depfile for make and ninja");
    command->footer("Example: paramtool deps my-product --target param.bin -o param.d");
    command->add_option("-o,--output", options->file, "write the depfile to FILE")
        ->option_text("FILE");
    command
        ->add_option("--target", options->target, "what depends on the files (default param.bin)")
        ->option_text("NAME");
    command->add_option("TREE", options->tree, "the tree")->required();
    command->callback([options, status] { *status = RunDeps(*options); });
}

}  // namespace paramgen::paramtool
