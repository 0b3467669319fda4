#include "decompile/decompile.h"

#include <memory>

#include "decompile/lost.h"
#include "decompile/tree_directory.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

struct DecompileOptions {
    std::string input;
    std::string directory;
    std::optional<std::string> like;
    bool all = false;
    bool minimal = false;
    bool lossy = false;
    bool force = false;
};

/// What the written tree does not make of the image.
std::vector<decompile::Lost> Losses(const image::Image& wanted, const image::Image& made) {
    std::vector<std::uint32_t> offsets;
    for (std::uint32_t at = 0; at < wanted.size(); ++at) {
        if (wanted[at] != made[at]) {
            offsets.push_back(at);
        }
    }
    return decompile::Explain(wanted, offsets);
}

void TellLosses(const std::vector<decompile::Lost>& lost) {
    for (const decompile::Lost& loss : lost) {
        Tell("lost: @" + std::to_string(loss.offset) + " " + std::to_string(loss.size) +
             (loss.size == 1 ? " byte of " : " bytes of ") + loss.member + ": " + loss.reason);
    }
    Tell(std::to_string(lost.size()) + (lost.size() == 1 ? " value" : " values") +
         " that no tree makes");
}

/// The tree of an image. A tree behind --like that is refused is told with its errors.
decompile::Decompiled TreeOf(const image::Image& image, const decompile::Options& wish) {
    try {
        return decompile::Decompile(image, wish);
    } catch (const image::RefusedTree&) {
        ReadInputAndTell(*wish.like);
        throw;
    }
}

int RunDecompile(const DecompileOptions& options) {
    const image::Input input = ReadInputAndTell(options.input);
    const decompile::Options wish = {.all = options.all, .like = options.like};
    const decompile::Decompiled result = TreeOf(input.image, wish);
    decompile::WrittenTree tree(
        result.files, options.directory,
        options.force ? decompile::Old::kReplaced : decompile::Old::kNoneUnlessForced);
    if (!tree.image()) {
        throw output::UserError(output::Shown(options.input) +
                                ": no tree could be found that paramgen takes");
    }
    const std::vector<decompile::Lost> lost = Losses(input.image, *tree.image());
    if (!lost.empty()) {
        TellLosses(lost);
    }
    if (lost.empty() || options.lossy) {
        tree.Appear();
    }
    return lost.empty() ? kAllWell : kFound;
}

}  // namespace

void AddDecompile(CLI::App& app, int* status) {
    const auto options = std::make_shared<DecompileOptions>();
    CLI::App* command = app.add_subcommand("decompile", "write a tree that compiles to an image");
    command->footer("Example: paramtool decompile param.bin -o my-product");
    command->add_option("-o,--output", options->directory, "the directory that the tree goes to")
        ->option_text("DIR")
        ->required();
    CLI::Option* all = command->add_flag("--all", options->all, "write every key that is read");
    command->add_flag("--minimal", options->minimal, "leave out keys at their default (default)")
        ->excludes(all);
    command->add_option("--like", options->like, "change as little of this tree as can be")
        ->option_text("TREE");
    command->add_flag("--lossy", options->lossy,
                      "write the tree even if it does not make all of the image");
    command->add_flag("--force", options->force, "replace the files of a tree in DIR");
    command->add_option("INPUT", options->input, "an image, or a tree")
        ->required()
        ->option_text("IMAGE|TREE");
    command->callback([options, status] { *status = RunDecompile(*options); });
}

}  // namespace paramgen::paramtool
