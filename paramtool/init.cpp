#include <memory>

#include "decompile/tree_directory.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "starter/starter.h"

namespace paramgen::paramtool {
namespace {

int RunInit(const std::string& directory) {
    std::vector<decompile::TreeFile> files;
    for (const starter::StarterFile& file : starter::StarterProduct()) {
        files.push_back({.path = file.path, .bytes = file.bytes});
    }
    decompile::WrittenTree tree(files, directory, decompile::Old::kNone);
    if (!tree.image()) {
        throw output::UserError(output::Shown(directory) + ": paramgen does not take the product");
    }
    tree.Appear();
    return kAllWell;
}

}  // namespace

void AddInit(CLI::App& app, int* status) {
    const auto directory = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("init", "write a small product to begin with");
    command->footer("Example: paramtool init my-product");
    command->add_option("DIR", *directory, "a directory that is empty or not there yet")
        ->required();
    command->callback([directory, status] { *status = RunInit(*directory); });
}

}  // namespace paramgen::paramtool
