#include <memory>

#include "diagnostics/suggestion.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "paramtool/explanation.h"
#include "paramtool/key_argument.h"
#include "paramtool/read_back.h"

namespace paramgen::paramtool {
namespace {

struct ExplainOptions {
    ResultOptions result;
    std::string key;
    std::string input;
};

/// Tells that nothing has such a key, and what was probably meant.
int TellNothing(const std::string& text) {
    std::vector<std::string> keys;
    const std::size_t colon = text.rfind(':');
    for (const layout::Key& key : layout::Keys()) {
        keys.push_back(colon == std::string::npos ? key.name.key
                                                  : key.name.section + ":" + key.name.key);
    }
    const std::size_t slash = text.find('/');
    const std::string name = slash == std::string::npos ? text : text.substr(slash + 1);
    const std::string nearest = diagnostics::Nearest(name, keys);
    Tell("paramtool: nothing is called '" + output::Shown(text) + "'" +
         (nearest.empty() ? "" : "; did you mean '" + nearest + "'?"));
    return kFound;
}

int RunExplain(const ExplainOptions& options) {
    const layout::KeyPattern pattern = ParseKey(options.key);
    std::vector<Explanation> explanations = Explain(layout::Find(pattern));
    if (explanations.empty()) {
        return TellNothing(options.key);
    }
    std::optional<image::Input> input;
    if (!options.input.empty()) {
        input = ReadInputAndTell(options.input);
        if (input->isTree) {
            const tree::Product product(options.input);
            AddPlaces(product, pattern, *input->compilation, &explanations);
            AddRelated(*input->compilation, &product, &explanations);
        } else {
            AddRelated(ReadBack(input->image), nullptr, &explanations);
        }
    }
    const image::Input* given = input.has_value() ? &*input : nullptr;
    std::string text;
    output::Json json = {{"schema", 1}, {"values", output::Json::array()}};
    for (const Explanation& explanation : explanations) {
        if (options.result.format == "json") {
            json["values"].push_back(ExplanationJson(explanation, given));
        } else {
            text += (text.empty() ? "" : "\n") + ExplanationText(explanation, given);
        }
    }
    options.result.Write(options.result.format == "json" ? output::Dumped(json) : text);
    return kAllWell;
}

}  // namespace

void AddExplain(CLI::App& app, int* status) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App* command = app.add_subcommand("explain", "tell what a key is, and what became of it");
    command->footer("Example: paramtool explain gsensor:sensitivity examples/dashcam");
    options->result.AddTo(command, {"text", "json"});
    command
        ->add_option("KEY", options->key,
                     "module/section:key, section:key, key, with * and ?; or @OFFSET")
        ->required();
    command->add_option("IMAGE|TREE", options->input, "an image, or a tree that is compiled");
    command->callback([options, status] { *status = RunExplain(*options); });
}

}  // namespace paramgen::paramtool
