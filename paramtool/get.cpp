#include <algorithm>
#include <map>
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

using ValueList = std::vector<const layout::Value*>;

/// A key that names too much: exit status 2.
[[noreturn]] void RefuseSeveral(const std::string& text, const std::set<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        list += "\n  " + name;
    }
    throw output::UserError(text + list);
}

/// The text that gives a value. What no key gives is shown all the same.
std::string TextOf(const image::Image& bytes, const layout::Value& value) {
    return image::KeyText(value, image::BytesOf(bytes, value))
        .value_or(image::EntryOf(bytes, value).text);
}

/// The values whose key, or offset, `pattern` is. Those beyond their arrays have no bytes of their
/// own, and count only where the image reaches them.
ValueList ValuesInImage(const layout::KeyPattern& pattern, const image::Image& bytes) {
    ValueList values = layout::Find(pattern);
    if (values.empty() && !pattern.Offset()) {
        for (const layout::Value& value : layout::SpilledValues()) {
            if (pattern.Matches(value.module, value.section, value.key) &&
                image::IsRead(bytes, value)) {
                values.push_back(&value);
            }
        }
    }
    return values;
}

void RequireOneKey(const std::string& argument, const ValueList& values) {
    std::set<std::string> names;
    for (const layout::Value* value : values) {
        names.insert(NameOf(*value));
    }
    if (names.size() > 1) {
        RefuseSeveral(output::Shown(argument) + " names " + std::to_string(names.size()) +
                          " keys, and one is needed:",
                      names);
    }
}

/// The text of a key in an image. A key that has several places, and not the same in all that are
/// read, is refused: nothing can tell which is meant.
std::string TextInImage(const std::string& argument, const layout::KeyPattern& pattern,
                        const image::Image& bytes) {
    ValueList values = ValuesInImage(pattern, bytes);
    if (values.empty()) {
        throw UnknownKey("there is no key " + output::Shown(argument));
    }
    RequireOneKey(argument, values);
    const std::string first = TextOf(bytes, *values.front());
    std::erase_if(values,
                  [&](const layout::Value* value) { return !image::IsRead(bytes, *value); });
    std::map<std::string, const layout::Value*> texts;
    for (const layout::Value* value : values) {
        texts.emplace(TextOf(bytes, *value), value);
    }
    if (texts.size() > 1) {
        std::set<std::string> list;
        for (const auto& [text, value] : texts) {
            std::string place = "@";
            place.append(std::to_string(value->offset)).append(": ").append(output::Shown(text));
            list.insert(place);
        }
        RefuseSeveral(output::Shown(argument) + " has places that differ, and one is needed:",
                      list);
    }
    return texts.empty() ? first : texts.begin()->first;
}

/// The text of a key in a tree, as the image has it where the key has a place there.
std::string TextInTree(const std::string& argument, const compile::Compilation& compilation) {
    const layout::KeyName name = OneKey(argument);
    const layout::Key& key = *layout::FindKey(name.module, name.section, name.key);
    std::optional<std::string> withoutPlace;
    for (const compile::Answer& answer : compilation.answers) {
        if (answer.module != name.module || answer.key != name.section + ":" + name.key) {
            continue;
        }
        const auto value =
            std::find_if(key.values.begin(), key.values.end(), [&](const layout::Value* each) {
                return answer.place && answer.place->offset == each->offset;
            });
        if (value != key.values.end()) {
            return TextOf(compilation.image, **value);
        }
        withoutPlace = withoutPlace ? withoutPlace : answer.text;
    }
    if (withoutPlace) {
        return *withoutPlace;
    }
    const bool hasBytes =
        !key.values.empty() && layout::ValueAt(key.values.front()->offset) == key.values.front();
    if (!hasBytes) {
        throw UnknownKey(layout::Text(name) + " is not there, or not read with this tree's counts");
    }
    return TextOf(compilation.image, *key.values.front());
}

int RunGet(const GetOptions& options) {
    const layout::KeyPattern pattern = ParseKey(options.key);
    const image::Input input = ReadInputAndTell(options.input);
    try {
        const std::string text = input.isTree && !pattern.Offset()
                                     ? TextInTree(options.key, *input.compilation)
                                     : TextInImage(options.key, pattern, input.image);
        output::WriteResult(options.file, text + "\n");
        return kAllWell;
    } catch (const UnknownKey& unknown) {
        Tell(std::string("paramtool: ") + unknown.what());
        return kFound;
    }
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
