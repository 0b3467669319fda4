#include <algorithm>
#include <memory>

#include "image/diff.h"
#include "output/json.h"
#include "output/shown_text.h"
#include "output/table.h"
#include "paramtool/command.h"
#include "paramtool/key_argument.h"

namespace paramgen::paramtool {
namespace {

struct IdentifyOptions {
    ResultOptions result;
    std::string image;
    std::vector<std::string> trees;
};

/// A tree, and how far it is from the image.
struct Distance {
    std::string tree;
    std::size_t keys;
};

/// What an image says of itself.
struct Self {
    std::string model;
    std::string version;
    std::size_t flagged = 0;  ///< values that are odd
};

std::string TextOf(const image::Image& bytes, const char* key) {
    const layout::Value* value = layout::FindKey("devmng", "devinfo", key)->values.front();
    return image::EntryOf(bytes, *value).text;
}

Self SelfOf(const image::Image& bytes) {
    Self self = {.model = TextOf(bytes, "model"), .version = TextOf(bytes, "software_version")};
    for (const image::Entry& entry : image::Entries(bytes)) {
        self.flagged += entry.flags.empty() ? 0 : 1;
    }
    return self;
}

/// How many keys of a tree differ from the image.
std::string InWords(std::size_t keys) {
    if (keys == 0) {
        return "equal";
    }
    return std::to_string(keys) + (keys == 1 ? " key differs" : " keys differ");
}

std::string TextOf(const Self& self, const std::vector<Distance>& distances) {
    std::string text = "model:            " + output::Shown(self.model) +
                       "\nsoftware version: " + output::Shown(self.version) +
                       "\nflagged values:   " + std::to_string(self.flagged) + "\n";
    output::Table table;
    for (const Distance& distance : distances) {
        table.Add({InWords(distance.keys), output::Shown(distance.tree)});
    }
    return text + table.Text();
}

output::Json JsonOf(const Self& self, const std::vector<Distance>& distances) {
    output::Json trees = output::Json::array();
    for (const Distance& distance : distances) {
        trees.push_back(
            {{"tree", output::JsonText(distance.tree)}, {"differences", distance.keys}});
    }
    return {{"schema", 1},
            {"model", output::JsonText(self.model)},
            {"version", output::JsonText(self.version)},
            {"flagged", self.flagged},
            {"trees", std::move(trees)}};
}

int RunIdentify(const IdentifyOptions& options) {
    const image::Input input = ReadInputAndTell(options.image);
    std::vector<Distance> distances;
    bool isLeftOut = false;
    for (const std::string& tree : options.trees) {
        try {
            distances.push_back(
                {.tree = tree, .keys = image::Differences(input, image::ReadInput(tree)).size()});
        } catch (const std::runtime_error& error) {  // refused, or no tree at all
            Tell(std::string("paramtool: ") + error.what());
            isLeftOut = true;
        }
    }
    std::stable_sort(distances.begin(), distances.end(),
                     [](const Distance& a, const Distance& b) { return a.keys < b.keys; });
    const Self self = SelfOf(input.image);
    options.result.Write(options.result.format == "json" ? output::Dumped(JsonOf(self, distances))
                                                         : TextOf(self, distances));
    if (isLeftOut) {
        return kWrongUse;
    }
    return !distances.empty() && distances.front().keys == 0 ? kAllWell : kFound;
}

}  // namespace

void AddIdentify(CLI::App& app, int* status) {
    const auto options = std::make_shared<IdentifyOptions>();
    CLI::App* command =
        app.add_subcommand("identify", "tell what an image is, and which trees are nearest to it");
    command->footer("Example: paramtool identify flash.bin releases/*");
    options->result.AddTo(command, {"text", "json"});
    command->add_option("INPUT", options->image, "an image, or a tree")
        ->required()
        ->option_text("IMAGE");
    command->add_option("TREE", options->trees, "trees to compare it with")->required();
    command->callback([options, status] { *status = RunIdentify(*options); });
}

}  // namespace paramgen::paramtool
