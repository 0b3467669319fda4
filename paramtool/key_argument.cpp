#include "paramtool/key_argument.h"

#include <algorithm>
#include <memory>

#include "check/check.h"
#include "diagnostics/report.h"
#include "image/dump.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "tree/product.h"

namespace paramgen::paramtool {

layout::KeyPattern ParseKey(const std::string& argument) {
    std::string error;
    std::optional<layout::KeyPattern> pattern = layout::KeyPattern::Parse(argument, &error);
    if (!pattern) {
        throw output::UserError(output::Shown(error));
    }
    return *std::move(pattern);
}

std::string NameOf(const layout::Value& value) {
    return value.HasKey() ? image::KeyOf(value) : value.Member();
}

KeyFilter::KeyFilter(const std::vector<std::string>& arguments) : arguments_(arguments) {
    for (const std::string& argument : arguments) {
        patterns_.push_back(ParseKey(argument));
    }
}

bool KeyFilter::Matches(const layout::Value& value) const {
    return std::any_of(patterns_.begin(), patterns_.end(), [&](const layout::KeyPattern& pattern) {
        if (pattern.Offset()) {
            return value.offset <= *pattern.Offset() &&
                   *pattern.Offset() < value.offset + value.size;
        }
        return value.HasKey() && pattern.Matches(value.module, value.section, value.key);
    });
}

std::string KeyFilter::Shown() const {
    std::string text;
    for (const std::string& argument : arguments_) {
        text += (text.empty() ? "" : ", ") + output::Shown(argument);
    }
    return text;
}

namespace {

/// Whether a key gives the value that owns an offset.
bool Owns(const layout::Key& key, std::uint32_t offset) {
    return std::any_of(key.values.begin(), key.values.end(), [&](const layout::Value* value) {
        return layout::ValueAt(offset) == value;
    });
}

}  // namespace

layout::KeyName OneKey(const std::string& argument) {
    const layout::KeyPattern pattern = ParseKey(argument);
    std::vector<const layout::Key*> keys;
    for (const std::span<const layout::Key> list : {layout::Keys(), layout::SpilledKeys()}) {
        for (const layout::Key& key : list) {
            const layout::KeyView& name = key.name;
            if (pattern.Offset() ? Owns(key, *pattern.Offset())
                                 : pattern.Matches(name.module, name.section, name.key)) {
                keys.push_back(&key);
            }
        }
    }
    if (keys.empty()) {
        throw UnknownKey("there is no key " + output::Shown(argument));
    }
    if (keys.size() > 1) {
        std::string text = output::Shown(argument) + " names " + std::to_string(keys.size()) +
                           " keys, and one is needed:";
        for (const layout::Key* key : keys) {
            text += "\n  " + layout::Text(key->name);
        }
        throw output::UserError(text);
    }
    return keys.front()->name;
}

namespace {

/// Tells the errors of a tree, as the command that checks does.
void TellErrors(const std::string& tree) {
    std::vector<diagnostics::Finding> errors = check::Check(tree, {}).findings;
    std::erase_if(errors, [](const diagnostics::Finding& finding) {
        return finding.severity != diagnostics::Severity::kError;
    });
    std::string text = diagnostics::TextReport(errors, false);
    if (text.ends_with('\n')) {
        text.pop_back();
    }
    Tell(text);
}

/// The module that a tree has a value from, of those that it may come from.
std::string ModuleThatGives(const image::Input& input, const layout::Value& value) {
    if (value.modules.size() > 1) {
        for (const compile::Answer& answer : input.compilation->answers) {
            if (answer.place && answer.place->offset == value.offset &&
                answer.key == value.section + ":" + value.key) {
                return answer.module;
            }
        }
    }
    return value.module;
}

}  // namespace

image::Input ReadInputAndTell(const std::string& argument) {
    image::Input input;
    try {
        input = image::ReadInput(argument);
    } catch (const image::RefusedTree&) {
        TellErrors(argument);
        throw output::UserError(output::Shown(argument) + ": paramgen refuses this tree");
    }
    for (const std::string& remark : input.remarks) {
        Tell("paramtool: " + output::Shown(argument) + ": " + remark);
    }
    return input;
}

image::PlaceOfKey PlacesIn(const image::Input& input) {
    if (!input.isTree) {
        return nullptr;
    }
    const auto read = std::make_shared<std::optional<tree::Product>>();
    return [read, &input](const layout::Value& value) -> std::string {
        if (!read->has_value()) {
            read->emplace(input.argument);  // only when there is something to place
        }
        const tree::Module* module = (*read)->FindModule(ModuleThatGives(input, value));
        const tree::Line* line =
            module == nullptr ? nullptr : module->file->ini->Find(value.section + ":" + value.key);
        return line == nullptr ? "" : module->file->shown + ":" + std::to_string(line->number);
    };
}

}  // namespace paramgen::paramtool
